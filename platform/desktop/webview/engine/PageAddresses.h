// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QLatin1String>
#include <QUrl>

namespace zib {

/// Pages and their files have a scheme of their own, so that the page has no more to do with files than that
/// it is shown some.
inline constexpr const char kPageScheme[] = "zib-page";
inline constexpr const char kPageRoot[] = "zib-page://pages/";
/// The program's own links: nothing is ever loaded from them.
inline constexpr const char kLinkScheme[] = "zib";

inline bool isWeb(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

/// The site that may stand in a frame.
class VideoSite {
  public:
    explicit VideoSite(const QString& address)
        : url_(address)
    {
    }
    /// As a policy names it; empty when there is none.
    [[nodiscard]] QByteArray origin() const
    {
        return isWeb(url_) && !url_.host().isEmpty()
                   ? QUrl(url_.scheme() + QLatin1String("://") + url_.authority()).toEncoded()
                   : QByteArray();
    }
    [[nodiscard]] bool has(const QUrl& url) const
    {
        return !origin().isEmpty() && url.toEncoded().startsWith(origin() + '/');
    }

  private:
    QUrl url_;
};

} // namespace zib
