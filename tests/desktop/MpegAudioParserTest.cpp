// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for frames lost, invented or misplaced in MPEG audio: tags full of frames, garbage, lies in headers,
// and pieces that end anywhere.
#include "tests/desktop/AudioFiles.h"

namespace zib {
namespace {

using namespace audiofiles;

/// As id3Tag().
QByteArray apeTag(int bodyBytes)
{
    const QByteArray body = mp3Frame(5).repeated(bodyBytes / 100).left(bodyBytes);
    const QByteArray edge = "APETAGEX" + littleEndian(2000, 4) +
                            littleEndian(static_cast<quint64>(body.size()) + 32, 4) + littleEndian(1, 4);
    return edge + littleEndian(0xa0000000, 4) + QByteArray(8, '\0') + body + edge +
           littleEndian(0x80000000, 4) + QByteArray(8, '\0');
}

/// Frames that can be told apart.
QList<QByteArray> frames(int count, int rateIndex = 9)
{
    QList<QByteArray> frames;
    for (int i = 0; i < count; ++i)
        frames.append(mp3Frame(rateIndex, i % 3 == 1, static_cast<char>('a' + i % 26)));
    return frames;
}

TEST(MpegAudioParserTest, FindsTheFramesAndNothingElse)
{
    const QList<QByteArray> song = frames(40);
    const QByteArray bytes = song.join();
    const auto size = static_cast<quint32>(bytes.size());
    struct Case {
        const char* name;
        QByteArray before;
        QByteArray after;
    };
    const Case cases[] = {
        {"bare", {}, {}},
        {"tag", id3Tag(5000), {}},
        {"empty tag", id3Tag(0), {}},
        {"the other kind of tag", apeTag(3000), {}},
        {"one tag of each kind", id3Tag(90) + apeTag(0) + id3Tag(20), {}},
        {"unsynchronised tag", id3Tag(3000).replace(5, 1, "\x80"), {}},
        {"tag of one byte", id3Tag(1), {}},
        {"large tag", id3Tag(700'000), {}},
        {"tag with footer, then another", id3Tag(3000, true) + id3Tag(400), {}},
        {"zeros after the tag", id3Tag(100) + QByteArray(5000, '\0'), {}},
        {"garbage", noise(20'000), {}},
        {"a lone header in garbage", noise(50) + mp3Frame().left(4) + noise(900), {}},
        {"info frame", infoFrame("Info", 40, size + 417), {}},
        {"variable rate", id3Tag(300) + infoFrame("Xing", 40, size + 417), {}},
        {"the other info frame", infoFrame("VBRI", 40, size + 417), {}},
        {"tags at the end",
         {},
         apeTag(9000) + "LYRICSBEGIN" + noise(300) + "000311LYRICS200TAG" + noise(125)},
        {"cut off", {}, mp3Frame().left(200)},
    };
    for (const Case& one : cases) {
        for (const qsizetype piece : {1, 7, 2048, 10'000'000}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            const Parsing parsing(one.before + bytes + one.after, piece);
            EXPECT_EQ(parsing.status, kAudioOk);
            EXPECT_EQ(parsing.listener.packets, song);
            EXPECT_EQ(parsing.listener.dataOffset, one.before.size());
        }
    }
}

TEST(MpegAudioParserTest, TellsTheFormatOfEveryKind)
{
    struct Case {
        const char* header;
        std::uint32_t formatId;
        double sampleRate;
        std::uint32_t framesPerPacket;
        std::uint32_t channels;
        int frameBytes;
    };
    const Case cases[] = {
        {"\xff\xfb\x90\x40", audioformat::MpegLayer3, 44100, 1152, 2, 417},
        {"\xff\xfb\xe4\xc0", audioformat::MpegLayer3, 48000, 1152, 1, 960},
        {"\xff\xf3\x88\xc0", audioformat::MpegLayer3, 16000, 576, 1, 288},
        {"\xff\xe3\x18\x40", audioformat::MpegLayer3, 8000, 576, 2, 72},
        {"\xff\xfd\xa4\x40", audioformat::MpegLayer2, 48000, 1152, 2, 576},
        {"\xff\xf5\x80\x40", audioformat::MpegLayer2, 22050, 1152, 2, 417},
        {"\xff\xff\x92\x40", audioformat::MpegLayer1, 44100, 384, 2, 316},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(testing::PrintToString(QByteArray(one.header)));
        const QByteArray frame = QByteArray(one.header) + QByteArray(one.frameBytes - 4, 'x');
        const Parsing parsing(frame.repeated(5));
        EXPECT_EQ(parsing.listener.packets, QList<QByteArray>(5, frame));
        EXPECT_EQ(parsing.listener.format, (AudioStreamDescription{.sampleRate = one.sampleRate,
                                                                   .formatId = one.formatId,
                                                                   .framesPerPacket = one.framesPerPacket,
                                                                   .channelsPerFrame = one.channels}));
    }
}

TEST(MpegAudioParserTest, GoesOnAfterGarbage)
{
    const QList<QByteArray> first = frames(10);
    const QList<QByteArray> second = frames(12, 11);
    for (const QByteArray& garbage : {noise(1), noise(30'000), mp3Frame().left(100), id3Tag(9000)}) {
        SCOPED_TRACE(garbage.size());
        const Parsing parsing(first.join() + garbage + second.join());
        EXPECT_EQ(parsing.listener.packets.last(), second.last());
        // A frame whose end was cut away may take its neighbour along, and no more.
        EXPECT_GE(parsing.listener.packets.size(), 21);
        EXPECT_LE(parsing.listener.packets.size(), 22);
    }
}

TEST(MpegAudioParserTest, TheBoundIsTightWhereTheRateIsConstant)
{
    const QByteArray song = frames(100).join();
    const auto size = static_cast<quint32>(song.size()) + 417;
    const QByteArray loud = mp3Frame(14);
    struct Case {
        const char* name;
        QByteArray file;
        std::uint32_t bound;
        qsizetype packets;
    };
    const Case cases[] = {
        {"constant", infoFrame("Info", 100, size) + song, 419, 100},
        {"constant after a larger info frame", infoFrame("Info", 100, size, 13) + song, 419, 100},
        {"variable", infoFrame("Xing", 100, size) + song, 1046, 100},
        {"unknown", song, 1046, 100},
        {"calls itself constant; its figures deny it", infoFrame("Info", 100, 2 * size) + song, 1046, 100},
        {"calls itself constant and is not", infoFrame("Info", 100, size) + song + loud + mp3Frame(), 419,
         101},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const Parsing parsing(one.file);
        EXPECT_EQ(parsing.listener.bound, one.bound);
        EXPECT_EQ(parsing.listener.packets.size(), one.packets);
        std::uint32_t maximum = 0;
        EXPECT_EQ(parsing.stream->maximumPacketSize(maximum), kAudioOk);
        EXPECT_EQ(maximum, one.bound - 1);
    }
}

TEST(MpegAudioParserTest, TellsTheByteCountOnlyWhereTheFileDoes)
{
    const QByteArray song = frames(100).join();
    const auto size = static_cast<quint32>(song.size()) + 417;
    EXPECT_EQ(Parsing(infoFrame("Xing", 100, size) + song).listener.audioDataByteCount, song.size());
    EXPECT_EQ(Parsing(infoFrame("VBRI", 100, size) + song).listener.audioDataByteCount, song.size());
    EXPECT_EQ(Parsing(infoFrame("Xing", 100, 3) + song).listener.audioDataByteCount, std::nullopt);
    EXPECT_EQ(Parsing(song).listener.audioDataByteCount, std::nullopt);
}

TEST(MpegAudioParserTest, SeeksByATableWhereTheRateVaries)
{
    const QList<QByteArray> song = frames(400, 1) + frames(400, 14) + frames(800, 5);
    const QByteArray bytes = song.join();
    const auto fileBytes = static_cast<quint32>(bytes.size()) + 1044;
    QList<qint64> places{0}; // of the packets
    for (const QByteArray& frame : song)
        places.append(places.last() + frame.size());
    QByteArray hundredths;
    for (qsizetype i = 0; i < 100; ++i)
        hundredths += static_cast<char>((places[i * song.size() / 100] + 1044) * 256 / fileBytes);
    QByteArray spans;
    for (qsizetype i = 0; i < 32; ++i)
        spans +=
            bigEndian32(static_cast<quint32>(places[(i + 1) * 50] - places[i * 50] + (i == 0 ? 1044 : 0)) / 4)
                .mid(2);
    const QByteArray packets = bigEndian32(static_cast<quint32>(song.size()));
    const QByteArray shape = bigEndian32(32 << 16 | 4) + bigEndian32(2 << 16 | 50);
    const QByteArray xing = "Xing" + bigEndian32(7) + packets + bigEndian32(fileBytes) + hundredths;
    const QByteArray vbri = "VBRI" + QByteArray(6, '\0') + bigEndian32(fileBytes) + packets + shape + spans;
    for (const QByteArray& tag : {xing, vbri}) {
        const QByteArray head = mp3Frame(14, false, '\0').replace(36, tag.size(), tag);
        Parsing parsing(head + bytes.left(20'000));
        for (qsizetype packet = 0; packet < song.size() - 2; packet += 7) {
            SCOPED_TRACE(testing::Message() << tag.left(4).constData() << ", packet " << packet);
            std::int64_t offset = -1;
            bool estimated = true;
            ASSERT_EQ(parsing.stream->seek(packet, offset, estimated), kAudioOk);
            EXPECT_FALSE(estimated);
            const qint64 found = std::ranges::lower_bound(places, offset) - places.begin();
            EXPECT_LE(std::abs(found - packet), 19) << "half a second";
        }
    }
    // A table that can't be is not believed.
    for (const QByteArray& tag :
         {QByteArray(xing).replace(16, 100, QByteArray(100, '\0')), xing.left(16) + noise(100),
          QByteArray(vbri).replace(26, 64, noise(64)), QByteArray(vbri).replace(22, 2, QByteArray(2, '\0')),
          QByteArray(vbri).replace(18, 2, QByteArray(2, '\xff'))}) {
        Parsing parsing(mp3Frame(14, false, '\0').replace(36, tag.size(), tag) + bytes.left(20'000));
        std::int64_t offset = 0;
        bool estimated = false;
        EXPECT_EQ(parsing.stream->seek(700, offset, estimated), kAudioOk);
        EXPECT_TRUE(estimated);
        EXPECT_EQ(offset, bytes.size() * 700 / song.size());
    }
}

TEST(MpegAudioParserTest, KnowsWhereItHasBeen)
{
    const QList<QByteArray> song = frames(200, 5) + frames(200, 14) + frames(200, 5);
    const QByteArray garbage = noise(3000);
    const QByteArray bytes = song.first(100).join() + garbage + song.mid(100).join();
    Parsing parsing(id3Tag(300) + bytes.left(bytes.size() - 20'000));
    std::int64_t offset = -1;
    bool estimated = true;
    for (const qint64 packet : {0, 1, 16, 99, 160, 250, 400}) {
        SCOPED_TRACE(packet);
        ASSERT_EQ(parsing.stream->seek(packet, offset, estimated), kAudioOk);
        EXPECT_FALSE(estimated);
        const qint64 place = song.first(packet).join().size() + (packet > 100 ? garbage.size() : 0);
        EXPECT_NEAR(static_cast<double>(offset), static_cast<double>(place), packet % 16 == 0 ? 0 : 1045);
        parsing.listener.packets.clear();
        EXPECT_EQ(feed(*parsing.stream, bytes.mid(offset, 30'000), 2048, true), kAudioOk);
        EXPECT_FALSE(parsing.listener.packets.isEmpty());
    }
    EXPECT_EQ(parsing.stream->seek(590, offset, estimated), kAudioOk);
    EXPECT_TRUE(estimated) << "not been there, and no table";
}

TEST(MpegAudioParserTest, ASecondSeekForgetsTheFirst)
{
    const QList<QByteArray> song = frames(50);
    const QByteArray bytes = song.join();
    Parsing parsing(bytes);
    std::int64_t offset = -1;
    bool estimated = true;
    ASSERT_EQ(parsing.stream->seek(16, offset, estimated), kAudioOk);
    ASSERT_EQ(feed(*parsing.stream, song[16].left(400), 400, true), kAudioOk); // too little for a packet
    ASSERT_EQ(parsing.stream->seek(32, offset, estimated), kAudioOk);
    parsing.listener.packets.clear();
    ASSERT_EQ(feed(*parsing.stream, song.mid(32).join(), 2048, true), kAudioOk);
    EXPECT_EQ(parsing.listener.packets, song.mid(32));
    EXPECT_NE(parsing.stream->seek(-1, offset, estimated), kAudioOk);
    EXPECT_NE(parsing.stream->seek(std::numeric_limits<std::int64_t>::max(), offset, estimated), kAudioOk);
}

TEST(MpegAudioParserTest, PassesOverTheLargestCover)
{
    const Parsing parsing(id3Tag(20'000'000) + frames(9).join(), 65'536);
    EXPECT_EQ(parsing.listener.packets, frames(9));
    EXPECT_EQ(parsing.listener.dataOffset, 20'000'010);
}

TEST(MpegAudioParserTest, ADiscontinuityRepeatedUntilPacketsComeIsOne)
{
    const QList<QByteArray> song = frames(20);
    Parsing parsing(song.join());
    parsing.listener.packets.clear();
    const QByteArray rest = song.mid(5).join().mid(100); // from within a frame
    qsizetype at = 0;
    for (; parsing.listener.packets.isEmpty() && at < rest.size(); at += 100)
        EXPECT_EQ(feed(*parsing.stream, rest.mid(at, 100), 100, true), kAudioOk);
    EXPECT_EQ(feed(*parsing.stream, rest.mid(at), 2048), kAudioOk);
    EXPECT_EQ(parsing.listener.packets, song.mid(6));
}

TEST(MpegAudioParserTest, GivesUpOnWhatIsNoAudioWithinBounds)
{
    const QByteArray page = QByteArray("<!DOCTYPE html><html><p>Not found</p>").repeated(20'000);
    for (const QByteArray& file : {page, QByteArray(300'000, '\0'), QByteArray(300'000, '\xff')}) {
        Parsing parsing(file.left(1000));
        EXPECT_EQ(parsing.status, kAudioOk) << "too early to tell";
        EXPECT_NE(feed(*parsing.stream, file, 2048), kAudioOk);
        EXPECT_NE(feed(*parsing.stream, frames(9).join(), 2048), kAudioOk) << "a failure stays one";
        EXPECT_TRUE(parsing.listener.found.empty());
    }
    EXPECT_NE(Parsing("FORM" + bigEndian32(900) + "ILBM" + noise(100)).status, kAudioOk);
}

} // namespace
} // namespace zib
