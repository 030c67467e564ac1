// SPDX-License-Identifier: GPL-3.0-or-later
#include "library/playlists/PlaylistFormats.h"
#include "services/XmlReply.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

#include <pugixml.hpp>

#include <sstream>

namespace zib::playlists {
namespace {

/// Twenty tags a song. A document of nothing but empty tags would take many times its bytes.
constexpr qsizetype mostMarks = 40 * mostPlaylistEntries;

QString textOfChild(pugi::xml_node element, const char* name)
{
    return plainText(childText(element, name).value_or(QString()));
}

PlaylistEntry entryOf(pugi::xml_node track, const PlaylistPlace& place)
{
    PlaylistEntry entry;
    entry.name = textOfChild(track, "title");
    entry.artist = textOfChild(track, "creator");
    entry.album = textOfChild(track, "album");
    entry.durationSeconds = secondsOf(integerValue(textOfChild(track, "duration")));
    for (const pugi::xml_node location : track.children("location"))
        if (entry.location.isEmpty())
            entry.location = addressOfUri(textOf(location), place);
    for (const pugi::xml_node identifier : track.children("identifier"))
        if (entry.id.isEmpty())
            entry.id = idOf(textOf(identifier).trimmed());
    return entry;
}

void add(pugi::xml_node element, const char* name, const QString& text)
{
    if (!text.isEmpty())
        element.append_child(name).text().set(text.toUtf8().constData());
}

} // namespace

Result readXspf(const QByteArray& bytes, const PlaylistPlace& place)
{
    pugi::xml_document document;
    const bool isBounded = bytes.count('<') + bytes.count('=') <= mostMarks;
    const bool isXml = isBounded && document.load_buffer(bytes.constData(), size_t(bytes.size()));
    const pugi::xml_node playlist = document.child("playlist");
    if (!isXml || !playlist)
        return tl::unexpected(QCoreApplication::translate("PlaylistFile", "It is no XSPF playlist."));
    PlaylistDocument result;
    result.title = textOfChild(playlist, "title");
    for (const pugi::xml_node track : playlist.child("trackList").children("track")) {
        if (result.entries.size() == mostPlaylistEntries)
            return tl::unexpected(tooManySongs());
        result.entries.append(entryOf(track, place));
    }
    return result;
}

QByteArray writeXspf(const PlaylistDocument& playlist)
{
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    pugi::xml_node root = document.append_child("playlist");
    root.append_attribute("version") = "1";
    root.append_attribute("xmlns") = "http://xspf.org/ns/0/";
    add(root, "title", plainText(playlist.title));
    pugi::xml_node list = root.append_child("trackList");
    for (const PlaylistEntry& entry : playlist.entries) {
        pugi::xml_node track = list.append_child("track");
        add(track, "location", writtenLocation(entry.location));
        if (!entry.id.isEmpty())
            add(track, "identifier", identifierOf(entry.id));
        add(track, "title", plainText(entry.name));
        add(track, "creator", plainText(entry.artist));
        add(track, "album", plainText(entry.album));
        if (entry.durationSeconds > 0)
            add(track, "duration", QString::number(entry.durationSeconds * 1000));
    }
    std::ostringstream text;
    document.save(text, "  ");
    return QByteArray::fromStdString(text.str());
}

} // namespace zib::playlists
