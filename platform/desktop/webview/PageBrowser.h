// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/WebView.h"

#include <QByteArray>
#include <QString>

class QWidget;

namespace zib {

/// A page as the engine is to show it.
struct BrowserPage {
    QByteArray html;
    QByteArray scriptMark; ///< the nonce of the scripts that run
    QString folder;        ///< the only folder whose files the page sees, without a slash at its end
    bool dark = false;     ///< which of the page's colour schemes
};

struct PageBrowserOptions {
    QWidget* parent = nullptr;           ///< owns the browser's widget
    WebViewDelegate* delegate = nullptr; ///< not null, outlives the browser
    QString videoSite;                   ///< HOST[:PORT] of the only site that may stand in a frame
    bool motionReduced = false;
};

/// The web engine, behind a library that is loaded with the first page. Main thread.
class PageBrowser {
  public:
    virtual ~PageBrowser() = default;

    [[nodiscard]] virtual QWidget& widget() = 0;
    virtual void load(const BrowserPage& page) = 0;
    virtual void clear() = 0;
};

/// What the library exports, under the name kMakePageBrowser: once a process.
using MakePageBrowser = PageBrowser* (*)(const PageBrowserOptions&);
inline constexpr const char* kMakePageBrowser = "zibMakePageBrowser";

} // namespace zib
