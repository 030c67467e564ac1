// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace zib {

class UserDefaults;

/// The settings that name the host of an outside service. The bundled service stands in for those that are
/// not set.
const QStringList& serviceHostKeys();

/// The defaults of all service hosts and web addresses, in one place: the one to register at start.
QVariantMap defaultAddresses();

/// Every service host set to one base address.
/// @param base "http://HOST[:PORT][/PATH]", a slash at its end is ignored; nothing when it is no such
/// address.
std::optional<QVariantMap> hostsAtBase(const QString& base);

/// What somebody typed as a service's host, made HOST[:PORT][/PATH]: "http://" before it and slashes after it
/// are left out. Nothing when it names no host that can be spoken to over HTTP.
std::optional<QString> serviceHostFrom(const QString& typed);

/// Whether the bundled service stands in for this service.
bool isBundledService(const UserDefaults& userDefaults, const QString& hostKey);

/// The address of a request to an outside service, by the host that the settings name now.
/// @param pathAndQuery from the slash on, already percent-escaped.
/// @return nothing when no host is configured.
QByteArray serviceAddress(const UserDefaults& userDefaults, const QString& hostKey,
                          const QString& pathAndQuery);

/// HOST[:PORT][/PATH] of the music-information service's pages for people: the setting, else the service's
/// own host. Empty when neither is configured.
QString musicInfoWebSite(const UserDefaults& userDefaults);
/// The same of the pages of shared playlists.
QString playlistWebSite(const UserDefaults& userDefaults);

/// The bare name or address in a HOST[:PORT][/PATH]; empty when there is none.
QString hostName(const QString& serviceHost);

} // namespace zib
