// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/metadata/SoundTags.h"

#include "platform/desktop/metadata/SoundFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <taglib/tag.h>
#include <taglib/tfile.h>
#include <taglib/tfilestream.h>
#include <taglib/tpropertymap.h>

#include <cmath>

namespace zib {

namespace {

constexpr qsizetype longestText = 1000;
constexpr int mostAuthors = 32;
constexpr int largestNumber = 99999;
constexpr double longestSound = 1e8; // seconds

QString fromTag(const TagLib::String& text)
{
    const TagLib::String head = text.size() > longestText ? text.substr(0, longestText) : text;
    return singleLine(QString::fromUtf8(head.toCString(true)));
}

QStringList authorsOf(const TagLib::Tag& tag, const TagLib::PropertyMap& properties)
{
    QStringList authors;
    const auto add = [&authors](const TagLib::String& name) {
        const QString author = fromTag(name);
        if (!author.isEmpty() && authors.size() < mostAuthors)
            authors.append(author);
    };
    for (const TagLib::String& name : properties["ARTIST"])
        add(name);
    if (authors.isEmpty())
        add(tag.artist());
    return authors;
}

std::optional<int> numberOf(unsigned number)
{
    if (number == 0 || number > largestNumber)
        return std::nullopt;
    return int(number);
}

/// The tag is a union of all that a file has, but for WAVE files, whose own kind is among the properties
/// only; the properties are those of one kind of tag.
void addTags(const TagLib::Tag& tag, const TagLib::PropertyMap& properties, FileAttributes& attributes)
{
    const auto text = [&properties](const TagLib::String& value, const char* key) {
        return fromTag(value.isEmpty() && properties.contains(key) ? properties[key].toString() : value);
    };
    const auto number = [&properties](unsigned value, const char* key) {
        return numberOf(value == 0 && properties.contains(key) ? unsigned(properties[key].toString().toInt())
                                                               : value);
    };
    attributes.authors = authorsOf(tag, properties);
    attributes.album = text(tag.album(), "ALBUM");
    attributes.title = text(tag.title(), "TITLE");
    attributes.musicalGenre = text(tag.genre(), "GENRE");
    attributes.recordingYear = number(tag.year(), "DATE");
    attributes.audioTrackNumber = number(tag.track(), "TRACKNUMBER");
}

} // namespace

QString singleLine(QString text)
{
    text.truncate(longestText);
    for (QChar& character : text) {
        const bool isByteOrderMark = character == QChar::ByteOrderMark; // which decoders drop
        if (character.category() == QChar::Other_Control || isByteOrderMark || character.unicode() >= 0xfffe)
            character = u' ';
    }
    if (!text.isValidUtf16())
        text = QString::fromUtf8(text.toUtf8()); // half pairs become U+FFFD
    return text.simplified();
}

FileAttributes attributesOfSound(TagLib::IOStream& stream)
{
    FileAttributes attributes;
    const auto file = openSoundFile(stream, TagLib::AudioProperties::Average);
    const auto* sound = file && file->isValid() ? file->audioProperties() : nullptr;
    if (sound == nullptr || sound->sampleRate() <= 0) {
        char buffer[64];
        if (beginsAsUntaggedSound(startOf(stream, buffer)))
            attributes.mediaTypes = {soundMedia};
        return attributes;
    }
    attributes.mediaTypes = {soundMedia};
    if (sound->lengthInMilliseconds() > 0)
        attributes.durationSeconds = sound->lengthInMilliseconds() / 1000.0;
    if (const TagLib::Tag* tag = file->tag())
        addTags(*tag, file->properties(), attributes);
    return attributes;
}

FileAttributes attributesOfSoundFile(const QByteArray& path)
{
    TagLib::FileStream stream(path.constData(), true);
    return stream.isOpen() ? attributesOfSound(stream) : FileAttributes();
}

QByteArray encodedAttributes(const FileAttributes& attributes)
{
    QJsonObject object;
    const auto text = [&object](const char* key, const QString& value) {
        if (!value.isEmpty())
            object.insert(QLatin1String(key), value);
    };
    const auto number = [&object](const char* key, const auto& value) {
        if (value)
            object.insert(QLatin1String(key), *value);
    };
    if (!attributes.mediaTypes.isEmpty())
        object.insert(QLatin1String("media"), QJsonArray::fromStringList(attributes.mediaTypes));
    if (!attributes.authors.isEmpty())
        object.insert(QLatin1String("authors"), QJsonArray::fromStringList(attributes.authors));
    text("album", attributes.album);
    text("title", attributes.title);
    text("genre", attributes.musicalGenre);
    number("year", attributes.recordingYear);
    number("seconds", attributes.durationSeconds);
    number("track", attributes.audioTrackNumber);
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

FileAttributes decodedAttributes(const QByteArray& line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    const auto text = [&object](const char* key) {
        return singleLine(object.value(QLatin1String(key)).toString());
    };
    const auto number = [&object](const char* key) {
        return numberOf(unsigned(object.value(QLatin1String(key)).toInt()));
    };
    FileAttributes attributes;
    if (object.value(QLatin1String("media")).toArray().contains(soundMedia))
        attributes.mediaTypes = {soundMedia};
    const QJsonArray authors = object.value(QLatin1String("authors")).toArray();
    for (const auto author : authors)
        attributes.authors.append(singleLine(author.toString()));
    attributes.album = text("album");
    attributes.title = text("title");
    attributes.musicalGenre = text("genre");
    attributes.recordingYear = number("year");
    attributes.audioTrackNumber = number("track");
    const double seconds = object.value(QLatin1String("seconds")).toDouble();
    if (std::isfinite(seconds) && seconds > 0 && seconds < longestSound)
        attributes.durationSeconds = seconds;
    return attributes;
}

} // namespace zib
