// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for FLAC frames lost, cut short or invented: sync words within the music, frames whose end nothing
// follows, metadata of any size, and what garbage leaves.
#include "tests/desktop/EncodedAudio.h"

#include <random>

namespace zib {
namespace {

using namespace audiofiles;

constexpr int kMarkerBytes = 4;
constexpr int kStreamInfoBytes = 4 + 34;

/// A metadata block that is not the last.
QByteArray block(int type, const QByteArray& body)
{
    return static_cast<char>(type) + bigEndian32(static_cast<quint32>(body.size())).mid(1) + body;
}

/// The places of the packets, as a seek table holds them, from the data offset.
QByteArray seekTable(const QList<QByteArray>& packets, int step, int framesPerPacket)
{
    QByteArray points;
    qint64 offset = 0;
    for (qsizetype i = 0; i < packets.size(); ++i) {
        if (i % step == 0)
            points += bigEndian32(0) + bigEndian32(static_cast<quint32>(i * framesPerPacket)) +
                      bigEndian32(0) + bigEndian32(static_cast<quint32>(offset)) + QByteArray(2, '\x10');
        offset += packets[i].size();
    }
    return points + QByteArray(8, '\xff') + QByteArray(10, '\0');
}

class FlacParserTest : public EncodedAudioTest {
  protected:
    QByteArray song(const char* options = "-ac 2 -sample_fmt s16")
    {
        return contents(encode(QStringLiteral("song.flac"), (QByteArray(options) + " -y").constData()));
    }
    /// With other blocks right after the one that tells of the stream.
    static QByteArray withBlocks(const QByteArray& file, const QByteArray& blocks)
    {
        return QByteArray(file).insert(kMarkerBytes + kStreamInfoBytes, blocks);
    }
};

TEST_F(FlacParserTest, PacketsAreThoseThatAnotherDemuxerFinds)
{
    struct Case {
        const char* name;
        const char* options;
        std::uint32_t framesPerPacket;
        std::uint32_t channels;
        double sampleRate;
    };
    const Case cases[] = {
        {"stereo.flac", "-ac 2 -ar 44100 -sample_fmt s16", 4608, 2, 44100},
        {"mono.flac", "-ac 1 -ar 22050 -compression_level 0", 576, 1, 22050},
        {"deep.flac", "-ac 2 -ar 96000 -sample_fmt s32 -compression_level 12", 8192, 2, 96000},
        {"surround.flac", "-ac 6 -ar 48000 -frame_size 1000 -lpc_type cholesky", 1000, 6, 48000},
        {"odd.flac", "-ac 2 -ar 12345 -frame_size 333 -ch_mode mid_side", 333, 2, 12345},
    };
    std::mt19937 random(1);
    for (const Case& one : cases) {
        const QString path = encode(QLatin1String(one.name), one.options);
        const QByteArray file = contents(path);
        const QList<QByteArray> expected = packetDigests(path);
        ASSERT_GT(expected.size(), 20);
        for (const qsizetype piece : {qsizetype{1}, qsizetype{2048}, file.size(), qsizetype{0}}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            Listener listener;
            const auto stream = parsers.open(AudioFileType::Mp3, listener, status);
            for (qsizetype at = 0; at < file.size();) {
                const qsizetype size = piece > 0 ? piece : static_cast<qsizetype>(random() % 5000 + 1);
                EXPECT_EQ(feed(*stream, file.mid(at, size), size), kAudioOk);
                at += size;
            }
            EXPECT_EQ(packetDigests(listener.packets), expected);
            EXPECT_EQ(listener.format, (AudioStreamDescription{.sampleRate = one.sampleRate,
                                                               .formatId = audioformat::Flac,
                                                               .framesPerPacket = one.framesPerPacket,
                                                               .channelsPerFrame = one.channels}));
            EXPECT_EQ(listener.dataOffset, file.indexOf(listener.packets.value(0)));
            std::vector<std::byte> cookie;
            EXPECT_EQ(stream->magicCookie(cookie), kAudioOk);
            EXPECT_EQ(QByteArray(reinterpret_cast<const char*>(cookie.data()), std::ssize(cookie)),
                      file.mid(kMarkerBytes + 4, 34));
        }
    }
}

TEST_F(FlacParserTest, PassesOverMetadataOfAnySize)
{
    const QByteArray file = song();
    const QList<QByteArray> packets = Parsing(file).listener.packets;
    const QByteArray music = packets.first(3).join(); // in the place of a picture
    const QByteArray picture = block(6, music + QByteArray((1 << 24) - 1 - music.size(), '\xff'));
    for (const QByteArray& one : {id3Tag(9000) + file, withBlocks(file, block(2, {}) + picture)}) {
        for (const qsizetype piece : {qsizetype{777}, one.size()}) {
            const Parsing parsing(one, piece);
            EXPECT_EQ(parsing.listener.packets, packets);
            EXPECT_EQ(parsing.listener.dataOffset, one.size() - packets.join().size());
        }
    }
}

TEST_F(FlacParserTest, LosesOnlyWhatIsBroken)
{
    const QByteArray file = song();
    const QList<QByteArray> packets = Parsing(file).listener.packets;
    const QByteArray head = file.left(file.size() - packets.join().size());
    const QByteArray whole = packets.join();
    const auto firstBytes = [&packets](qsizetype count) { return packets.first(count).join().size(); };
    QByteArray flipped = whole;
    flipped[firstBytes(6) + packets[6].size() / 2] ^= 0x10;
    struct Case {
        const char* name;
        QByteArray audio;
        QList<QByteArray> expected;
    };
    const QList<QByteArray> withoutSixth = packets.first(6) + packets.mid(7);
    const Case cases[] = {
        {"cut off", whole.chopped(1), packets.first(packets.size() - 1)},
        {"tags at the end", whole + "TAG" + noise(125), packets},
        {"garbage between frames", QByteArray(whole).insert(firstBytes(6), noise(30'000)), packets},
        {"a changed bit", flipped, withoutSixth},
        {"a missing part", QByteArray(whole).remove(firstBytes(6) + 40, 60), withoutSixth},
        {"a missing beginning", QByteArray(whole).remove(firstBytes(6), 3), withoutSixth},
        {"a missing end", QByteArray(whole).remove(firstBytes(7) - 3, 3), withoutSixth},
    };
    for (const Case& one : cases) {
        for (const qsizetype piece : {1, 2048, 1'000'000}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            const Parsing parsing(head + one.audio, piece);
            EXPECT_EQ(parsing.status, kAudioOk);
            EXPECT_EQ(packetDigests(parsing.listener.packets), packetDigests(one.expected));
        }
    }
}

TEST_F(FlacParserTest, TheBoundHoldsWhateverTheFileClaims)
{
    const QByteArray file = song();
    const QList<QByteArray> packets = Parsing(file).listener.packets;
    const auto largest =
        static_cast<std::uint32_t>(std::ranges::max_element(packets, {}, &QByteArray::size)->size());
    const auto claiming = [&file](std::uint32_t least, std::uint32_t most) {
        return Parsing(QByteArray(file).replace(kMarkerBytes + 4 + 4, 6,
                                                bigEndian32(least).mid(1) + bigEndian32(most).mid(1)));
    };
    constexpr std::uint32_t kUncompressed = 4608 * 2 * 2;
    EXPECT_EQ(claiming(14, largest).listener.bound, largest + 1);
    for (const std::uint32_t claim : {0U, 1U, 13U, 0xffffffU}) {
        const Parsing parsing = claiming(14, claim);
        EXPECT_GE(parsing.listener.bound, kUncompressed) << claim;
        EXPECT_LE(parsing.listener.bound, kUncompressed + 1000) << claim;
        EXPECT_EQ(parsing.listener.packets, packets);
    }
}

TEST_F(FlacParserTest, SeeksByTheTableAndByWhatWentBy)
{
    const QByteArray plain = song("-ac 2 -sample_fmt s16 -af aloop=9:2000000");
    const QList<QByteArray> packets = Parsing(plain).listener.packets;
    ASSERT_GT(packets.size(), 300);
    const QByteArray audio = packets.join();
    const QByteArray file = withBlocks(plain, block(3, seekTable(packets, 100, 4608)));
    for (const bool wentBy : {false, true}) {
        Parsing parsing(wentBy ? plain
                               : file.left(file.size() - audio.size() + packets.first(40).join().size()));
        for (const qint64 packet : {0, 50, 120, 299}) {
            SCOPED_TRACE(packet);
            std::int64_t offset = -1;
            bool estimated = true;
            ASSERT_EQ(parsing.stream->seek(packet, offset, estimated), kAudioOk);
            EXPECT_FALSE(estimated);
            parsing.listener.packets.clear();
            EXPECT_EQ(feed(*parsing.stream, audio.mid(offset), 2048, true), kAudioOk);
            const qsizetype landed = packets.size() - parsing.listener.packets.size();
            EXPECT_NEAR(static_cast<double>(landed), static_cast<double>(packet), 0.5 * 44100 / 4608);
            EXPECT_EQ(parsing.listener.packets, packets.mid(landed));
        }
        std::int64_t offset = -1;
        bool estimated = false;
        // Where the listener's estimate of the length is too long, its end is heard.
        EXPECT_EQ(parsing.stream->seek(100'000, offset, estimated), kAudioOk);
        EXPECT_FALSE(estimated);
        parsing.listener.packets.clear();
        EXPECT_EQ(feed(*parsing.stream, audio.last(audio.size() / 10), 2048, true), kAudioOk);
        EXPECT_EQ(parsing.listener.packets, packets.last(1));
        EXPECT_NE(parsing.stream->seek(-1, offset, estimated), kAudioOk);
    }
}

TEST_F(FlacParserTest, RefusesWhatItCannotPlay)
{
    const QByteArray file = song();
    const QByteArray head = file.left(static_cast<qsizetype>(Parsing(file).listener.dataOffset));
    const QByteArray files[] = {
        "fLaC" + block(4, noise(40)) + file.mid(kMarkerBytes),                           // told of too late
        "fLaC" + block(0, noise(20)) + file.mid(kMarkerBytes),                           // too short
        withBlocks(file, block(127, noise(40))),                                         // never a type
        QByteArray(file).replace(kMarkerBytes + 4 + 10, 4, QByteArray("\0\0\0\xf0", 4)), // no rate
        head + noise(2'000'000),                                                         // no frames
    };
    for (const QByteArray& one : files)
        EXPECT_NE(Parsing(one).status, kAudioOk);
}

} // namespace
} // namespace zib
