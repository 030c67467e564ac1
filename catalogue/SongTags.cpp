// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SongTags.h"

#include "catalogue/MusicFiles.h"

#include <QRegularExpression>

#include <taglib/fileref.h>
#include <taglib/tag.h>
#include <taglib/tpropertymap.h>

#include <fstream>

namespace zib {

namespace {

constexpr qsizetype longestText = 500;
constexpr qsizetype mostGenres = 10;

QString cleanText(const TagLib::String& text)
{
    return QString::fromUtf8(text.toCString(true)).left(longestText).simplified();
}

QStringList genresOf(const TagLib::Tag& tag)
{
    static const QRegularExpression separators(QStringLiteral("[;,/|]"));
    QStringList genres;
    const TagLib::PropertyMap properties = tag.properties();
    for (const auto& value : properties["GENRE"]) {
        for (const auto& part : cleanText(value).split(separators)) {
            const QString genre = part.trimmed().toLower();
            if (!genre.isEmpty() && !genres.contains(genre) && genres.size() < mostGenres)
                genres.append(genre);
        }
    }
    return genres;
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
    if (known)
        tags.seconds = properties->lengthInSeconds();
    if (const auto* tag = file.isNull() ? nullptr : file.tag()) {
        tags.artist = cleanText(tag->artist());
        tags.album = cleanText(tag->album());
        tags.title = cleanText(tag->title());
        tags.genres = genresOf(*tag);
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
