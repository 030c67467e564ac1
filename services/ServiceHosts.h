// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace zib {

/// The settings that name the host of an outside service. With none of them set, the bundled service stands
/// in for all of them.
const QStringList& serviceHostKeys();

/// The defaults of all service hosts and web addresses, in one place: the one to register at start.
QVariantMap defaultAddresses();

/// Every service host set to one base address.
/// @param base "http://HOST[:PORT][/PATH]", a slash at its end is ignored; nothing when it is no such
/// address.
std::optional<QVariantMap> hostsAtBase(const QString& base);

} // namespace zib
