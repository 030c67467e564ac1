// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/ServiceHosts.h"

#include "platform/SettingsKeys.h"
#include "platform/UserDefaults.h"

#include <QUrl>

namespace zib {
namespace {

QString withoutTrailingSlashes(QString host)
{
    while (host.endsWith(QLatin1Char('/')))
        host.chop(1);
    return host;
}

QString siteOrHost(const UserDefaults& userDefaults, const QString& siteKey, const QString& hostKey)
{
    const QString site = withoutTrailingSlashes(userDefaults.string(siteKey));
    return site.isEmpty() ? withoutTrailingSlashes(userDefaults.string(hostKey)) : site;
}

} // namespace

const QStringList& serviceHostKeys()
{
    static const QStringList keys{settings::SongSearchHost, settings::MusicInfoHost, settings::LyricsHost,
                                  settings::ReleaseHost, settings::PlaylistHost};
    return keys;
}

QVariantMap defaultAddresses()
{
    // No host by default: the services that these protocols were made for have closed, the bundled one
    // answers.
    return {
        {settings::HomePage, QStringLiteral("https://zib.example/")},
        {settings::SupportPage, QStringLiteral("https://zib.example/support")},
        {settings::SharedPlaylistsPage, QStringLiteral("https://zib.example/playlists")},
        {settings::FacebookSite, QStringLiteral("https://www.facebook.com")},
        {settings::TwitterSite, QStringLiteral("https://twitter.com")},
        {settings::VideoSite, QStringLiteral("https://www.youtube.com")},
    };
}

std::optional<QVariantMap> hostsAtBase(const QString& base)
{
    const QUrl url(base, QUrl::StrictMode);
    if (url.scheme() != QLatin1String("http") || url.host().isEmpty() || url.hasQuery() ||
        url.hasFragment() || !url.userInfo().isEmpty())
        return std::nullopt;
    const QString host = withoutTrailingSlashes(url.authority() + url.path());
    QVariantMap result;
    for (const QString& key : serviceHostKeys())
        result.insert(key, host);
    return result;
}

std::optional<QString> serviceHostFrom(const QString& typed)
{
    const QString text = typed.trimmed();
    const auto hosts =
        hostsAtBase(text.contains(QLatin1String("://")) ? text : QLatin1String("http://") + text);
    return hosts ? std::optional(hosts->value(settings::SongSearchHost).toString()) : std::nullopt;
}

bool isBundledService(const UserDefaults& userDefaults, const QString& hostKey)
{
    const QString host = userDefaults.string(hostKey);
    return host.isEmpty() ||
           host == QStringLiteral("127.0.0.1:%1").arg(userDefaults.integer(settings::CataloguePort));
}

QByteArray serviceAddress(const UserDefaults& userDefaults, const QString& hostKey,
                          const QString& pathAndQuery)
{
    const QString host = withoutTrailingSlashes(userDefaults.string(hostKey));
    if (host.isEmpty())
        return {};
    return (QLatin1String("http://") + host + pathAndQuery).toUtf8();
}

QString musicInfoWebSite(const UserDefaults& userDefaults)
{
    return siteOrHost(userDefaults, settings::MusicInfoSite, settings::MusicInfoHost);
}

QString playlistWebSite(const UserDefaults& userDefaults)
{
    return siteOrHost(userDefaults, settings::PlaylistSite, settings::PlaylistHost);
}

QString hostName(const QString& serviceHost)
{
    return QUrl(QLatin1String("http://") + serviceHost, QUrl::StrictMode).host();
}

} // namespace zib
