// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/webview/PageBrowser.h"

namespace zib {

class VideoSite;

/// The page with what keeps it within its bounds put before all else in it, and with its colour scheme.
QByteArray boundedPage(const BrowserPage& page, const VideoSite& videoSite);

} // namespace zib
