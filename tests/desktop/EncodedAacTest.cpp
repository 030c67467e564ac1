// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for faults in AAC and MPEG-4 files as real programs write them: every packet must be the one that
// another demuxer finds.
#include "tests/desktop/EncodedAudio.h"

namespace zib {
namespace {

using namespace audiofiles;

/// Digests of the packets without their ADTS headers, as the other demuxer finds them.
QList<QByteArray> strippedDigests(const QString& path)
{
    const QByteArray output =
        run(QStringLiteral("ffmpeg"),
            {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"), path, QStringLiteral("-c"),
             QStringLiteral("copy"), QStringLiteral("-bsf:a"), QStringLiteral("aac_adtstoasc"),
             QStringLiteral("-f"), QStringLiteral("framemd5"), QStringLiteral("-")});
    QList<QByteArray> digests;
    for (const QByteArray& line : output.split('\n')) {
        if (!line.isEmpty() && line[0] != '#')
            digests.append(line.split(',').value(5).trimmed());
    }
    return digests;
}

using EncodedAacTest = EncodedAudioTest;

TEST_F(EncodedAacTest, AdtsPacketsAreThoseThatAnotherDemuxerFinds)
{
    struct Case {
        const char* name;
        const char* options;
        double sampleRate;
        std::uint32_t channels;
        const char* cookie;
    };
    const Case cases[] = {
        {"stereo.aac", "-ac 2 -ar 44100 -b:a 128k", 44100, 2, "1210"},
        {"mono.aac", "-ac 1 -ar 48000 -b:a 64k", 48000, 1, "1188"},
        {"surround.aac", "-ac 6 -ar 48000 -b:a 384k", 48000, 6, "11b0"},
        {"lowest.aac", "-ac 1 -ar 7350 -b:a 12k", 7350, 1, "1608"},
        {"highest.aac", "-ac 2 -ar 96000 -b:a 256k", 96000, 2, "1010"},
        {"tagged.aac", "-ac 2 -ar 44100 -metadata title=A -write_id3v2 1 -write_apetag 1", 44100, 2, "1210"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const QString path = encode(QLatin1String(one.name), one.options);
        const QByteArray file = contents(path);
        const QList<QByteArray> expected = strippedDigests(path);
        ASSERT_GT(expected.size(), 25);
        for (const qsizetype piece : {qsizetype{1}, qsizetype{7}, qsizetype{2048}, file.size()}) {
            SCOPED_TRACE(piece);
            const Parsing parsing(file, piece);
            EXPECT_EQ(parsing.status, kAudioOk);
            EXPECT_TRUE(packetDigests(parsing.listener.packets) == expected);
            EXPECT_EQ(parsing.listener.format, (AudioStreamDescription{.sampleRate = one.sampleRate,
                                                                       .formatId = audioformat::Aac,
                                                                       .framesPerPacket = 1024,
                                                                       .channelsPerFrame = one.channels}));
            EXPECT_EQ(parsing.listener.bound, one.channels * 768 + 1);
            std::vector<std::byte> cookie;
            EXPECT_EQ(parsing.stream->magicCookie(cookie), kAudioOk);
            EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(cookie.data()), std::ssize(cookie)),
                      QByteArray::fromHex(one.cookie));
        }
    }
}

} // namespace
} // namespace zib
