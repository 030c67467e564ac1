// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/parsers/AudioFileStreamParsers.h"

#include <QByteArray>
#include <QList>

#include <gtest/gtest.h>
#include <optional>

namespace zib::audiofiles {

inline QByteArray bigEndian32(quint32 value)
{
    QByteArray bytes(4, '\0');
    for (int i = 3; i >= 0; --i, value >>= 8)
        bytes[i] = static_cast<char>(value & 0xff);
    return bytes;
}

inline QByteArray littleEndian(quint64 value, int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i, value >>= 8)
        bytes += static_cast<char>(value & 0xff);
    return bytes;
}

/// A frame of layer III, version 1, 44.1 kHz, stereo: by the index of its bit rate (9 is 128 kbit/s), its
/// body filled so that no sync word is in it.
inline QByteArray mp3Frame(int rateIndex = 9, bool padded = false, char fill = 'x')
{
    constexpr int kRates[] = {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320};
    const int size = 144 * kRates[rateIndex] * 1000 / 44100 + (padded ? 1 : 0);
    QByteArray frame(size, fill);
    frame[0] = '\xff';
    frame[1] = '\xfb';
    frame[2] = static_cast<char>(rateIndex << 4 | (padded ? 2 : 0));
    frame[3] = '\x40';
    return frame;
}

/// The frame that tells of the following ones; "Xing", "Info" or "VBRI".
inline QByteArray infoFrame(const char* kind, quint32 packets, quint32 fileBytes, int rateIndex = 9)
{
    QByteArray frame = mp3Frame(rateIndex, false, '\0');
    const bool vbri = QByteArrayView(kind) == "VBRI";
    const QByteArray tag = vbri ? kind + QByteArray(6, '\0') + bigEndian32(fileBytes) + bigEndian32(packets)
                                : kind + bigEndian32(3) + bigEndian32(packets) + bigEndian32(fileBytes);
    return frame.replace(4 + 32, tag.size(), tag);
}

/// A tag whose body is full of frames, which must not be taken for the song.
inline QByteArray id3Tag(int bodyBytes, bool footer = false)
{
    const QByteArray frame = mp3Frame(5);
    QByteArray size;
    for (int shift = 21; shift >= 0; shift -= 7)
        size += static_cast<char>(bodyBytes >> shift & 0x7f);
    const QByteArray end = (footer ? QByteArray("\x04\x00\x10", 3) : QByteArray("\x04\x00\x00", 3)) + size;
    return "ID3" + end + frame.repeated(bodyBytes / static_cast<int>(frame.size()) + 1).left(bodyBytes) +
           (footer ? "3DI" + end : QByteArray());
}

inline QByteArray chunk(const char* name, const QByteArray& body, std::optional<quint32> size = {})
{
    return name + littleEndian(size.value_or(static_cast<quint32>(body.size())), 4) + body +
           (body.size() % 2 != 0 ? QByteArray(1, '\0') : QByteArray());
}

inline QByteArray waveFormat(int coding, int channels, int sampleRate, int bits)
{
    const int frameBytes = channels * ((bits + 7) / 8);
    return littleEndian(static_cast<quint64>(coding), 2) + littleEndian(static_cast<quint64>(channels), 2) +
           littleEndian(static_cast<quint64>(sampleRate), 4) +
           littleEndian(static_cast<quint64>(sampleRate) * static_cast<quint64>(frameBytes), 4) +
           littleEndian(static_cast<quint64>(frameBytes), 2) + littleEndian(static_cast<quint64>(bits), 2);
}

inline QByteArray waveFile(const QByteArray& chunks)
{
    return "RIFF" + littleEndian(static_cast<quint64>(chunks.size()) + 4, 4) + "WAVE" + chunks;
}

/// A frame of AAC-LC in ADTS around these raw data blocks; by default 44.1 kHz (index 4), stereo.
inline QByteArray adtsFrame(const QByteArray& blocks, int count = 1, const QByteArray& checks = {},
                            int rateIndex = 4, int channels = 2)
{
    const auto size = 7 + checks.size() + blocks.size();
    QByteArray header(7, '\xff');
    header[1] = checks.isEmpty() ? '\xf1' : '\xf0';
    header[2] = static_cast<char>(0x40 | rateIndex << 2 | channels >> 2);
    header[3] = static_cast<char>((channels & 3) << 6 | size >> 11);
    header[4] = static_cast<char>(size >> 3 & 0xff);
    header[5] = static_cast<char>((size & 7) << 5 | 0x1f);
    header[6] = static_cast<char>(0xfc | (count - 1));
    return header + checks + blocks;
}

