// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for samples lost, split or misread in AIFF and AIFF-C files, whatever their chunks' order and
// lengths.
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "tests/desktop/EncodedAudio.h"

namespace zib {
namespace {

using namespace audiofiles;

constexpr quint32 kFrames = 10'000; // of 16-bit stereo

QByteArray bigChunk(const char* name, const QByteArray& body, std::optional<quint32> size = {})
{
    return name + bigEndian32(size.value_or(static_cast<quint32>(body.size()))) + body +
           (body.size() % 2 != 0 ? QByteArray(1, '\0') : QByteArray());
}

QByteArray common(quint32 frames = kFrames, const char* coding = "", int channels = 2, int bits = 16)
{
    const QByteArray rate = QByteArray::fromHex("400eac44000000000000"); // 44100
    const QByteArray name = QByteArrayView(coding).isEmpty() ? QByteArray()
                                                             : QByteArray(coding) + "\x03"
                                                                                    "abc";
    return bigChunk("COMM", bigEndian32(static_cast<quint32>(channels)).mid(2) + bigEndian32(frames) +
                                bigEndian32(static_cast<quint32>(bits)).mid(2) + rate + name);
}

QByteArray sound(const QByteArray& audio, std::optional<quint32> size = {}, int gap = 0)
{
    return bigChunk(
        "SSND", bigEndian32(static_cast<quint32>(gap)) + bigEndian32(0) + QByteArray(gap, 'g') + audio, size);
}

QByteArray aiff(const QByteArray& chunks, const char* type = "AIFF")
{
    return bigChunk("FORM", type + chunks);
}

TEST(AiffParserTest, FindsTheSamplesAndNothingElse)
{
    const QByteArray audio = noise(kFrames * 4);
    const QByteArray text = bigChunk("NAME", noise(31)); // padded
    struct Case {
        const char* name;
        QByteArray file;
    };
    const Case cases[] = {
        {"plain", aiff(common() + sound(audio))},
        {"after a tag", id3Tag(2000) + aiff(common() + sound(audio))},
        {"chunks around", aiff(text + common() + text + sound(audio) + text)},
        {"a gap before the samples", aiff(common() + sound(audio, {}, 333) + text)},
        {"no length", aiff(common() + sound(audio, 0) + text)},
        {"neither length", aiff(common(0) + sound(audio, 0))},
        {"length beyond the end", aiff(common(0x7fffffff) + sound(audio, 0x7fffffff))},
        {"more in the chunk than frames", aiff(common() + sound(audio + noise(500)) + text)},
        {"the format last", aiff(text + sound(audio) + text + common() + text)},
        {"the format last, a gap", aiff(sound(audio + 'x', {}, 3) + common() + text)},
        {"compressible",
         aiff(bigChunk("FVER", bigEndian32(0xa2805140)) + common(kFrames, "NONE") + sound(audio), "AIFC")},
        {"two formats", aiff(common(5, "", 1, 8) + common() + sound(audio))},
    };
    for (const Case& one : cases) {
        for (const qsizetype piece : {1, 7, 2048, 10'000'000}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            const Parsing parsing(one.file, piece);
            EXPECT_EQ(parsing.status, kAudioOk);
            // The end is only known where a length is: up to a piece may still wait to be filled.
            EXPECT_GT(parsing.listener.constantBytes.size(), audio.size() - 2048);
            EXPECT_EQ(parsing.listener.constantBytes, audio.first(parsing.listener.constantBytes.size()));
            EXPECT_EQ(parsing.listener.dataOffset, one.file.indexOf(audio.first(100)));
        }
    }
    EXPECT_EQ(Parsing(cases[0].file).listener.audioDataByteCount, audio.size());
    EXPECT_EQ(Parsing(cases[4].file).listener.audioDataByteCount, audio.size()) << "by the frames alone";
}

TEST(AiffParserTest, TellsTheFormatOfEveryCoding)
{
    using namespace audioformat;
    struct Case {
        const char* coding;
        int bits;
        std::uint32_t formatId;
        std::uint32_t flags;
        std::uint32_t packetBytes;
    };
    const std::uint32_t big = IsPacked | IsSignedInteger | IsBigEndian;
    const Case cases[] = {
        {"NONE", 8, LinearPcm, big, 2},
        {"NONE", 20, LinearPcm, big, 6},
        {"twos", 16, LinearPcm, big, 4},
        {"sowt", 16, LinearPcm, IsPacked | IsSignedInteger, 4},
        {"in24", 16, LinearPcm, big, 6},
        {"in32", 32, LinearPcm, big, 8},
        {"raw ", 8, LinearPcm, IsPacked, 2},
        {"fl32", 16, LinearPcm, IsPacked | IsFloat | IsBigEndian, 8},
        {"FL64", 64, LinearPcm, IsPacked | IsFloat | IsBigEndian, 16},
        {"ulaw", 16, MuLaw, 0, 2},
        {"ALAW", 8, ALaw, 0, 2},
        {"ima4", 16, Ima4, 0, 68},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(testing::Message() << one.coding << ' ' << one.bits);
        const QByteArray audio = noise(68 * 96);
        const Parsing parsing(aiff(common(0, one.coding, 2, one.bits) + sound(audio), "AIFC"));
        const bool linear = one.formatId == LinearPcm;
        EXPECT_EQ(parsing.listener.format,
                  (AudioStreamDescription{.sampleRate = 44100,
                                          .formatId = one.formatId,
                                          .formatFlags = one.flags,
                                          .bytesPerPacket = one.packetBytes,
                                          .framesPerPacket = one.formatId == Ima4 ? 64U : 1U,
                                          .bytesPerFrame = linear ? one.packetBytes : 0,
                                          .channelsPerFrame = 2,
                                          .bitsPerChannel = linear ? one.packetBytes * 4 : 0}));
        EXPECT_EQ(parsing.listener.constantBytes, audio);
        std::int64_t offset = 0;
        bool estimated = true;
        EXPECT_EQ(parsing.stream->seek(70, offset, estimated), kAudioOk);
        EXPECT_EQ(offset, 70 * one.packetBytes);
        EXPECT_FALSE(estimated);
    }
}

TEST(AiffParserTest, RefusesWhatItCannotPlay)
{
    const QByteArray data = sound(noise(400));
    const QByteArray slow =
        common().replace(QByteArray::fromHex("400eac44"), QByteArray::fromHex("3ff0ac44"));
    const QByteArray files[] = {
        aiff(common(100, "MAC3") + data, "AIFC"),
        aiff(common(100, "", 0) + data),
        aiff(common(100, "", 2, 0) + data),
        aiff(common(100, "", 2, 64) + data),
        aiff(slow + data),
        aiff(common().replace(QByteArray::fromHex("400eac44"), QByteArray::fromHex("7fffac44")) + data),
        aiff(bigChunk("COMM", noise(12)) + data),
        aiff(common() + sound(noise(20), 6)),
        aiff(sound(noise(20), 0) + common()), // no telling where the format would be
        aiff(common() + data, "8SVX"),
    };
    for (const QByteArray& file : files) {
        const Parsing parsing(file);
        EXPECT_NE(parsing.status, kAudioOk);
        EXPECT_TRUE(parsing.listener.found.empty());
    }
}

} // namespace
} // namespace zib
