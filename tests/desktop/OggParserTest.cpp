// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for packets of Ogg files that are lost, joined wrongly or taken from another stream, for durations
// that are not the song's, and for what a chain, a break or garbage leaves.
#include "tests/desktop/EncodedAudio.h"

#include <random>

namespace zib {
namespace {

using namespace audiofiles;

QByteArray cookieOf(const AudioFileStream& stream)
{
    std::vector<std::byte> cookie;
    EXPECT_EQ(stream.magicCookie(cookie), kAudioOk);
    return {reinterpret_cast<const char*>(cookie.data()), std::ssize(cookie)};
}

/// As readers tell it from the size of a file whose packets they have seen.
double durationOf(const Listener& listener, qsizetype fileBytes)
{
    const double average =
        static_cast<double>(listener.packets.join().size()) / static_cast<double>(listener.packets.size());
    return static_cast<double>(fileBytes - listener.dataOffset) / average * listener.format.framesPerPacket /
           listener.format.sampleRate;
}

class OggParserTest : public EncodedAudioTest {
  protected:
    QByteArray song(const char* options)
    {
        return contents(encode(QStringLiteral("song.ogg"), (QByteArray(options) + " -y").constData()));
    }

    static constexpr auto kVorbis = "-ac 2 -c:a libvorbis -q:a 4";
    static constexpr auto kOpus = "-ac 2 -ar 48000 -c:a libopus -b:a 96k";
    static constexpr auto kFlac = "-ac 2 -sample_fmt s16 -c:a flac";
};

TEST_F(OggParserTest, PacketsAreThoseThatAnotherDemuxerFinds)
{
    using namespace audioformat;
    struct Case {
        const char* name;
        const char* options;
        std::uint32_t formatId;
        double sampleRate;
        std::uint32_t channels;
        std::uint32_t mostBound;
    };
    const Case cases[] = {
        {"vorbis.ogg", "-ac 2 -c:a libvorbis -q:a 4", Vorbis, 44100, 2, 2000},
        {"loud.ogg", "-ac 2 -ar 96000 -c:a libvorbis -q:a 10", Vorbis, 96000, 2, 3000},
        {"small.ogg", "-ac 1 -ar 8000 -c:a libvorbis -q:a 0", Vorbis, 8000, 1, 1000},
        {"other.ogg", "-ac 2 -c:a vorbis -strict -2", Vorbis, 44100, 2, 3000},
        {"opus.opus", "-ac 2 -ar 48000 -c:a libopus -b:a 96k", Opus, 48000, 2, 1300},
        {"loud.opus", "-ac 2 -ar 48000 -c:a libopus -b:a 510k -vbr off", Opus, 48000, 2, 1300},
        {"long.opus", "-ac 1 -ar 16000 -c:a libopus -b:a 24k -frame_duration 60", Opus, 48000, 1, 4000},
        {"surround.opus", "-ac 6 -ar 48000 -c:a libopus -b:a 450k", Opus, 48000, 6, 6000},
        {"flac.oga", "-ac 2 -sample_fmt s16 -c:a flac", Flac, 44100, 2, 20'000},
        {"film.ogv",
         "-f lavfi -i testsrc=s=320x200:d=4 -map 0:a -map 1:v -c:v libtheora -ac 2 -c:a libvorbis", Vorbis,
         44100, 2, 2000},
    };
    std::mt19937 random(1);
    for (const Case& one : cases) {
        const QString path = encode(QLatin1String(one.name), one.options);
        const QByteArray file = contents(path);
        const QList<QByteArray> expected = packetDigests(path);
        ASSERT_GT(expected.size(), 30);
        for (const qsizetype piece : {qsizetype{1}, qsizetype{2048}, file.size(), qsizetype{0}}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            Listener listener;
            const auto stream = parsers.open(AudioFileType::Mp3, listener, status);
            for (qsizetype at = 0; at < file.size();) {
                const qsizetype size = piece > 0 ? piece : static_cast<qsizetype>(random() % 9000 + 1);
                EXPECT_EQ(feed(*stream, file.mid(at, size), size), kAudioOk);
                at += size;
            }
            EXPECT_EQ(packetDigests(listener.packets), expected);
            EXPECT_EQ(listener.format.formatId, one.formatId);
            EXPECT_EQ(listener.format.sampleRate, one.sampleRate);
            EXPECT_EQ(listener.format.channelsPerFrame, one.channels);
            EXPECT_LE(listener.bound, one.mostBound);
            EXPECT_EQ(file.mid(listener.dataOffset, 4), "OggS");
            if (!path.endsWith(QLatin1String("ogv"))) { // the rate of pictures is anything
                EXPECT_NEAR(durationOf(listener, file.size()), 4, one.formatId == Vorbis ? 0.6 : 0.1);
            }
        }
    }
}

TEST_F(OggParserTest, TellsDecodersWithoutTheComments)
{
    QFile tags(folder.filePath(QStringLiteral("tags")));
    ASSERT_TRUE(tags.open(QIODevice::WriteOnly));
    tags.write(";FFMETADATA1\ntitle=" + QByteArray(3'000'000, 'x') + '\n');
    tags.close();
    const QByteArray meta = "-i " + tags.fileName().toUtf8() + " -map 0:a -map_metadata 1 ";

    const QByteArray file = song((meta + kVorbis).constData());
    ASSERT_GT(file.size(), 3'000'000);
    const Parsing vorbis(file);
    EXPECT_EQ(packetDigests(vorbis.listener.packets),
              packetDigests(folder.filePath(QStringLiteral("song.ogg"))));
    const QByteArray cookie = cookieOf(*vorbis.stream);
    EXPECT_EQ(cookie.left(2 + 30 + 16),
              "\x1e\x10" + file.mid(28, 30) + QByteArray("\x03vorbis\0\0\0\0\0\0\0\0\x01", 16));
    const QByteArray plain = song(kVorbis);
    EXPECT_EQ(cookie, cookieOf(*Parsing(plain).stream));
    EXPECT_TRUE(plain.contains(cookie.mid(2 + 30 + 16, 200)));

    const QByteArray opus = song((meta + kOpus).constData());
    EXPECT_EQ(cookieOf(*Parsing(opus).stream), opus.mid(28, 19));
    EXPECT_EQ(cookieOf(*Parsing(song(kFlac)).stream).size(), 34);
}

TEST_F(OggParserTest, LosesOnlyThePagesThatAreBroken)
{
    for (const char* options : {kVorbis, kOpus, kFlac}) {
        const QByteArray file = song(options);
        const QList<QByteArray> packets = Parsing(file).listener.packets;
        const auto middle = file.size() / 2;
        QByteArray flipped = file;
        flipped[middle] = static_cast<char>(flipped[middle] ^ 4);
        const QByteArray broken[] = {
            flipped,
            QByteArray(file).remove(middle, 100),
            QByteArray(file).insert(middle, noise(30'000)),
            QByteArray(file).insert(middle, "OggS" + QByteArray(200, '\xff')),
            file.left(file.size() * 3 / 4),
            file.chopped(1),
        };
        for (const QByteArray& one : broken) {
            SCOPED_TRACE(testing::Message() << options << ", case " << &one - broken);
            const Parsing parsing(one);
            EXPECT_EQ(parsing.status, kAudioOk);
            const QList<QByteArray> found = parsing.listener.packets;
            qsizetype before = 0;
            while (before < found.size() && found[before] == packets[before])
                ++before;
            EXPECT_EQ(found.mid(before), packets.last(found.size() - before));
            EXPECT_GT(found.size(), packets.size() / 5);
        }
    }
}

TEST_F(OggParserTest, GoesOnWithAChainWhileTheDecoderCan)
{
    for (const char* options : {kVorbis, kOpus, kFlac}) {
        SCOPED_TRACE(options);
        const QByteArray file = song(options);
        const QList<QByteArray> packets = Parsing(file).listener.packets;
        const QByteArray other = song(options == kOpus ? kVorbis : kOpus);
        const QByteArray otherWay = song((QByteArray(options) + " -ac 1").constData());
        EXPECT_EQ(Parsing(file + file + file).listener.packets, packets + packets + packets);
        EXPECT_EQ(Parsing(file + other + file).listener.packets, packets + packets);
        EXPECT_EQ(Parsing(file + otherWay).listener.packets, packets);
        EXPECT_EQ(Parsing(file + otherWay).status, kAudioOk);
    }
}

TEST_F(OggParserTest, SeeksToWhatWentByAndGoesOnAnywhere)
{
    for (const char* options : {kVorbis, kOpus, kFlac}) {
        const QByteArray file = song((QByteArray("-af aloop=9:2000000 ") + options).constData());
        Parsing parsing(file);
        const QList<QByteArray> packets = parsing.listener.packets;
        const double seconds = 40.0 / static_cast<double>(packets.size());
        const double packetSeconds =
            parsing.listener.format.framesPerPacket / parsing.listener.format.sampleRate;
        std::int64_t offset = -1;
        bool estimated = true;
        for (const double target : {0.0, 3.3, 20.0, 37.0}) {
            SCOPED_TRACE(testing::Message() << options << ", to " << target << " s");
            ASSERT_EQ(
                parsing.stream->seek(static_cast<std::int64_t>(target / packetSeconds), offset, estimated),
                kAudioOk);
            EXPECT_FALSE(estimated);
            parsing.listener.packets.clear();
            EXPECT_EQ(feed(*parsing.stream, file.mid(parsing.listener.dataOffset + offset), 2048, true),
                      kAudioOk);
            const qsizetype landed = packets.size() - parsing.listener.packets.size();
            EXPECT_TRUE(parsing.listener.packets == packets.mid(landed));
            EXPECT_NEAR(static_cast<double>(landed) * seconds, target, 0.5); // the song's half-seconds differ
        }
        // A place behind the end, as the listener's estimate of the length may be too long.
        ASSERT_EQ(parsing.stream->seek(static_cast<std::int64_t>(40.3 / packetSeconds), offset, estimated),
                  kAudioOk);
        parsing.listener.packets.clear();
        EXPECT_EQ(feed(*parsing.stream, file.mid(parsing.listener.dataOffset + offset), 2048, true),
                  kAudioOk);
        EXPECT_TRUE(parsing.listener.packets.isEmpty());
        for (const qsizetype at : {file.size() / 3, file.size() - 40'000}) {
            parsing.listener.packets.clear();
            EXPECT_EQ(feed(*parsing.stream, file.mid(at), 2048, true), kAudioOk);
            EXPECT_GT(parsing.listener.packets.size(), 1);
            EXPECT_EQ(parsing.listener.packets, packets.last(parsing.listener.packets.size()));
        }
        EXPECT_NE(parsing.stream->seek(-1, offset, estimated), kAudioOk);
    }
}

TEST_F(OggParserTest, RefusesWhatItCannotPlay)
{
    const QByteArray film = contents(
        encode(QStringLiteral("film.ogv"), "-f lavfi -i testsrc=s=64x64:d=1 -map 1:v -c:v libtheora"));
    EXPECT_NE(Parsing(film).status, kAudioOk);
    EXPECT_NE(Parsing("OggS" + noise(3'000'000)).status, kAudioOk);
    // Each of these four bytes claims a page of 64 KB, which is to be checked for nothing.
    EXPECT_NE(Parsing((QByteArray("OggS\0", 5) + QByteArray(21, '\xff')).repeated(200'000)).status, kAudioOk);
}

} // namespace
} // namespace zib
