// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SongPictures.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <taglib/aifffile.h>
#include <taglib/apetag.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/fileref.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/rifffile.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

#include <algorithm>

namespace zib {

namespace {

using TagLib::ByteVector;

QByteArray bytesOf(const ByteVector& data)
{
    return data.size() > largestPicture ? QByteArray() : QByteArray(data.data(), qsizetype(data.size()));
}

QByteArray pictureIn(const TagLib::ID3v2::Tag* tag)
{
    using TagLib::ID3v2::AttachedPictureFrame;
    if (tag == nullptr)
        return {};
    QByteArray picture;
    for (const auto* frame : tag->frameListMap()["APIC"]) {
        const auto* attached = dynamic_cast<const AttachedPictureFrame*>(frame);
        if (attached == nullptr)
            continue;
        const bool front = attached->type() == AttachedPictureFrame::FrontCover;
        if (picture.isEmpty() || front)
            picture = bytesOf(attached->picture());
        if (front && !picture.isEmpty())
            break;
    }
    return picture;
}

QByteArray pictureIn(const TagLib::List<TagLib::FLAC::Picture*>& pictures)
{
    QByteArray found;
    for (const auto* picture : pictures) {
        const bool front = picture->type() == TagLib::FLAC::Picture::FrontCover;
        if (found.isEmpty() || front)
            found = bytesOf(picture->data());
        if (front && !found.isEmpty())
            break;
    }
    return found;
}

QByteArray pictureIn(const TagLib::MP4::Tag* tag)
{
    if (tag == nullptr || !tag->contains("covr"))
        return {};
    for (const auto& art : tag->item("covr").toCoverArtList())
        return bytesOf(art.data());
    return {};
}

QByteArray contentOf(const QFileInfo& info)
{
    QFile file(info.filePath());
    if (!info.isFile() || info.size() > largestPicture || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.read(largestPicture);
    return pictureType(bytes).isEmpty() ? QByteArray() : bytes;
}

} // namespace

QByteArray pictureType(const QByteArray& bytes)
{
    if (bytes.startsWith("\xff\xd8\xff"))
        return "image/jpeg";
    if (bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return "image/png";
    if (bytes.startsWith("GIF8"))
        return "image/gif";
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP")
        return "image/webp";
    return {};
}

QByteArray embeddedPicture(const QByteArray& path)
{
    const TagLib::FileRef reference(path.constData(), false);
    return embeddedPicture(reference.isNull() ? nullptr : reference.file());
}

QByteArray embeddedPicture(TagLib::File* file)
{
    QByteArray picture;
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(file))
        picture = pictureIn(mpeg->ID3v2Tag());
    else if (auto* wave = dynamic_cast<TagLib::RIFF::WAV::File*>(file))
        picture = pictureIn(wave->ID3v2Tag());
    else if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(file))
        picture = pictureIn(aiff->tag());
    else if (auto* mp4 = dynamic_cast<TagLib::MP4::File*>(file))
        picture = pictureIn(mp4->tag());
    else if (auto* flac = dynamic_cast<TagLib::FLAC::File*>(file))
        picture = pictureIn(flac->pictureList());
    else if (auto* xiph = file ? dynamic_cast<TagLib::Ogg::XiphComment*>(file->tag()) : nullptr)
        picture = pictureIn(xiph->pictureList());
    return pictureType(picture).isEmpty() ? QByteArray() : picture;
}

QByteArray pictureBeside(const QByteArray& path, const QByteArray& topmostFolder)
{
    static const QStringList names{QStringLiteral("cover"), QStringLiteral("folder"), QStringLiteral("front"),
                                   QStringLiteral("album"), QStringLiteral("artwork")};
    const QDir folder = QFileInfo(QFile::decodeName(path)).dir();
    const auto pictures = folder.entryInfoList({QStringLiteral("*.jpg"), QStringLiteral("*.jpeg"),
                                                QStringLiteral("*.png"), QStringLiteral("*.webp")},
                                               QDir::Files | QDir::Readable, QDir::Name);
    for (const QString& name : names)
        for (const QFileInfo& picture : pictures)
            if (picture.completeBaseName().compare(name, Qt::CaseInsensitive) == 0)
                if (const QByteArray bytes = contentOf(picture); !bytes.isEmpty())
                    return bytes;
    const bool topmost = folder == QDir(QFile::decodeName(topmostFolder));
    return pictures.size() == 1 && !topmost ? contentOf(pictures.first()) : QByteArray();
}

} // namespace zib
