// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/webview/engine/PageFilter.h"

#include <utility>

namespace zib {

PageFilter::PageFilter(VideoSite videoSite, QObject* parent)
    : QWebEngineUrlRequestInterceptor(parent)
    , videoSite_(std::move(videoSite))
{
}

void PageFilter::interceptRequest(QWebEngineUrlRequestInfo& info)
{
    if (!isAllowed(info))
        info.block(true);
}

bool PageFilter::isAllowed(const QWebEngineUrlRequestInfo& info) const
{
    const QUrl url = info.requestUrl();
    if (url.scheme() == QLatin1String(kPageScheme))
        return true; // the page server looks closer
    // These two reach nothing outside the document that made them.
    if (url.scheme() == QLatin1String("data") || url.scheme() == QLatin1String("blob"))
        return true;
    if (!isWeb(url))
        return false;
    // No site but that one ever stands in a page, so whatever else asks from the web is there because of it.
    if (isWeb(info.initiator()))
        return true;
    switch (info.resourceType()) {
    case QWebEngineUrlRequestInfo::ResourceTypeImage:
        return true;
    case QWebEngineUrlRequestInfo::ResourceTypeMainFrame:
    case QWebEngineUrlRequestInfo::ResourceTypeSubFrame:
        return videoSite_.has(url);
    default:
        return false;
    }
}

} // namespace zib
