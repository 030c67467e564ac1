// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for what a decoder is told wrongly: each format's packets and cookie, as parsers hand them over, must
// come out as another program decodes the same file.
#include "platform/desktop/AudioDecoder.h"
#include "platform/desktop/AudioQueueBuffers.h"
#include "platform/desktop/parsers/FittedFileStreams.h"
#include "tests/support/Tones.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
}

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstring>

namespace zib::test {
namespace {

using namespace audioformat;

struct Coding {
    const char* name;
    const char* encoding;
    const char* extension;
    AudioStreamDescription format;
    int cookieFrom; ///< where in what the container holds for the decoder the cookie begins
};

constexpr Coding kCodings[] = {
    {"AAC", "-c:a aac", "m4a", {44100, Aac, 0, 0, 1024, 0, 2, 0, 0}, 0},
    {"Apple Lossless",
     "-c:a alac -sample_fmt s16p",
     "m4a",
     {44100, AppleLossless, 0, 0, 4096, 0, 2, 0, 0},
     12},
    {"Apple Lossless of 24 bits",
     "-c:a alac -sample_fmt s32p",
     "m4a",
     {44100, AppleLossless, 0, 0, 4096, 0, 2, 0, 0},
     12},
    {"FLAC", "-c:a flac", "flac", {44100, Flac, 0, 0, 4608, 0, 2, 0, 0}, 0},
    {"Vorbis", "-c:a libvorbis", "mkv", {44100, Vorbis, 0, 0, 0, 0, 2, 0, 0}, 1},
    {"Opus", "-c:a libopus -ar 48000", "mkv", {48000, Opus, 0, 0, 960, 0, 2, 0, 0}, 0},
    {"Opus of 40 ms",
     "-c:a libopus -ar 48000 -frame_duration 40",
     "mkv",
     {48000, Opus, 0, 0, 1920, 0, 2, 0, 0},
     0},
    {"Opus of 60 ms",
     "-c:a libopus -ar 48000 -frame_duration 60",
     "mkv",
     {48000, Opus, 0, 0, 2880, 0, 2, 0, 0},
     0},
    {"MP3", "-c:a libmp3lame -q:a 4", "mkv", {44100, MpegLayer3, 0, 0, 1152, 0, 2, 0, 0}, 0},
    {"mu-law", "-c:a pcm_mulaw", "wav", {44100, MuLaw, 0, 2, 1, 2, 2, 8, 0}, 0},
    {"A-law", "-c:a pcm_alaw", "wav", {44100, ALaw, 0, 2, 1, 2, 2, 8, 0}, 0},
    {"IMA 4:1", "-c:a adpcm_ima_qt -ar 44100", "aifc", {44100, Ima4, 0, 68, 64, 0, 2, 0, 0}, 0},
};

/// The cookie and the packets, as another demuxer finds them.
struct Demuxed {
    QByteArray cookie;
    QByteArray bytes;
    std::vector<AudioPacketDescription> packets;
};

Demuxed demux(const QString& path)
{
    Demuxed found;
    AVFormatContext* file = nullptr;
    if (avformat_open_input(&file, path.toUtf8().constData(), nullptr, nullptr) < 0)
        return found;
    avformat_find_stream_info(file, nullptr);
    const AVCodecParameters& parameters = *file->streams[0]->codecpar;
    found.cookie = QByteArray(reinterpret_cast<const char*>(parameters.extradata), parameters.extradata_size);
    AVPacket* packet = av_packet_alloc();
    for (; av_read_frame(file, packet) >= 0; av_packet_unref(packet)) {
        found.packets.push_back({found.bytes.size(), 0, static_cast<std::uint32_t>(packet->size)});
        found.bytes.append(reinterpret_cast<const char*>(packet->data), packet->size);
    }
    av_packet_free(&packet);
    avformat_close_input(&file);
    return found;
}

/// The samples that the packets hold, as the queue would take and decode them.
std::vector<float> decode(const Coding& coding, const Demuxed& song)
{
    EXPECT_TRUE(PacketDecoder::canDecode(coding.format));
    PacketDecoder decoder(coding.format);
    decoder.setCookie(std::as_bytes(std::span(song.cookie.begin(), song.cookie.end()))
                          .subspan(static_cast<std::size_t>(coding.cookieFrom)));
    FrameConverter converter;
    std::vector<float> samples;
    const auto receive = [&](const AVFrame& frame) { converter.convert(frame, samples); };

    AudioQueueBuffers buffers(coding.format);
    AudioQueueBuffer& buffer = buffers.allocate(static_cast<std::uint32_t>(song.bytes.size()));
    std::memcpy(buffer.data, song.bytes.constData(), static_cast<std::size_t>(song.bytes.size()));
    buffer.byteSize = buffer.capacity;
    const bool constant = coding.format.bytesPerPacket > 0;
    EXPECT_TRUE(buffers.enqueue(buffer, constant ? std::span<const AudioPacketDescription>() : song.packets));
    std::vector<std::byte> packet;
    while (buffers.takePacket(packet))
        decoder.decode(packet, receive);
    decoder.finish(receive);
    return samples;
}

QString encode(const Coding& coding, const QTemporaryDir& folder)
{
    const QString path = folder.filePath(QStringLiteral("song.") + QLatin1String(coding.extension));
    QStringList arguments{
        QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
        QStringLiteral("aevalsrc=exprs='0.6*(random(0)-0.5)|0.4*sin(2000*t*t)':d=2:s=44100")};
    arguments += QString::fromLatin1(coding.encoding).split(QLatin1Char(' '));
    ffmpeg(arguments << path);
    return path;
}

/// The same song, each packet so many times longer by a byte.
Demuxed lengthened(const Demuxed& song, std::uint32_t formatId, int times)
{
    Demuxed longer{song.cookie, {}, {}};
    const auto bytes = std::as_bytes(std::span(song.bytes.begin(), song.bytes.end()));
    for (const AudioPacketDescription& packet : song.packets) {
        const auto own = bytes.subspan(static_cast<std::size_t>(packet.startOffset), packet.dataByteSize);
        std::vector<std::byte> made(own.begin(), own.end());
        for (int i = 0; i < times; ++i)
            made = lengthenedPacket(formatId, made);
        EXPECT_EQ(made.size(), own.size() + static_cast<std::size_t>(times));
        longer.packets.push_back({longer.bytes.size(), 0, static_cast<std::uint32_t>(made.size())});
        longer.bytes.append(reinterpret_cast<const char*>(made.data()), std::ssize(made));
    }
    return longer;
}

TEST(PacketDecoderTest, DecodesWhatAnotherProgramDoes)
{
    const QTemporaryDir folder;
    for (const Coding& coding : kCodings) {
        SCOPED_TRACE(coding.name);
        const QString path = encode(coding, folder);
        const auto decoded = decode(coding, demux(path));

        const QByteArray expected =
            ffmpeg({QStringLiteral("-flags2"), QStringLiteral("+skip_manual"), QStringLiteral("-i"), path,
                    QStringLiteral("-f"), QStringLiteral("f32le"), QStringLiteral("-")});
        ASSERT_EQ(decoded.size() * sizeof(float), static_cast<std::size_t>(expected.size()));
        ASSERT_GE(decoded.size(), 2 * 2 * 44100U);
        for (std::size_t i = 0; i < decoded.size(); ++i) {
            float sample = 0;
            std::memcpy(&sample, expected.constData() + i * sizeof(float), sizeof(float));
            ASSERT_NEAR(decoded[i], sample, 1e-5) << i;
        }
    }
}

TEST(PacketDecoderTest, APacketThatWasLengthenedSoundsTheSame)
{
    const QTemporaryDir folder;
    for (const Coding& coding : kCodings) {
        if (coding.format.bytesPerPacket > 0)
            continue;
        SCOPED_TRACE(coding.name);
        const Demuxed song = demux(encode(coding, folder));
        const auto decoded = decode(coding, song);
        ASSERT_GE(decoded.size(), 2 * 2 * 44100U);
        EXPECT_EQ(decode(coding, lengthened(song, coding.format.formatId, 1)), decoded);
        if (coding.format.formatId == Opus) { // whose padding has a length of its own
            EXPECT_EQ(decode(coding, lengthened(song, Opus, 300)), decoded);
        }
    }
}

} // namespace
} // namespace zib::test
