// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AudioTypes.h"

#include <memory>
#include <span>
#include <vector>

namespace zib {

/// What the bytes are probably; what they hold decides.
enum class AudioFileType : std::uint32_t {
    Mp3 = fourCharacters("MPG3"),
    Wave = fourCharacters("WAVE"),
    AifC = fourCharacters("AIFC"),
    Aiff = fourCharacters("AIFF"),
    M4a = fourCharacters("m4af"),
    Mpeg4 = fourCharacters("mp4f"),
    Caf = fourCharacters("caff"),
    AdtsAac = fourCharacters("adts"),
};

enum class AudioFileStreamProperty {
    DataFormat,
    FormatList,
    DataOffset,
    AudioDataByteCount,
    MagicCookie,
    ReadyToProducePackets,
};

class AudioFileStream;

/// Receives what a parser finds, from within parseBytes.
class AudioFileStreamClient {
  public:
    virtual ~AudioFileStreamClient() = default;
    /// The property can now be read. ReadyToProducePackets comes last, before the first packet.
    virtual void propertyFound(AudioFileStream&, AudioFileStreamProperty) {}
    /// Whole packets, valid during the call; bytes between those described are none. Formats whose packets
    /// all have the same size come without descriptions; then the bytes are a whole number of packets.
    virtual void packetsProduced(std::span<const std::byte> /*bytes*/, std::uint32_t /*packetCount*/,
                                 std::span<const AudioPacketDescription> /*descriptions*/)
    {
    }
};

/// An incremental parser of one audio file: it is fed bytes in pieces of any size and pushes properties and
/// packets. One thread at a time. It trusts no length in the bytes and keeps a bounded amount of them.
class AudioFileStream {
  public:
    virtual ~AudioFileStream() = default;

    /// @param discontinuous the bytes do not follow the previous ones; the parser looks for the next packet
    /// start. A reader sets it from ReadyToProducePackets or a break on until packets come, so bytes that
    /// come so marked before any packet do follow.
    /// @return a status other than 0 when the bytes can be no audio file that it knows.
    virtual AudioStatus parseBytes(std::span<const std::byte> bytes, bool discontinuous) = 0;

    // Properties; a status other than 0 when not known (yet).
    virtual AudioStatus dataFormat(AudioStreamDescription& format) const = 0;
    virtual AudioStatus formatList(std::vector<AudioFormatListItem>& formats) const = 0;
    /// The byte of the file at which the audio data begins.
    virtual AudioStatus dataOffset(std::int64_t& offset) const = 0;
    /// The bytes of audio data in the file, where its header tells.
    virtual AudioStatus audioDataByteCount(std::uint64_t& count) const = 0;
    /// A size in bytes that every packet of the stream is smaller than: whoever fills a buffer of this size
    /// and drops a packet that would fill it exactly never drops one for its size alone. At least 2048 where
    /// packets come without descriptions: there buffers of this size are filled by the byte, to 2048.
    virtual AudioStatus packetSizeUpperBound(std::uint32_t& bytes) const = 0;
    /// The largest packet, where the format's header tells.
    virtual AudioStatus maximumPacketSize(std::uint32_t& bytes) const = 0;
    /// What a decoder must be told beside the format. AAC: the AudioSpecificConfig; Apple Lossless: its
    /// configuration of 24 bytes (36 with a channel layout), without box headers; FLAC: the 34 bytes of the
    /// STREAMINFO block; Vorbis: its three header packets, and before them the sizes of the first two (each
    /// as many bytes of 255 as go into it, and the rest), nothing else; Opus: the packet "OpusHead".
    virtual AudioStatus magicCookie(std::vector<std::byte>& cookie) const = 0;

    /// Where a packet begins, in bytes from the data offset, or some way before it where a parser tells by
    /// what comes then which packets to leave out. The next bytes fed are expected to be from there on.
    /// @param estimated whether the place was computed from an average and nothing there tells the packet.
    virtual AudioStatus seek(std::int64_t packet, std::int64_t& byteOffset, bool& estimated) = 0;

    /// No call but the destructor may follow.
    virtual AudioStatus close() = 0;
};

/// Makes parsers. Any thread.
class AudioFileStreams {
  public:
    virtual ~AudioFileStreams() = default;
    /// Null, with the status, when no parser can be opened. The client must outlive the parser.
    [[nodiscard]] virtual std::unique_ptr<AudioFileStream>
    open(AudioFileType hint, AudioFileStreamClient& client, AudioStatus& status) = 0;
};

} // namespace zib
