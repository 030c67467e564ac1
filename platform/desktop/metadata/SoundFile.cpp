// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/metadata/SoundFile.h"

#include <taglib/aifffile.h>
#include <taglib/apefile.h>
#include <taglib/asffile.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/mp4file.h>
#include <taglib/mpcfile.h>
#include <taglib/mpegfile.h>
#include <taglib/oggflacfile.h>
#include <taglib/opusfile.h>
#include <taglib/speexfile.h>
#include <taglib/trueaudiofile.h>
#include <taglib/vorbisfile.h>
#include <taglib/wavfile.h>
#include <taglib/wavpackfile.h>

namespace zib {

namespace {

using Style = TagLib::AudioProperties::ReadStyle;
using FilePointer = std::unique_ptr<TagLib::File>;

template <typename File>
FilePointer opened(TagLib::IOStream& stream, Style style)
{
    return std::make_unique<File>(&stream, true, style);
}

template <typename File>
FilePointer openedWithId3(TagLib::IOStream& stream, Style style)
{
    return std::make_unique<File>(&stream, TagLib::ID3v2::FrameFactory::instance(), true, style);
}

/// What bytes, at which place of a file, make it a file of that kind.
struct Kind {
    std::size_t offset;
    std::string_view magic;
    FilePointer (*open)(TagLib::IOStream&, Style);
};

using namespace std::string_view_literals;

// The first page of an Ogg file is one packet of one segment, so the codec's name stands at byte 28.
const Kind kinds[] = {
    {0, "fLaC"sv, openedWithId3<TagLib::FLAC::File>},
    {28, "OpusHead"sv, opened<TagLib::Ogg::Opus::File>},
    {28, "\x01vorbis"sv, opened<TagLib::Ogg::Vorbis::File>},
    {28,
     "\x7f"
     "FLAC"sv,
     opened<TagLib::Ogg::FLAC::File>},
    {28, "Speex   "sv, opened<TagLib::Ogg::Speex::File>},
    {4, "ftyp"sv, opened<TagLib::MP4::File>},
    {8, "WAVE"sv, opened<TagLib::RIFF::WAV::File>},
    {8, "AIFF"sv, opened<TagLib::RIFF::AIFF::File>},
    {8, "AIFC"sv, opened<TagLib::RIFF::AIFF::File>},
    {0, "MAC "sv, opened<TagLib::APE::File>},
    {0, "wvPk"sv, opened<TagLib::WavPack::File>},
    {0, "TTA1"sv, opened<TagLib::TrueAudio::File>},
    {0, "MPCK"sv, opened<TagLib::MPC::File>},
    {0, "MP+"sv, opened<TagLib::MPC::File>},
    {0, "\x30\x26\xb2\x75\x8e\x66\xcf\x11"sv, opened<TagLib::ASF::File>},
    {0, "ID3"sv, openedWithId3<TagLib::MPEG::File>},
};

unsigned byteAt(std::string_view bytes, std::size_t place)
{
    return place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0;
}

bool isFrameSync(std::string_view bytes, std::size_t place)
{
    return byteAt(bytes, place) == 0xff && (byteAt(bytes, place + 1) & 0xe0) == 0xe0;
}

bool isAdts(std::string_view bytes)
{
    return byteAt(bytes, 0) == 0xff && (byteAt(bytes, 1) & 0xf6) == 0xf0; // "layer 0", which MPEG audio lacks
}

/// MPEG audio may begin with a few bytes that are left of what it was cut from.
bool beginsAsMpegAudio(std::string_view bytes)
{
    for (std::size_t place = 0; place + 1 < bytes.size(); ++place)
        if (isFrameSync(bytes, place) && (byteAt(bytes, place + 1) & 0x06) != 0)
            return true;
    return false;
}

} // namespace

std::string_view startOf(TagLib::IOStream& stream, char (&buffer)[64])
{
    stream.seek(0);
    const TagLib::ByteVector start = stream.readBlock(sizeof buffer);
    std::copy(start.begin(), start.end(), buffer);
    stream.seek(0);
    return {buffer, start.size()};
}

bool beginsAsUntaggedSound(std::string_view start)
{
    return isAdts(start) || start.starts_with("caff");
}

std::unique_ptr<TagLib::File> openSoundFile(TagLib::IOStream& stream, Style style)
{
    char buffer[64];
    const std::string_view start = startOf(stream, buffer);
    for (const Kind& kind : kinds)
        if (start.size() > kind.offset && start.substr(kind.offset).starts_with(kind.magic))
            return kind.open(stream, style);
    if (!beginsAsUntaggedSound(start) && beginsAsMpegAudio(start))
        return openedWithId3<TagLib::MPEG::File>(stream, style);
    return nullptr;
}

} // namespace zib