/// Bytes that hold no sync word.
inline QByteArray noise(qsizetype bytes)
{
    QByteArray noise(bytes, Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes; ++i)
        noise[i] = static_cast<char>((i * 37 + i / 97) & 0x7f);
    return noise;
}

/// Everything that a parser said, checked as it is said for what every parser promises.
struct Listener : AudioFileStreamClient {
    void propertyFound(AudioFileStream& stream, AudioFileStreamProperty property) override
    {
        EXPECT_TRUE(found.empty() || found.back() != AudioFileStreamProperty::ReadyToProducePackets)
            << "a property after the last";
        found.push_back(property);
        AudioStatus status = kAudioOk;
        if (property == AudioFileStreamProperty::DataFormat)
            status = stream.dataFormat(format);
        else if (property == AudioFileStreamProperty::DataOffset)
            status = stream.dataOffset(dataOffset);
        else if (property == AudioFileStreamProperty::AudioDataByteCount)
            status = stream.audioDataByteCount(audioDataByteCount.emplace());
        else if (property == AudioFileStreamProperty::ReadyToProducePackets)
            status = stream.packetSizeUpperBound(bound);
        EXPECT_EQ(status, kAudioOk) << "told of, and not to be read";
    }
    void packetsProduced(std::span<const std::byte> produced, std::uint32_t packetCount,
                         std::span<const AudioPacketDescription> descriptions) override
    {
        ASSERT_FALSE(found.empty());
        EXPECT_EQ(found.back(), AudioFileStreamProperty::ReadyToProducePackets);
        const QByteArrayView view(reinterpret_cast<const char*>(produced.data()), std::ssize(produced));
        if (descriptions.empty()) {
            EXPECT_EQ(produced.size(), std::size_t{packetCount} * format.bytesPerPacket);
            constantBytes += view;
            return;
        }
        EXPECT_EQ(descriptions.size(), packetCount);
        for (const AudioPacketDescription& packet : descriptions) {
            ASSERT_GE(packet.startOffset, 0);
            ASSERT_LE(packet.startOffset + packet.dataByteSize, view.size());
            EXPECT_LT(packet.dataByteSize, bound);
            packets.append(view.sliced(packet.startOffset, packet.dataByteSize).toByteArray());
        }
    }
    [[nodiscard]] QByteArray allBytes() const { return packets.join() + constantBytes; }

    std::vector<AudioFileStreamProperty> found;
    AudioStreamDescription format;
    std::int64_t dataOffset = 0;
    std::optional<std::uint64_t> audioDataByteCount;
    std::uint32_t bound = 0;
    QList<QByteArray> packets;
    QByteArray constantBytes;
};

/// Feeds the bytes in pieces of that size; the flag goes with the first.
inline AudioStatus feed(AudioFileStream& stream, const QByteArray& bytes, qsizetype pieceBytes,
                        bool discontinuous = false)
{
    AudioStatus status = kAudioOk;
    for (qsizetype at = 0; at < bytes.size() && status == kAudioOk; at += pieceBytes) {
        const QByteArray piece =
            bytes.mid(at, pieceBytes); // its own memory, so that a sanitizer sees its end
        status = stream.parseBytes(
            std::as_bytes(std::span(piece.constData(), static_cast<std::size_t>(piece.size()))),
            discontinuous);
        discontinuous = false;
    }
    return status;
}

/// A file fed to a new parser.
struct Parsing {
    explicit Parsing(const QByteArray& file, qsizetype pieceBytes = 2048)
        : stream(AudioFileStreamParsers().open(AudioFileType::Mp3, listener, openStatus))
        , status(feed(*stream, file, pieceBytes))
    {
    }

    Listener listener;
    AudioStatus openStatus = kAudioOk;
    std::unique_ptr<AudioFileStream> stream;
    AudioStatus status;
};

} // namespace zib::audiofiles
