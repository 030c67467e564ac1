// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/ServiceHosts.h"

#include "platform/SettingsKeys.h"

#include <QUrl>

namespace zib {

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
    };
}

std::optional<QVariantMap> hostsAtBase(const QString& base)
{
    const QUrl url(base, QUrl::StrictMode);
    if (url.scheme() != QLatin1String("http") || url.host().isEmpty() || url.hasQuery() ||
        url.hasFragment() || !url.userInfo().isEmpty())
        return std::nullopt;
    QString host = url.authority() + url.path();
    while (host.endsWith(QLatin1Char('/')))
        host.chop(1);
    QVariantMap result;
    for (const QString& key : serviceHostKeys())
        result.insert(key, host);
    return result;
}

} // namespace zib
