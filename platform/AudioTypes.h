// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>

namespace zib {

/// A platform result code: 0 is success, others are often four characters, as in 'stop'.
using AudioStatus = std::int32_t;
inline constexpr AudioStatus kAudioOk = 0;

/// The code of four characters, the first in the most significant byte.
constexpr std::uint32_t fourCharacters(const char (&text)[5])
{
    std::uint32_t code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<unsigned char>(text[i]);
    return code;
}

/// The answer of AudioQueue::currentTime while the queue is not running.
inline constexpr auto kAudioQueueStopped = static_cast<AudioStatus>(fourCharacters("stop"));

namespace audioformat {
inline constexpr std::uint32_t LinearPcm = fourCharacters("lpcm");
inline constexpr std::uint32_t MpegLayer1 = fourCharacters(".mp1");
inline constexpr std::uint32_t MpegLayer2 = fourCharacters(".mp2");
inline constexpr std::uint32_t MpegLayer3 = fourCharacters(".mp3");
inline constexpr std::uint32_t Aac = fourCharacters("aac ");
inline constexpr std::uint32_t HeAac = fourCharacters("aach");
inline constexpr std::uint32_t AppleLossless = fourCharacters("alac");
inline constexpr std::uint32_t MuLaw = fourCharacters("ulaw");
inline constexpr std::uint32_t ALaw = fourCharacters("alaw");
inline constexpr std::uint32_t Ima4 = fourCharacters("ima4"); ///< packets of 34 bytes a channel, 64 frames
inline constexpr std::uint32_t Flac = fourCharacters("flac");
inline constexpr std::uint32_t Vorbis = fourCharacters("vorb");
inline constexpr std::uint32_t Opus = fourCharacters("opus");

// Flags of linear PCM.
inline constexpr std::uint32_t IsFloat = 1;
inline constexpr std::uint32_t IsBigEndian = 2;
inline constexpr std::uint32_t IsSignedInteger = 4;
inline constexpr std::uint32_t IsPacked = 8;
} // namespace audioformat

/// Shape of an audio stream. A packet is the smallest unit that can be decoded, a frame one sample of each
/// channel.
struct AudioStreamDescription {
    double sampleRate = 0; ///< frames a second; 0 while unknown
    std::uint32_t formatId = 0;
    std::uint32_t formatFlags = 0;
    std::uint32_t bytesPerPacket = 0; ///< 0 when it varies
    std::uint32_t framesPerPacket = 0;
    std::uint32_t bytesPerFrame = 0; ///< 0 for compressed formats
    std::uint32_t channelsPerFrame = 0;
    std::uint32_t bitsPerChannel = 0; ///< 0 for compressed formats
    std::uint32_t reserved = 0;

    friend bool operator==(const AudioStreamDescription&, const AudioStreamDescription&) = default;
};
static_assert(sizeof(AudioStreamDescription) == 40);

/// One way to read a stream that can be decoded in several, such as HE-AAC over plain AAC.
struct AudioFormatListItem {
    AudioStreamDescription description;
    std::uint32_t channelLayoutTag = 0;
    std::uint32_t reserved = 0;
};
static_assert(sizeof(AudioFormatListItem) == 48);

/// Where one packet stands in the bytes that it came with.
struct AudioPacketDescription {
    std::int64_t startOffset = 0;
    std::uint32_t variableFramesInPacket = 0; ///< 0 when every packet has the format's number of frames
    std::uint32_t dataByteSize = 0;
};
static_assert(sizeof(AudioPacketDescription) == 16);

} // namespace zib
