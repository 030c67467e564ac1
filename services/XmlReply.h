// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <pugixml.hpp>

#include <cstddef>
#include <optional>
#include <vector>

namespace zib {

/// The longest XML reply that a client takes, in bytes: some ten times what the services send. A parsed
/// document takes up to twenty times its text.
inline constexpr qint64 maximumXmlBytes = qint64(8) * 1024 * 1024;

/// Reads the bytes as XML in whatever encoding they declare. Document types are skipped, so no entity but the
/// five of XML itself stands for anything. A reply that is no XML, or too long, leaves the document empty and
/// a line in the log.
void loadXmlReply(pugi::xml_document& document, const QByteArray& bytes);

/// The element's whole text, that of the elements in it included.
QString textOf(pugi::xml_node element);
/// The text of the first child of that name, or nothing where there is no such child.
std::optional<QString> childText(pugi::xml_node element, const char* name);

/// The text of the first element at the XPath below the node, or nothing where there is none.
std::optional<QString> textAt(pugi::xml_node node, const char* path);
/// The elements at the XPath below the node, in their order. There are no more than maximumEntries: a reply
/// of nothing but tiny elements would otherwise become many times its size.
std::vector<pugi::xml_node> elementsAt(pugi::xml_node node, const char* path);
/// Far more entries of one kind than any service sends.
inline constexpr std::size_t maximumEntries = 10'000;

/// What the service says of a song-search or profile request ("Success" when it was answered), or that it
/// said nothing.
QString statusMessage(const pugi::xml_document& reply);

} // namespace zib
