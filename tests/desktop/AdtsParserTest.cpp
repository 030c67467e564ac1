// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for frames of AAC lost, invented or misplaced: lies of the extension, garbage, checksums, frames of
// several blocks, and pieces that end anywhere.
#include "tests/desktop/AudioFiles.h"

namespace zib {
namespace {

using namespace audiofiles;

/// Raw data blocks of different sizes that can be told apart.
QList<QByteArray> blocks(int count)
{
    QList<QByteArray> blocks;
    for (int i = 0; i < count; ++i)
        blocks.append(QByteArray(300 + i * 37 % 90, static_cast<char>('a' + i % 26)));
    return blocks;
}

QByteArray fileOf(const QList<QByteArray>& song)
{
    QByteArray file;
    for (const QByteArray& block : song)
        file += adtsFrame(block);
    return file;
}

TEST(AdtsParserTest, FindsTheFramesAndNothingElse)
{
    const QList<QByteArray> song = blocks(40);
    struct Case {
        const char* name;
        QByteArray before;
        QByteArray after;
    };
    const Case cases[] = {
        {"bare", {}, {}},
        {"tag full of MPEG audio", id3Tag(5000), {}},
        {"two tags and zeros", id3Tag(300) + id3Tag(40, true) + QByteArray(900, '\0'), {}},
        {"garbage with a lone header", noise(5000) + adtsFrame(noise(90)).left(7) + noise(9000), {}},
        {"an unfinished frame of MPEG audio", mp3Frame().left(200), {}},
        {"tags at the end", {}, "APETAGEX" + noise(300) + "TAG" + noise(125)},
        {"cut off", {}, adtsFrame(noise(400)).left(200)},
    };
    for (const Case& one : cases) {
        for (const qsizetype piece : {1, 7, 2048, 10'000'000}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            const Parsing parsing(one.before + fileOf(song) + one.after, piece);
            EXPECT_EQ(parsing.status, kAudioOk);
            EXPECT_EQ(parsing.listener.packets, song);
            EXPECT_EQ(parsing.listener.dataOffset, one.before.size());
            EXPECT_EQ(parsing.listener.bound, 2 * 768 + 1U);
        }
    }
}

TEST(AdtsParserTest, GoesOnAfterGarbage)
{
    const QList<QByteArray> song = blocks(30);
    for (const QByteArray& garbage :
         {noise(1), noise(30'000), adtsFrame(noise(500)).left(100), mp3Frame().repeated(20)}) {
        SCOPED_TRACE(garbage.size());
        const Parsing parsing(fileOf(song.first(10)) + garbage + fileOf(song.mid(10)));
        EXPECT_EQ(parsing.listener.packets.last(), song.last());
        // A frame whose end was cut away may take its neighbour along, and no more.
        EXPECT_GE(parsing.listener.packets.size(), 29);
        EXPECT_LE(parsing.listener.packets.size(), 31);
    }
}

TEST(AdtsParserTest, TakesFramesOfSeveralBlocksApartWhereTheyTellWhere)
{
    const QByteArray a(200, 'a');
    const QByteArray b(310, 'b');
    const QByteArray c(90, 'c');
    const QByteArray check(2, 'k');
    const auto place = [](qsizetype bytes) { return bigEndian32(static_cast<quint32>(bytes)).mid(2); };

    const QByteArray checkedOne = adtsFrame(a, 1, check);
    EXPECT_EQ(Parsing(checkedOne.repeated(3)).listener.packets, (QList{a, a, a}));

    const QByteArray three = a + check + b + check + c + check;
    const QByteArray checked = adtsFrame(three, 3, place(202) + place(514) + check);
    EXPECT_EQ(Parsing(checked.repeated(2)).listener.packets, (QList{a, b, c, a, b, c}));
    const QByteArray lying = adtsFrame(three, 3, place(514) + place(202) + check);
    EXPECT_EQ(Parsing(checked.repeated(2) + lying + checkedOne).listener.packets.size(), 8)
        << "what it tells of the second is before the first; the first is there still";

    // Without checksums only a decoder finds the blocks; it is told how much it gets.
    const QByteArray together = a + b + c;
    struct FramesListener : Listener {
        void packetsProduced(std::span<const std::byte> bytes, std::uint32_t count,
                             std::span<const AudioPacketDescription> descriptions) override
        {
            Listener::packetsProduced(bytes, count, descriptions);
            for (const auto& packet : descriptions)
                frames.append(packet.variableFramesInPacket);
        }
        QList<std::uint32_t> frames;
    } listener;
    AudioStatus status = kAudioOk;
    const auto stream = AudioFileStreamParsers().open(AudioFileType::Mp3, listener, status);
    EXPECT_EQ(feed(*stream, adtsFrame(together, 3).repeated(2), 2048), kAudioOk);
    EXPECT_EQ(listener.packets, (QList{together, together}));
    EXPECT_EQ(listener.frames, (QList{3072U, 3072U}));
}

TEST(AdtsParserTest, ReadsChannelsFromTheAudioWhereTheHeaderDoesNotTell)
{
    // A program config element: two pairs in front, one single behind, one for low frequencies, no comment.
    const QByteArray element = QByteArray::fromHex("a0a100a004220000");
    const Parsing parsing(adtsFrame(element + noise(300), 1, {}, 4, 0).repeated(3));
    EXPECT_EQ(parsing.listener.packets.size(), 3);
    EXPECT_EQ(parsing.listener.format.channelsPerFrame, 6U);
    std::vector<std::byte> cookie;
    EXPECT_EQ(parsing.stream->magicCookie(cookie), kAudioOk);
    EXPECT_GT(cookie.size(), 2U);
    EXPECT_TRUE(Parsing(adtsFrame(noise(300), 1, {}, 4, 0).repeated(3)).listener.found.empty());
}

TEST(AdtsParserTest, SeeksExactlyToWhatWasSeenAndByTheAverageBeyond)
{
    const QList<QByteArray> song = blocks(260);
    const QByteArray file = fileOf(song);
    Parsing parsing(id3Tag(50) + file.left(file.size() / 2));
    const auto seen = parsing.listener.packets.size();
    ASSERT_GT(seen, 120);
    std::int64_t offset = -1;
    bool estimated = true;
    for (const qint64 packet : {qint64{0}, qint64{77}, qint64{seen - 1}}) {
        ASSERT_EQ(parsing.stream->seek(packet, offset, estimated), kAudioOk);
        EXPECT_FALSE(estimated);
        EXPECT_EQ(offset, fileOf(song.first(packet)).size());
    }
    ASSERT_EQ(parsing.stream->seek(240, offset, estimated), kAudioOk);
    EXPECT_TRUE(estimated);
    EXPECT_NEAR(static_cast<double>(offset), static_cast<double>(fileOf(song.first(240)).size()), 300);
    parsing.listener.packets.clear();
    EXPECT_EQ(feed(*parsing.stream, file.mid(offset), 2048, true), kAudioOk);
    EXPECT_GE(parsing.listener.packets.size(), 19);
    EXPECT_EQ(parsing.listener.packets, song.last(parsing.listener.packets.size()));
    ASSERT_EQ(parsing.stream->seek(200, offset, estimated), kAudioOk);
    EXPECT_TRUE(estimated) << "where these packets are in the file is not known";

    Parsing constant(adtsFrame(noise(200)).repeated(20));
    ASSERT_EQ(constant.stream->seek(900, offset, estimated), kAudioOk);
    EXPECT_FALSE(estimated);
    EXPECT_EQ(offset, 900 * 207);
}

} // namespace
} // namespace zib
