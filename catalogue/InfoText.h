// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/DemoCatalogue.h"

namespace zib {

/// Links to the service's own pages of artists and tags, as HTML. Clients make searches of them.
/// @param base "http://HOST"
QString artistLink(const QString& base, const QString& name);
QString tagLink(const QString& base, const QString& tag);

/// The address of the page that a link to an artist or a tag leads to.
QString artistAddress(const QString& base, const QString& name);
QString tagAddress(const QString& base, const QString& tag);

/// The text as HTML with its links; lines stay lines.
QString linkedHtml(const MarkedText& text, const QString& base);

/// The text without links, not escaped.
QString plainText(const MarkedText& text);

/// "a", "a and b", "a, b and c".
QString enumeration(QStringList parts);

} // namespace zib
