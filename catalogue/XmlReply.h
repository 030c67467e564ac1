// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/HttpMessage.h"

#include <pugixml.hpp>

#include <QString>

namespace zib {

/// The status codes that replies carry.
enum class ServiceStatus {
    Success = 0,
    MissingKey = 1,
    MissingParameter = 4,
    InvalidParameter = 5,
};

/// The text in UTF-8 without the characters that XML cannot carry.
QByteArray xmlText(const QString& text);

/// An element with that text, see xmlText().
void addText(pugi::xml_node parent, const char* name, const QString& text);

/// The root element of a new document in UTF-8.
pugi::xml_node declaredRoot(pugi::xml_document& document, const char* name);

/// The document as a reply that no cache keeps: what is answered grows with the index.
HttpReply xmlReply(const pugi::xml_document& document, int httpStatus);

/// A reply that begins with response/status.
class XmlReply {
  public:
    XmlReply();
    /// A refusal.
    XmlReply(ServiceStatus status, const QString& message);

    /// The response element.
    [[nodiscard]] pugi::xml_node response() const { return document_.document_element(); }
    [[nodiscard]] HttpReply http() const;

  private:
    pugi::xml_document document_;
    ServiceStatus status_;
};

} // namespace zib
