// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QLatin1String>
#include <QUrl>

namespace zib {

/// Pages and their files have a scheme of their own, so that the page has no more to do with files than that
/// it is shown some.
inline constexpr const char kPageScheme[] = "zib-page";
/// The folder of the page's files, apart for each colour scheme, so that no picture is remembered from the
/// other.
inline QByteArray pageRoot(bool dark)
{
    return dark ? "zib-page://dark/" : "zib-page://light/";
}
/// The program's own links: nothing is ever loaded from them.
inline constexpr const char kLinkScheme[] = "zib";

inline bool isWeb(const QUrl& url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

/// The site that may stand in a frame, a host as in the settings.
class VideoSite {
  public:
    explicit VideoSite(const QString& host)
        : authority_(QUrl(QLatin1String("https://") + host).authority().toLatin1())
    {
    }
    /// As a policy names it, with and without encryption; null when there is none.
    [[nodiscard]] QByteArray origins() const
    {
        return authority_.isEmpty() ? QByteArray() : "https://" + authority_ + " http://" + authority_;
    }
    [[nodiscard]] bool has(const QUrl& url) const
    {
        return !authority_.isEmpty() && isWeb(url) && url.authority().toLatin1() == authority_;
    }

  private:
    QByteArray authority_;
};

} // namespace zib
