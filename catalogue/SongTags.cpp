// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SongTags.h"

#include "catalogue/MusicFiles.h"
#include "catalogue/SongPictures.h"

#include <QRegularExpression>

#include <taglib/fileref.h>
#include <taglib/tag.h>
#include <taglib/tpropertymap.h>

#include <fstream>

namespace zib {

namespace {

constexpr qsizetype longestText = 500;
constexpr qsizetype mostGenres = 10;
constexpr qsizetype longestLyrics = 20000;

QString cleanText(const TagLib::String& text)
{
    return QString::fromUtf8(text.toCString(true)).left(longestText).simplified();
}

QStringList genresOf(const TagLib::PropertyMap& properties)
{
    static const QRegularExpression separators(QStringLiteral("[;,/|]"));
    QStringList genres;
    for (const auto& value : properties["GENRE"]) {
        for (const auto& part : cleanText(value).split(separators)) {
            const QString genre = part.trimmed().toLower();
            if (!genre.isEmpty() && !genres.contains(genre) && genres.size() < mostGenres)
                genres.append(genre);
        }
    }
    return genres;
}

QString firstOf(const TagLib::PropertyMap& properties, const char* key)
{
    const auto values = properties[key];
    return values.isEmpty() ? QString() : cleanText(values.front());
}

/// The start of the text that the pattern describes, or nothing.
QString matching(const QRegularExpression& pattern, const QString& text)
{
    return pattern.match(text).captured();
}

/// What is sung, without the times that karaoke programs put before each line.
QString lyricsOf(const TagLib::PropertyMap& properties)
{
    static const QRegularExpression times(QStringLiteral(R"(^(\[\d{1,3}:\d{2}([.:]\d{1,3})?\]\s*)+)"),
                                          QRegularExpression::MultilineOption);
    static const QRegularExpression lineEnds(QStringLiteral("\r\n?"));
    for (const auto& [key, values] : properties) {
        // Some formats append a description to the key, and some programs make a text of the frame's own
        // name.
        if (!key.startsWith("LYRICS") && !key.startsWith("UNSYNCEDLYRICS") && key != "USLT")
            continue;
        for (const auto& value : values) {
            QString text = QString::fromUtf8(value.toCString(true)).left(longestLyrics);
            text = text.replace(lineEnds, QStringLiteral("\n")).remove(times).trimmed();
            if (!text.isEmpty())
                return text;
        }
    }
    return {};
}

void readRelease(const TagLib::PropertyMap& properties, SongTags& tags)
{
    static const QRegularExpression date(QStringLiteral(R"(\A[1-9]\d{3}(-[01]\d(-[0-3]\d)?)?)"));
    static const QRegularExpression id(QStringLiteral(R"(\A[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}\z)"));
    static const QRegularExpression number(QStringLiteral(R"(\A\d{1,3})"));
    tags.date = matching(date, firstOf(properties, "DATE"));
    tags.label = firstOf(properties, "LABEL");
    tags.country = firstOf(properties, "RELEASECOUNTRY");
    tags.releaseType = firstOf(properties, "RELEASETYPE");
    tags.releaseId = matching(id, firstOf(properties, "MUSICBRAINZ_ALBUMID").toLower());
    tags.disc = matching(number, firstOf(properties, "DISCNUMBER")).toInt();
}

/// Whether a file of a kind that the tag library does not know begins as that kind does.
bool beginsRight(const QByteArray& path, const QString& extension)
{
    std::ifstream file(path.constData(), std::ios::binary);
    char start[4] = {};
    file.read(start, sizeof start);
    const QByteArrayView bytes(start, file.gcount());
    if (extension == u"caf")
        return bytes == QByteArrayView("caff");
    if (extension == u"aac")
        return bytes.startsWith("ID3") ||
               (bytes.size() == 4 && uchar(bytes[0]) == 0xff && (uchar(bytes[1]) & 0xf6) == 0xf0);
    return false;
}

} // namespace

std::optional<SongTags> TagFileReader::read(const QByteArray& path)
{
    const TagLib::FileRef file(path.constData(), true, TagLib::AudioProperties::Fast);
    const auto* properties = file.isNull() ? nullptr : file.audioProperties();
    const bool known = properties && properties->sampleRate() > 0;
    if (!known && !beginsRight(path, songExtension(path)))
        return std::nullopt;
    SongTags tags;
    if (known) {
        tags.seconds = properties->lengthInSeconds();
        tags.milliseconds = properties->lengthInMilliseconds();
    }
    if (const auto* tag = file.isNull() ? nullptr : file.tag()) {
        tags.artist = cleanText(tag->artist());
        tags.album = cleanText(tag->album());
        tags.title = cleanText(tag->title());
        const TagLib::PropertyMap all = file.file()->properties();
        tags.genres = genresOf(all);
        readRelease(all, tags);
        tags.lyrics = lyricsOf(all);
        tags.hasPicture = !embeddedPicture(file.file()).isEmpty();
        tags.year = tag->year() < 10000 ? int(tag->year()) : 0;
        tags.track = tag->track() < 10000 ? int(tag->track()) : 0;
    }
    return tags;
}

SongTags completedTags(SongTags tags, const QByteArray& path, const QByteArray& folder)
{
    static const QRegularExpression trackNumber(QStringLiteral(R"(\A\d{1,3}[\s._-]+(?=\S))"));
    auto places = QString::fromLocal8Bit(path.mid(folder.size())).split(u'/', Qt::SkipEmptyParts);
    const QString fileName = places.isEmpty() ? QString() : places.takeLast();
    if (tags.title.isEmpty())
        tags.title = fileName.left(fileName.lastIndexOf(u'.')).remove(trackNumber);
    if (tags.artist.isEmpty() && !places.isEmpty())
        tags.artist = places.size() > 1 ? places.at(places.size() - 2) : places.last();
    if (tags.album.isEmpty() && places.size() > 1)
        tags.album = places.last();
    if (tags.artist.isEmpty())
        tags.artist = QStringLiteral("Unknown Artist");
    return tags;
}

} // namespace zib
