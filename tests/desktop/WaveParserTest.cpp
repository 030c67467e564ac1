// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for samples lost or split in WAVE files, and for trust in the lengths that such files tell.
#include "tests/desktop/AudioFiles.h"

namespace zib {
namespace {

using namespace audiofiles;

constexpr int kPcm = 1;
constexpr int kFloat = 3;

QByteArray format16()
{
    return chunk("fmt ", waveFormat(kPcm, 2, 44100, 16));
}

QByteArray extensible(int coding, int channels, int bits)
{
    return chunk("fmt ", waveFormat(0xfffe, channels, 48000, bits) + littleEndian(22, 2) +
                             littleEndian(static_cast<quint64>(bits), 2) + littleEndian(0, 4) +
                             littleEndian(static_cast<quint64>(coding), 2) + noise(14));
}

TEST(WaveParserTest, FindsTheSamplesAndNothingElse)
{
    const QByteArray audio = noise(40'000);
    struct Case {
        const char* name;
        QByteArray before; ///< the data chunk's own header included
        QByteArray after;
    };
    const QByteArray data = "data" + littleEndian(40'000, 4);
    const Case cases[] = {
        {"plain", waveFile(format16()) + data, {}},
        {"after a tag", id3Tag(2000) + waveFile(format16()) + data, {}},
        {"chunks around", waveFile(chunk("LIST", noise(31)) + format16() + chunk("JUNK", noise(5000))) + data,
         chunk("LIST", noise(400))},
        {"long format chunk", waveFile(chunk("fmt ", waveFormat(kPcm, 2, 44100, 16) + noise(3))) + data, {}},
        {"no length", waveFile(format16()) + "data" + littleEndian(0xffffffff, 4), {}},
        {"length never filled in", waveFile(format16()) + "data" + littleEndian(0, 4), {}},
        {"length beyond the end", waveFile(format16()) + "data" + littleEndian(0x7ffffffe, 4), {}},
        {"large-file form",
         "RF64" + waveFile(chunk("ds64", noise(28)) + format16()).mid(4) + "data" +
             littleEndian(0xffffffff, 4),
         {}},
    };
    for (const Case& one : cases) {
        for (const qsizetype piece : {1, 7, 2048, 10'000'000}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            const Parsing parsing(one.before + audio + one.after, piece);
            EXPECT_EQ(parsing.status, kAudioOk);
            // The end is only known where the length is: up to a piece may still wait to be filled.
            EXPECT_EQ(parsing.listener.constantBytes, audio.first(parsing.listener.constantBytes.size()));
            EXPECT_GT(parsing.listener.constantBytes.size(), 40'000 - 2048);
            if (QByteArrayView(one.before).endsWith(littleEndian(40'000, 4))) {
                EXPECT_EQ(parsing.listener.constantBytes.size(), 40'000);
                EXPECT_EQ(parsing.listener.audioDataByteCount, 40'000U);
            }
            EXPECT_EQ(parsing.listener.dataOffset, one.before.size());
        }
    }
}

TEST(WaveParserTest, TellsTheFormatOfEveryKind)
{
    using namespace audioformat;
    struct Case {
        const char* name;
        QByteArray format;
        std::uint32_t flags;
        std::uint32_t channels;
        std::uint32_t bits;
    };
    const Case cases[] = {
        {"8 bit", chunk("fmt ", waveFormat(kPcm, 1, 48000, 8)), IsPacked, 1, 8},
        {"16 bit", chunk("fmt ", waveFormat(kPcm, 2, 48000, 16)), IsPacked | IsSignedInteger, 2, 16},
        {"24 bit", chunk("fmt ", waveFormat(kPcm, 2, 48000, 24)), IsPacked | IsSignedInteger, 2, 24},
        {"20 bit in 24", chunk("fmt ", waveFormat(kPcm, 2, 48000, 20)), IsPacked | IsSignedInteger, 2, 24},
        {"float", chunk("fmt ", waveFormat(kFloat, 2, 48000, 32)), IsPacked | IsFloat, 2, 32},
        {"extensible", extensible(kPcm, 6, 24), IsPacked | IsSignedInteger, 6, 24},
        {"extensible float", extensible(kFloat, 1, 32), IsPacked | IsFloat, 1, 32},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const QByteArray audio = noise(7200); // whole packets of every kind here
        const Parsing parsing(waveFile(one.format + chunk("data", audio)));
        const std::uint32_t frameBytes = one.channels * one.bits / 8;
        EXPECT_EQ(parsing.listener.format, (AudioStreamDescription{.sampleRate = 48000,
                                                                   .formatId = LinearPcm,
                                                                   .formatFlags = one.flags,
                                                                   .bytesPerPacket = frameBytes,
                                                                   .framesPerPacket = 1,
                                                                   .bytesPerFrame = frameBytes,
                                                                   .channelsPerFrame = one.channels,
                                                                   .bitsPerChannel = one.bits}));
        EXPECT_EQ(parsing.listener.constantBytes, audio);
        EXPECT_GE(parsing.listener.bound, 2048U) << "readers fill such buffers to 2048 bytes";
    }
}

TEST(WaveParserTest, TakesSamplesOnACurve)
{
    const QByteArray audio = noise(7200);
    for (const auto& [coding, formatId] : {std::pair{6, audioformat::ALaw}, {7, audioformat::MuLaw}}) {
        const Parsing parsing(waveFile(chunk("fmt ", waveFormat(coding, 2, 8000, 8) + littleEndian(0, 2)) +
                                       chunk("data", audio)));
        EXPECT_EQ(parsing.listener.format, (AudioStreamDescription{.sampleRate = 8000,
                                                                   .formatId = formatId,
                                                                   .bytesPerPacket = 2,
                                                                   .framesPerPacket = 1,
                                                                   .channelsPerFrame = 2}));
        EXPECT_EQ(parsing.listener.constantBytes, audio);
    }
}

TEST(WaveParserTest, RefusesWhatItCannotPlay)
{
    const QByteArray data = chunk("data", noise(400));
    const QByteArray files[] = {
        waveFile(data + format16()),                                // audio before its format
        waveFile(chunk("fmt ", noise(8)) + data),                   // too short
        waveFile(chunk("fmt ", waveFormat(2, 2, 44100, 4)) + data), // compressed
        waveFile(chunk("fmt ", waveFormat(kPcm, 0, 44100, 16)) + data),
        waveFile(chunk("fmt ", waveFormat(kPcm, 2000, 44100, 16)) + data),
        waveFile(chunk("fmt ", waveFormat(kPcm, 2, 0, 16)) + data),
        waveFile(chunk("fmt ", waveFormat(kPcm, 2, 44100, 0)) + data),
        waveFile(chunk("fmt ", waveFormat(kFloat, 2, 44100, 16)) + data),
    };
    for (const QByteArray& file : files) {
        const Parsing parsing(file);
        EXPECT_NE(parsing.status, kAudioOk);
        EXPECT_TRUE(parsing.listener.found.empty());
    }
}

TEST(WaveParserTest, SeeksExactlyAndStillKnowsTheEnd)
{
    const QByteArray audio = noise(60'000);
    const QByteArray after = chunk("LIST", noise(500));
    Parsing parsing(waveFile(chunk("fmt ", waveFormat(kPcm, 2, 44100, 24)) + chunk("data", audio)) + after);
    ASSERT_EQ(parsing.listener.constantBytes, audio);
    for (const qint64 packet : {0, 1, 5000, 9999, 12'345}) {
        std::int64_t offset = -1;
        bool estimated = true;
        ASSERT_EQ(parsing.stream->seek(packet, offset, estimated), kAudioOk);
        EXPECT_EQ(offset, qMin(packet, qint64{9999}) * 6) << "beyond the end is the end";
        EXPECT_FALSE(estimated);
        parsing.listener.constantBytes.clear();
        EXPECT_EQ(feed(*parsing.stream, audio.mid(offset) + after, 1000, true), kAudioOk);
        EXPECT_EQ(parsing.listener.constantBytes, audio.mid(offset));
    }
    std::int64_t offset = 0;
    bool estimated = false;
    EXPECT_NE(parsing.stream->seek(-1, offset, estimated), kAudioOk);
}

} // namespace
} // namespace zib
