// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/webview/engine/PageAddresses.h"

#include <QWebEngineUrlRequestInterceptor>

namespace zib {

/// The wall that a page meets when its own policy has a hole: lets through the page and its files, pictures
/// of the web, the video site's frame and what that loads.
class PageFilter : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

  public:
    PageFilter(VideoSite videoSite, QObject* parent);
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;

  private:
    [[nodiscard]] bool isAllowed(const QWebEngineUrlRequestInfo& info) const;

    VideoSite videoSite_;
};

} // namespace zib
