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

struct MovieCase {
    const char* name;
    const char* options;
    std::uint32_t formatId;
    std::uint32_t framesPerPacket;
    bool indexed = true; ///< its header tells of every packet
};
constexpr char kPicture[] = "-f lavfi -i testsrc=s=600x600:d=0.04 -map 0:a -map 1:v -c:v png "
                            "-disposition:v attached_pic -c:a aac -ac 2 -b:a 128k";
constexpr char kFilm[] = "-f lavfi -i testsrc=s=320x240:d=4 -f lavfi -i sine=d=4 -map 1:v -map 0:a -map 2:a "
                         "-c:v mpeg4 -c:a aac -ac 2 -b:a 128k";
const MovieCase kMovies[] = {
    {"index-last.m4a", "-c:a aac -ac 2 -b:a 128k", audioformat::Aac, 1024},
    {"index-first.m4a", "-c:a aac -ac 2 -b:a 128k -movflags +faststart", audioformat::Aac, 1024},
    {"surround.mp4", "-c:a aac -ac 6 -ar 48000 -movflags +faststart", audioformat::Aac, 1024},
    {"cover.m4a", kPicture, audioformat::Aac, 1024},
    {"film.mp4", kFilm, audioformat::Aac, 1024},
    {"film.mov", kFilm, audioformat::Aac, 1024},
    {"lossless.m4a", "-c:a alac -ac 2 -movflags +faststart", audioformat::AppleLossless, 4096},
    {"lossless.mov", "-c:a alac -ac 1 -sample_fmt s32p", audioformat::AppleLossless, 4096},
    {"mp3.mp4", "-c:a libmp3lame -ac 2 -b:a 128k", audioformat::MpegLayer3, 1152},
    {"flac.mp4", "-c:a flac -strict -2 -ac 2", audioformat::Flac, 4608},
    {"opus.mp4", "-c:a libopus -ac 2 -ar 48000 -b:a 96k", audioformat::Opus, 960},
    {"fragments.mp4",
     "-c:a aac -ac 2 -movflags frag_keyframe+empty_moov+default_base_moof -frag_duration 500000",
     audioformat::Aac, 1024, false},
    {"fragments-by-offset.mp4", "-c:a aac -ac 2 -movflags frag_keyframe+empty_moov -frag_duration 500000",
     audioformat::Aac, 1024, false},
    {"first-fragment-in-movie.mp4", "-c:a aac -ac 2 -movflags frag_keyframe -frag_duration 500000",
     audioformat::Aac, 1024, false},
    {"fragments-with-index.mp4", "-c:a aac -ac 2 -movflags dash+global_sidx -frag_duration 500000",
     audioformat::Aac, 1024, false},
    {"an-index-for-each-fragment.mp4", "-c:a aac -ac 2 -movflags dash -frag_duration 500000",
     audioformat::Aac, 1024, false},
    {"lossless-fragments.mp4", "-c:a alac -ac 2 -movflags frag_keyframe+empty_moov -frag_duration 500000",
     audioformat::AppleLossless, 4096, false},
    {"film-in-fragments.mp4",
     "-f lavfi -i testsrc=s=320x240:d=4 -map 1:v -map 0:a -c:v mpeg4 -g 10 -c:a aac -ac 2 "
     "-movflags frag_keyframe+empty_moov",
     audioformat::Aac, 1024, false},
};

void checkPackets(const MovieCase& one, const QByteArray& file, const QList<QByteArray>& expected)
{
    for (const qsizetype piece : {qsizetype{1}, qsizetype{7}, qsizetype{2048}, file.size()}) {
        SCOPED_TRACE(piece);
        const Parsing parsing(file, piece);
        const Listener& heard = parsing.listener;
        EXPECT_EQ(parsing.status, kAudioOk);
        ASSERT_TRUE(packetDigests(heard.packets) == expected)
            << heard.packets.size() << " of " << expected.size();
        EXPECT_EQ(heard.format.formatId, one.formatId);
        EXPECT_EQ(heard.format.framesPerPacket, one.framesPerPacket);
        EXPECT_EQ(heard.audioDataByteCount.has_value(), one.indexed);
        if (!one.indexed)
            continue;
        EXPECT_TRUE(file.mid(heard.dataOffset).startsWith(heard.packets.first()));
        EXPECT_TRUE(file.left(heard.dataOffset + static_cast<qsizetype>(*heard.audioDataByteCount))
                        .endsWith(heard.packets.last()));
        qsizetype largest = 0;
        for (const QByteArray& packet : heard.packets)
            largest = std::max(largest, packet.size());
        EXPECT_EQ(heard.bound, largest + 1);
    }
}

void checkSeeks(const MovieCase& one, const QByteArray& file)
{
    Parsing parsing(file);
    Listener& heard = parsing.listener;
    const QList<QByteArray> song = heard.packets;
    // Samples of the movie itself can't be found again after a break when fragments follow.
    const qsizetype onlyAtFirst = QByteArrayView(one.name) == "first-fragment-in-movie.mp4" ? 25 : 0;
    for (qsizetype packet = 0; packet < song.size(); packet += 5) {
        std::int64_t offset = -1;
        bool estimated = false;
        ASSERT_EQ(parsing.stream->seek(packet, offset, estimated), kAudioOk);
        EXPECT_FALSE(estimated);
        heard.packets.clear();
        ASSERT_EQ(feed(*parsing.stream, file.mid(heard.dataOffset + offset), 2048, true), kAudioOk);
        const auto missing = song.size() - packet - heard.packets.size();
        ASSERT_TRUE(heard.packets == song.last(heard.packets.size())) << packet;
        ASSERT_TRUE(missing >= 0 && missing <= onlyAtFirst) << packet << ": " << missing;
    }
}

TEST_F(EncodedAacTest, MoviePacketsAreThoseThatAnotherDemuxerFindsAndSeeksHitThem)
{
    for (const MovieCase& one : kMovies) {
        SCOPED_TRACE(one.name);
        const QString path = encode(QLatin1String(one.name), one.options);
        const QByteArray file = contents(path);
        const QList<QByteArray> expected = packetDigests(path, QStringLiteral("a:0"));
        ASSERT_GT(expected.size(), 25);
        checkPackets(one, file, expected);
        checkSeeks(one, file);
    }
}

} // namespace
} // namespace zib
