// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/TrackInfoService.h"

#include "catalogue/ArtistRanking.h"
#include "catalogue/TextMatching.h"
#include "catalogue/XmlReply.h"

#include <QUrl>

#include <algorithm>

namespace zib {

namespace {

constexpr int mostAlike = 3;

enum class Refusal { MissingParameter = 6, InvalidKey = 10 };

HttpReply refused(Refusal code, const char* message)
{
    pugi::xml_document document;
    auto root = declaredRoot(document, "lfm");
    root.append_attribute("status").set_value("failed");
    addText(root, "error", QLatin1String(message));
    root.child("error").append_attribute("code").set_value(int(code));
    return xmlReply(document, 400);
}

/// A link to the service's page of an artist or a tag.
QString link(const QString& base, QLatin1String kind, const QString& name)
{
    return QStringLiteral("<a href=\"%1/%2/%3\">%4</a>")
        .arg(base, kind, QString::fromLatin1(QUrl::toPercentEncoding(name)), name.toHtmlEscaped());
}

/// "a", "a and b", "a, b and c".
QString enumeration(QStringList parts)
{
    if (parts.size() < 2)
        return parts.value(0);
    const QString last = parts.takeLast();
    return parts.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

} // namespace

TrackInfoService::TrackInfoService(const MusicCatalogue& catalogue, const SongIndex& index,
                                   const SongCovers& covers)
    : catalogue_(catalogue)
    , index_(index)
    , covers_(covers)
{
}

std::optional<HttpReply> TrackInfoService::answer(const HttpRequest& request) const
{
    if (request.parameter(u"method") != QStringLiteral("track.getinfo"))
        return std::nullopt;
    if (request.parameter(u"api_key").value_or(QString()).trimmed().isEmpty())
        return refused(Refusal::InvalidKey, "Invalid API key");
    const bool autocorrects = request.parameter(u"autocorrect") == QStringLiteral("1");
    const auto artist =
        catalogue_.artistNamed(request.parameter(u"artist").value_or(QString()), autocorrects);
    const auto song = artist
                          ? catalogue_.songNamed(artist->key, request.parameter(u"track").value_or(QString()))
                          : std::nullopt;
    if (!song)
        return refused(Refusal::MissingParameter, "Track not found");

    const QString base = QStringLiteral("http://") + QString::fromLatin1(request.host);
    pugi::xml_document document;
    auto root = declaredRoot(document, "lfm");
    root.append_attribute("status").set_value("ok");
    auto track = root.append_child("track");
    addText(track, "name", song->title);
    addText(track, "url", QStringLiteral("%1/song/%2").arg(base, song->id));
    addText(track, "duration", QString::number(qint64(song->seconds) * 1000));
    addText(track.append_child("artist"), "name", song->artist);
    if (!song->album.isEmpty()) {
        auto album = track.append_child("album");
        addText(album, "artist", song->artist);
        addText(album, "title", song->album);
    }
    if (hasCover(*song)) {
        auto album = track.child("album") ? track.child("album") : track.append_child("album");
        for (const char* size : {"small", "medium", "large", "extralarge"}) {
            addText(album, "image", QStringLiteral("%1/cover/%2").arg(base, song->id));
            album.last_child().append_attribute("size").set_value(size);
        }
    }
    auto tags = track.append_child("toptags");
    for (const auto& tag : artist->tags) {
        auto element = tags.append_child("tag");
        addText(element, "name", tag);
        addText(element, "url",
                base + QStringLiteral("/tag/") + QString::fromLatin1(QUrl::toPercentEncoding(tag)));
    }
    if (const QString text = description(*song, *artist, base); !text.isEmpty())
        addText(track.append_child("wiki"), "content", text);
    return xmlReply(document, 200);
}

bool TrackInfoService::hasCover(const CatalogueSong& song) const
{
    if (song.isDemo)
        return true;
    const auto own = index_.song(song.id);
    return own && !covers_.cover(*own).isEmpty();
}

/// Two paragraphs at most: who plays, and where to listen on.
QString TrackInfoService::description(const CatalogueSong& song, const Artist& artist,
                                      const QString& base) const
{
    QString text = song.about;
    if (!text.isEmpty())
        text = text.toHtmlEscaped() + QLatin1Char('\n');
    QStringList tags;
    for (const auto& tag : artist.tags.mid(0, mostAlike))
        tags.append(link(base, QLatin1String("tag"), tag));
    QStringList alike;
    for (const auto& other : artistsSimilar(*catalogue_.artists(), {{artist.name}}).mid(0, mostAlike))
        alike.append(link(base, QLatin1String("music"), other.name));
    if (tags.isEmpty())
        return text;
    text += QStringLiteral("Filed under %1.").arg(enumeration(tags));
    if (!alike.isEmpty())
        text += QStringLiteral(" If you like this, try %1.").arg(enumeration(alike));
    return text + QLatin1Char('\n');
}

} // namespace zib
