// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/webview/PageBrowser.h"

namespace zib {

class VideoSite;

/// The engine knows no colour scheme but light: what a page or a drawing asks about it is answered in its
/// text.
QByteArray inColorScheme(QByteArray text, bool dark);

/// A drawing or a script with its words, which stand within double braces, in the language of the program.
QByteArray inLanguage(QByteArray text);

/// The page with what keeps it within its bounds put before all else in it, and with its colour scheme.
QByteArray boundedPage(const BrowserPage& page, const VideoSite& videoSite);

} // namespace zib
