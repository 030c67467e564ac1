// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/TagCovers.h"

#include "platform/TagApi.h"

#include <taglib/aifffile.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/trueaudiofile.h>
#include <taglib/wavfile.h>
#include <taglib/xiphcomment.h>

#include <memory>

namespace zib {

namespace {

using Id3Picture = TagLib::ID3v2::AttachedPictureFrame;
using FlacPicture = TagLib::FLAC::Picture;

QByteArray bounded(const TagLib::ByteVector& bytes)
{
    if (bytes.size() > TagAPI::maximumCoverBytes)
        return {};
    return {bytes.data(), qsizetype(bytes.size())};
}

TagLib::ByteVector toBytes(const QByteArray& picture)
{
    return {picture.constData(), static_cast<unsigned>(picture.size())};
}

bool isPng(const QByteArray& picture)
{
    return picture.startsWith("\x89PNG");
}

const char* mimeType(const QByteArray& picture)
{
    return isPng(picture) ? "image/png" : "image/jpeg";
}

/// The front cover among pictures that tell their type, else the first; null when there are none.
template <typename Picture, typename List>
Picture* coverAmong(const List& pictures)
{
    Picture* first = nullptr;
    for (auto* const any : pictures) {
        auto* const picture = dynamic_cast<Picture*>(any);
        if (picture == nullptr)
            continue;
        if (picture->type() == Picture::FrontCover)
            return picture;
        if (first == nullptr)
            first = picture;
    }
    return first;
}

TagLib::ID3v2::Tag* id3Of(TagLib::File& file)
{
    if (auto* mpeg = dynamic_cast<TagLib::MPEG::File*>(&file))
        return mpeg->ID3v2Tag(true);
    if (auto* wave = dynamic_cast<TagLib::RIFF::WAV::File*>(&file))
        return wave->ID3v2Tag();
    if (auto* aiff = dynamic_cast<TagLib::RIFF::AIFF::File*>(&file))
        return aiff->tag();
    if (auto* trueAudio = dynamic_cast<TagLib::TrueAudio::File*>(&file))
        return trueAudio->ID3v2Tag(true);
    return nullptr;
}

/// A FLAC file and the comments of an Ogg file keep pictures in the same way.
template <typename Keeper>
void replaceIn(Keeper& keeper, const QByteArray& picture)
{
    if (auto* const old = coverAmong<FlacPicture>(keeper.pictureList()))
        keeper.removePicture(old, true);
    if (picture.isEmpty())
        return;
    auto added = std::make_unique<FlacPicture>();
    added->setType(FlacPicture::FrontCover);
    added->setMimeType(mimeType(picture));
    added->setData(toBytes(picture));
    keeper.addPicture(added.release()); // which owns it
}

void replaceIn(TagLib::ID3v2::Tag& tag, const QByteArray& picture)
{
    if (auto* const old = coverAmong<Id3Picture>(tag.frameList("APIC")))
        tag.removeFrame(old, true);
    if (picture.isEmpty())
        return;
    auto added = std::make_unique<Id3Picture>();
    added->setType(Id3Picture::FrontCover);
    added->setMimeType(mimeType(picture));
    added->setPicture(toBytes(picture));
    tag.addFrame(added.release()); // which owns it
}

constexpr const char* mp4Cover = "covr";

void replaceIn(TagLib::MP4::Tag& tag, const QByteArray& picture)
{
    using TagLib::MP4::CoverArt;
    TagLib::MP4::CoverArtList covers = tag.item(mp4Cover).toCoverArtList();
    if (!covers.isEmpty())
        covers.erase(covers.begin());
    if (!picture.isEmpty())
        covers.prepend(CoverArt(isPng(picture) ? CoverArt::PNG : CoverArt::JPEG, toBytes(picture)));
    if (covers.isEmpty())
        tag.removeItem(mp4Cover);
    else
        tag.setItem(mp4Cover, covers);
}

} // namespace

QByteArray coverOf(TagLib::File& file)
{
    const auto flacData = [](const FlacPicture* picture) {
        return picture != nullptr ? bounded(picture->data()) : QByteArray();
    };
    if (auto* const id3 = id3Of(file)) {
        const auto* const picture = coverAmong<Id3Picture>(id3->frameList("APIC"));
        return picture != nullptr ? bounded(picture->picture()) : QByteArray();
    }
    if (auto* const flac = dynamic_cast<TagLib::FLAC::File*>(&file))
        return flacData(coverAmong<FlacPicture>(flac->pictureList()));
    if (auto* const comment = dynamic_cast<TagLib::Ogg::XiphComment*>(file.tag()))
        return flacData(coverAmong<FlacPicture>(comment->pictureList()));
    if (auto* const mp4 = dynamic_cast<TagLib::MP4::File*>(&file); mp4 != nullptr && mp4->tag() != nullptr) {
        const TagLib::MP4::CoverArtList covers = mp4->tag()->item(mp4Cover).toCoverArtList();
        return covers.isEmpty() ? QByteArray() : bounded(covers.front().data());
    }
    return {};
}

void replaceCover(TagLib::File& file, const QByteArray& picture)
{
    if (auto* const id3 = id3Of(file))
        replaceIn(*id3, picture);
    else if (auto* const flac = dynamic_cast<TagLib::FLAC::File*>(&file))
        replaceIn(*flac, picture);
    else if (auto* const comment = dynamic_cast<TagLib::Ogg::XiphComment*>(file.tag()))
        replaceIn(*comment, picture);
    else if (auto* const mp4 = dynamic_cast<TagLib::MP4::File*>(&file);
             mp4 != nullptr && mp4->tag() != nullptr)
        replaceIn(*mp4->tag(), picture);
}

} // namespace zib
