// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ReleaseService.h"

#include "catalogue/XmlReply.h"

namespace zib {

namespace {

void addAttribute(pugi::xml_node element, const char* name, const QString& value)
{
    if (!value.isEmpty())
        element.append_attribute(name).set_value(xmlText(value).constData());
}

} // namespace

std::optional<CatalogueAlbum> ReleaseService::albumAsked(const QString& id, const HttpRequest& request) const
{
    if (!id.isEmpty())
        return albums_.albumWithId(id.toLower());
    const auto artist = catalogue_.artistNamed(request.parameter(u"artist").value_or(QString()), false);
    return artist ? albums_.albumNamed(artist->key, request.parameter(u"title").value_or(QString()))
                  : std::nullopt;
}

HttpReply ReleaseService::answer(const QString& id, const HttpRequest& request) const
{
    pugi::xml_document document;
    auto root = declaredRoot(document, "metadata");
    const auto album = albumAsked(id, request);
    if (!album)
        return xmlReply(document, 200);
    auto release = root.append_child("release");
    addAttribute(release, "id", album->id);
    addAttribute(release, "type", album->type);
    addText(release, "title", album->title);
    addText(release.append_child("artist"), "name", album->artist);
    auto events = release.append_child("release-event-list");
    if (!album->date.isEmpty() || !album->country.isEmpty() || !album->label.isEmpty()) {
        auto event = events.append_child("event");
        addAttribute(event, "date", album->date);
        addAttribute(event, "country", album->country);
        if (!album->label.isEmpty())
            addText(event.append_child("label"), "name", album->label);
    }
    auto tracks = release.append_child("track-list");
    for (const auto& song : album->songs) {
        auto track = tracks.append_child("track");
        addText(track, "title", song.title);
        addText(track, "duration", QString::number(song.milliseconds));
    }
    return xmlReply(document, 200);
}

} // namespace zib
