// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/SongSearchReply.h"

#include "records/PropertyValue.h"
#include "services/Log.h"
#include "services/XmlReply.h"
#include "services/utilities/PathUtilities.h"
#include "services/utilities/StringUtilities.h"

#include <QCoreApplication>

#include <algorithm>

namespace zib {
namespace {

/// The first characters of a song's id in the service are the id of its record. A service that sends shorter
/// ones is at fault; they tell songs apart all the same and are taken whole.
constexpr qsizetype idLength = 16;

/// A share from 0 to 1 in percent, truncated.
qint64 percentage(const QString& text)
{
    return qint64(std::clamp(doubleValue(text) * 100.0, -1e15, 1e15));
}

/// A time stamp like 2010-03-04T05:06:07, in UTC; a null value for any other text.
PropertyValue foundDate(QString text)
{
    text.replace(QLatin1Char('T'), QLatin1Char(' '));
    // Read in parts: as one local time it would be no time at all in the hour that summer time skips.
    const QDate date = QDate::fromString(text.left(10), QStringLiteral("yyyy-MM-dd"));
    const QTime time = QTime::fromString(text.mid(11), QStringLiteral("HH:mm:ss"));
    if (text.size() != 19 || text[10] != u' ' || !date.isValid() || !time.isValid())
        return {};
    return QDateTime(date, time, Qt::UTC);
}

/// A title as people write it, from whatever the page of the song shouted.
QString albumTitle(const QString& release)
{
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    QString title = capitalizedString(release);
    while (!title.isEmpty() && isBlank(title.back()))
        title.chop(1);
    const auto begin = std::ranges::find_if_not(title, isBlank);
    return title.sliced(begin - title.begin());
}

/// Fills the fields that the audio document has and leaves the others.
void readAudio(pugi::xml_node audio, const QString& url, Record& track)
{
    track.set(keys::Location, url);
    track.set(keys::Name,
              childText(audio, "title").value_or(stringByDeletingPathExtension(lastPathComponent(url))));
    if (const auto length = childText(audio, "length"))
        track.set(keys::Duration, integerValue(*length));
    if (const auto link = childText(audio, "link"))
        track.set(keys::Info, *link);
    if (const auto date = childText(audio, "date"))
        track.set(keys::FoundDate, foundDate(*date));
    if (const auto release = childText(audio, "release"))
        track.set(keys::Album, albumTitle(*release));
    if (const auto id = childText(audio, "id"))
        track.set(keys::Id, id->left(idLength));
    else
        qCWarning(servicesLog, "no id!");
}

void readArtist(pugi::xml_node artist, QList<Record>& tracks)
{
    const auto name = childText(artist, "name");
    if (!name) {
        qCWarning(servicesLog, "missing artist name!");
        return;
    }
    // One working record for all songs of the artist: a field that a song lacks keeps the value of the song
    // before it.
    Record track = Record::make({{keys::Artist, *name}});
    if (const auto hotness = childText(artist, "hotttnesss"))
        track.set(keys::Hotness, percentage(*hotness));
    if (const auto familiarity = childText(artist, "familiarity"))
        track.set(keys::Familiarity, percentage(*familiarity));
    static const pugi::xpath_query audioDocuments("audio/audio");
    for (const pugi::xpath_node& audio : audioDocuments.evaluate_node_set(artist)) {
        if (const auto url = childText(audio.node(), "url")) {
            readAudio(audio.node(), *url, track);
            tracks.append(track.copy());
        }
    }
}

} // namespace

tl::expected<QList<Record>, ServiceError> tracksOfSongSearchReply(const QByteArray& reply)
{
    pugi::xml_document document;
    loadXmlReply(document, reply);
    const QString status = statusMessage(document);
    if (status != QLatin1String("Success"))
        return tl::unexpected(ServiceError{ServiceError::Kind::Reported, status});

    static const pugi::xpath_query artistElements("response/artists/artist");
    const pugi::xpath_node_set artists = artistElements.evaluate_node_set(document);
    if (artists.empty())
        return tl::unexpected(
            ServiceError{ServiceError::Kind::Reported,
                         QCoreApplication::translate(
                             "RVPlaylistDownloader",
                             "No songs found. Please check your spelling or try another search.")});
    QList<Record> tracks;
    for (const pugi::xpath_node& artist : artists)
        readArtist(artist.node(), tracks);
    return tracks;
}

} // namespace zib
