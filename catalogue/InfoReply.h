// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/XmlReply.h"

#include <optional>

namespace zib {

/// A reply of the music-information requests: the element "lfm" with what is known of one thing.
class InfoReply {
  public:
    InfoReply();

    [[nodiscard]] pugi::xml_node root() const { return document_.document_element(); }
    [[nodiscard]] HttpReply http() const { return xmlReply(document_, 200); }

    /// Why a request of that method gets no answer, if it is so.
    static std::optional<HttpReply> refusal(const HttpRequest& request);
    /// The refusal for something that nobody knows.
    static HttpReply notFound(const char* message);

  private:
    pugi::xml_document document_;
};

/// The addresses of a picture, by growing size. Where a client takes the third it gets the largest.
struct ImageAddresses {
    QString small;
    QString medium;
    QString large;
};

/// The elements "image"; three of them even when there is no picture, as clients count them.
void addImages(pugi::xml_node parent, const ImageAddresses& images);

/// The element of that name with a "tag" for each.
void addTags(pugi::xml_node parent, const char* name, const QStringList& tags, const QString& base);

/// A text as the "content" of the element of that name, with its paragraphs set apart, and the first of them
/// as the summary; nothing when it is empty.
/// @param html one line a paragraph
void addContent(pugi::xml_node parent, const char* name, const QString& html);

} // namespace zib
