// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for packets lost, cut in the wrong place or of wrong shape in Core Audio files, wherever their table
// stands, and for trust in the numbers of such files.
#include "platform/desktop/parsers/AudioFileStreamParsers.h"
#include "tests/desktop/EncodedAudio.h"

namespace zib {
namespace {

using namespace audiofiles;

QByteArray bigEndian64(quint64 value)
{
    return bigEndian32(static_cast<quint32>(value >> 32)) + bigEndian32(static_cast<quint32>(value));
}

QByteArray cafChunk(const char* name, const QByteArray& body, std::optional<qint64> size = {})
{
    return name + bigEndian64(static_cast<quint64>(size.value_or(body.size()))) + body;
}

QByteArray description(const char* formatId, quint32 packetBytes, quint32 packetFrames, quint32 flags = 0,
                       quint32 channels = 2, quint32 bits = 0)
{
    const QByteArray rate = QByteArray::fromHex("40e5888000000000"); // 44100
    return "caff" + bigEndian32(0x10000) +
           cafChunk("desc", rate + formatId + bigEndian32(flags) + bigEndian32(packetBytes) +
                                bigEndian32(packetFrames) + bigEndian32(channels) + bigEndian32(bits));
}

QByteArray data(const QByteArray& audio, std::optional<qint64> size = {})
{
    return cafChunk("data", bigEndian32(0) + audio, size);
}

QByteArray table(const QList<QByteArray>& packets, qint64 surplus = 0)
{
    QByteArray numbers;
    for (const QByteArray& packet : packets) {
        const auto size = static_cast<quint32>(packet.size());
        for (int shift = 28; shift > 0; shift -= 7) {
            if (size >> shift != 0)
                numbers += static_cast<char>(size >> shift | 0x80);
        }
        numbers += static_cast<char>(size & 0x7f);
    }
    return cafChunk("pakt", bigEndian64(static_cast<quint64>(packets.size() + surplus)) + bigEndian64(0) +
                                bigEndian64(0) + numbers);
}

const QByteArray kAacConfiguration = QByteArray::fromHex("1210");
const QByteArray kAacCookie = QByteArray::fromHex("03808080220001000480808014"
                                                  "401500180000013880000138800580808002"
                                                  "1210068080800102");
const QByteArray kLossless = QByteArray::fromHex("000010000010280a0e0200000000400400177000000abcde");

/// Packets of many sizes, one of them of 3 bytes of length and one empty.
QList<QByteArray> packets()
{
    QList<QByteArray> packets;
    for (int i = 0; i < 60; ++i)
        packets.append(noise(i == 20 ? 40'000 : i == 30 ? 0 : 1 + i * 91 % 700));
    return packets;
}

TEST(CafParserTest, FindsThePacketsWhereverTheirTableStands)
{
    const QList<QByteArray> all = packets();
    QList<QByteArray> song = all;
    song.removeAll(QByteArray());
    const QByteArray audio = all.join();
    const QByteArray head = description("aac ", 0, 1024) + cafChunk("chan", noise(12));
    const QByteArray cookie = cafChunk("kuki", kAacCookie);
    const QByteArray more = cafChunk("free", noise(501)) + cafChunk("info", noise(40));
    struct Case {
        const char* name;
        QByteArray file;
    };
    const Case cases[] = {
        {"table first", head + cookie + table(all) + more + data(audio) + more},
        {"audio to the end", head + table(all) + cookie + data(audio, -1)},
        {"table last", head + cookie + more + data(audio) + more + table(all)},
        {"cookie last", head + table(all) + data(audio) + more + cookie},
        {"both last", head + data(audio) + table(all) + cookie + more},
        {"more packets claimed than told", head + cookie + table(all, 9) + data(audio)},
        {"more audio than packets", head + cookie + table(all) + data(audio + noise(2000))},
        {"a table with room", head + cookie + table(all + packets(), -60) + data(audio)},
        {"after a tag", id3Tag(700) + head + cookie + table(all) + data(audio)},
    };
    for (const Case& one : cases) {
        for (const qsizetype piece : {1, 7, 2048, 10'000'000}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            const Parsing parsing(one.file, piece);
            EXPECT_EQ(parsing.status, kAudioOk);
            EXPECT_EQ(parsing.listener.packets, song);
            EXPECT_EQ(parsing.listener.dataOffset, one.file.indexOf(audio));
            EXPECT_EQ(parsing.listener.bound, 40'001U);
            EXPECT_EQ(parsing.listener.format, (AudioStreamDescription{.sampleRate = 44100,
                                                                       .formatId = audioformat::Aac,
                                                                       .framesPerPacket = 1024,
                                                                       .channelsPerFrame = 2}));
        }
    }
    EXPECT_EQ(Parsing(cases[0].file).listener.audioDataByteCount, audio.size());
}

TEST(CafParserTest, SeeksExactly)
{
    const QList<QByteArray> all = packets();
    const QByteArray audio = all.join();
    Parsing parsing(description("aach", 0, 2048) + cafChunk("kuki", kAacConfiguration) + table(all) +
                    data(audio));
    for (const qint64 packet : {0, 1, 19, 21, 40, 59, 100'000}) {
        SCOPED_TRACE(packet);
        // A second seek before the first one's packets came must not be joined with what came of it.
        std::int64_t offset = -1;
        bool estimated = true;
        ASSERT_EQ(parsing.stream->seek(20, offset, estimated), kAudioOk);
        EXPECT_EQ(feed(*parsing.stream, audio.mid(offset, 1000), 1000, true), kAudioOk);
        ASSERT_EQ(parsing.stream->seek(packet, offset, estimated), kAudioOk);
        EXPECT_FALSE(estimated);
        const qint64 first = qMin(packet, qint64{59});
        EXPECT_EQ(offset, all.first(first).join().size());
        parsing.listener.packets.clear();
        EXPECT_EQ(feed(*parsing.stream, audio.mid(offset), 2048, true), kAudioOk);
        EXPECT_EQ(parsing.listener.packets.join(), audio.mid(offset));
        EXPECT_EQ(parsing.listener.packets.value(0), all.at(first));
    }
    std::int64_t offset = 0;
    bool estimated = false;
    EXPECT_NE(parsing.stream->seek(-1, offset, estimated), kAudioOk);
}

TEST(CafParserTest, TellsDecodersWhatTheyNeed)
{
    const QByteArray box =
        QByteArray::fromHex("0000000c66726d61616c616300000024616c616300000000") + kLossless;
    struct Case {
        const char* formatId;
        QByteArray cookie;
        QByteArray told;
    };
    const Case cases[] = {
        {"aac ", kAacCookie, kAacConfiguration},
        {"aacp", kAacCookie, kAacConfiguration},
        {"aac ", kAacConfiguration, kAacConfiguration},
        {"alac", kLossless, kLossless},
        {"alac", kLossless + noise(24), kLossless},
        {"alac", box + QByteArray::fromHex("0000000800000000"), kLossless},
    };
    const QList<QByteArray> all = packets();
    for (const Case& one : cases) {
        const Parsing parsing(description(one.formatId, 0, 1024) + cafChunk("kuki", one.cookie) + table(all) +
                              data(all.join()));
        std::vector<std::byte> cookie;
        EXPECT_EQ(parsing.stream->magicCookie(cookie), kAudioOk);
        EXPECT_EQ(QByteArrayView(reinterpret_cast<const char*>(cookie.data()), std::ssize(cookie)), one.told);
    }
}

TEST(CafParserTest, RefusesWhatItCannotPlay)
{
    const QList<QByteArray> all = packets();
    const QByteArray end = table(all) + data(all.join());
    const QByteArray aac = description("aac ", 0, 1024);
    const QByteArray linear = description("lpcm", 4, 1);
    const QByteArray file = "caff" + bigEndian32(0x10000);
    const QByteArray huge = cafChunk("pakt", bigEndian64(2) + QByteArray(16, '\0') + QByteArray(50, '\xff'));
    const QByteArray files[] = {
        description("QDM2", 0, 2048) + end,
        description("aac ", 0, 0) + end,
        description("aac ", 0, 0xd1745d18) + end,
        description("aac ", 1000, 1024) + end,
        description("lpcm", 5, 1) + end,
        description("lpcm", 0, 1) + end,
        description("lpcm", 4, 1, 0, 0) + end,
        description("lpcm", 4000, 1, 0, 1000) + end,
        aac + data(all.join(), -1),              // a table can't follow
        file + data(all.join()) + linear.mid(8), // the audio before its description
        linear + data(noise(90), 3),
        linear + cafChunk("free", noise(9), -9),
        aac + huge + end,
        aac + cafChunk("kuki", kAacCookie.left(20)) + end,
        aac + cafChunk("pakt", noise(5)) + end,
        file + cafChunk("desc", noise(12)) + end,
    };
    for (const QByteArray& one : files) {
        const Parsing parsing(one);
        EXPECT_NE(parsing.status, kAudioOk);
        EXPECT_TRUE(parsing.listener.found.empty());
    }
    // Without what its decoder must be told, or cut off before its table, a file has nothing to play.
    EXPECT_TRUE(Parsing(aac + end).listener.found.empty());
    EXPECT_TRUE(Parsing(aac + cafChunk("kuki", kAacCookie) + data(all.join()) + table(all).left(90))
                    .listener.found.empty());
    // Nor does a claim of audio without end hold more than what comes.
    EXPECT_TRUE(Parsing(aac + data(all.join(), std::numeric_limits<qint64>::max())).listener.found.empty());
}

TEST_F(EncodedAudioTest, CafPacketsAreThoseThatAnotherDemuxerFinds)
{
    struct Case {
        const char* codec;
        const char* options;
        std::uint32_t packetFrames;
    };
    const Case cases[] = {
        {"alac", "-ac 2", 4096},
        {"libmp3lame", "-ac 2 -q:a 2", 1152},
        {"libopus", "-ac 2 -ar 48000", 960},
        {"pcm_s16le", "-ac 2", 1},
        {"pcm_s24be", "-ac 1", 1},
        {"pcm_s8", "-ac 1", 1},
        {"pcm_f32le", "-ac 2", 1},
        {"pcm_f64be", "-ac 2", 1},
        {"pcm_mulaw", "-ac 2", 1},
        {"pcm_alaw", "-ac 1", 1},
        {"adpcm_ima_qt", "-ac 2", 64},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.codec);
        const QByteArray options = QByteArray("-metadata title=A ") + one.options + " -c:a " + one.codec;
        const QString path = encode(QLatin1String(one.codec) + QLatin1String(".caf"), options.constData());
        const QByteArray file = contents(path);
        const QByteArray audio =
            run(QStringLiteral("ffmpeg"),
                {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"), path,
                 QStringLiteral("-map"), QStringLiteral("0:a"), QStringLiteral("-c"), QStringLiteral("copy"),
                 QStringLiteral("-f"), QStringLiteral("data"), QStringLiteral("-")});
        ASSERT_GT(audio.size(), 5000);
        for (const qsizetype piece : {qsizetype{7}, qsizetype{2048}, file.size()}) {
            const Parsing parsing(file, piece);
            EXPECT_EQ(parsing.status, kAudioOk);
            EXPECT_TRUE(parsing.listener.allBytes() == audio);
            EXPECT_EQ(parsing.listener.format.framesPerPacket, one.packetFrames);
            if (!parsing.listener.packets.isEmpty()) {
                EXPECT_EQ(packetDigests(parsing.listener.packets), packetDigests(path));
            }
        }
    }
}

} // namespace
} // namespace zib
