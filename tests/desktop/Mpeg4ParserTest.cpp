// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for trust in what MPEG-4 files tell of themselves, for samples lost between boxes, and for the ways
// in which such files tell of HE-AAC.
#include "platform/desktop/parsers/FormatParser.h"
#include "tests/desktop/AudioFiles.h"

namespace zib {
namespace {

using namespace audiofiles;

QByteArray numbers(const QList<quint32>& values)
{
    QByteArray bytes;
    for (const quint32 value : values)
        bytes += bigEndian32(value);
    return bytes;
}

QByteArray box(const char* name, const QByteArray& body, std::optional<quint32> size = {})
{
    return bigEndian32(size.value_or(static_cast<quint32>(body.size()) + 8)) + name + body;
}

QByteArray soundEntry(const char* coding, const QByteArray& boxes)
{
    return box(coding, QByteArray(7, '\0') + '\1' + QByteArray(8, '\0') +
                           numbers({0x20010, 0, 44100U << 16}) + boxes);
}

QByteArray aacEntry(const QByteArray& config)
{
    const auto descriptor = [](char tag, const QByteArray& body) {
        return tag + QByteArray(1, static_cast<char>(body.size())) + body;
    };
    const QByteArray decoder = descriptor(4, '\x40' + QByteArray(12, '\0') + descriptor(5, config));
    return soundEntry("mp4a", box("esds", numbers({0}) + descriptor(3, QByteArray(3, '\0') + decoder)));
}

const QByteArray kAac = aacEntry(QByteArray::fromHex("1210"));

/// A list of sizes or of offsets, and its length.
QByteArray list(const QList<quint32>& values)
{
    return bigEndian32(static_cast<quint32>(values.size())) + numbers(values);
}

struct Table {
    QByteArray entry = kAac;
    QByteArray sizes;                           ///< the box
    QByteArray runs = numbers({0, 1, 1, 2, 1}); ///< the body: two samples a chunk
    QByteArray offsets;                         ///< the box
};

QByteArray track(const Table& table, const char* handler = "soun", bool enabled = true)
{
    return box("trak",
               box("tkhd", numbers({enabled ? 1U : 0U, 0, 0, 1}) + QByteArray(68, '\0')) +
                   box("mdia", box("hdlr", numbers({0, 0}) + handler + QByteArray(13, '\0')) +
                                   box("minf", box("stbl", box("stsd", numbers({0, 1}) + table.entry) +
                                                               box("stsc", table.runs) + table.sizes +
                                                               table.offsets))));
}

QByteArray sizesBox(const QList<quint32>& sizes)
{
    return box("stsz", numbers({0, 0}) + list(sizes));
}

const QByteArray kType = box("ftyp", "M4A " + QByteArray(4, '\0'));
const QList<QByteArray> kSong{QByteArray(30, 'a'), QByteArray(41, 'b'), QByteArray(52, 'c'),
                              QByteArray(23, 'd')};
const QList<quint32> kSizes{30, 41, 52, 23};

/// The audio of the song in two chunks with something between them, and the index, in this order; its first
/// chunk begins at byte 24.
QByteArray indexLast(const Table& table)
{
    return kType + box("mdat", kSong[0] + kSong[1] + "between" + kSong[2] + kSong[3]) +
           box("moov", track(table));
}

Table tableOf(const QByteArray& entry = kAac)
{
    return {entry, sizesBox(kSizes), numbers({0, 1, 1, 2, 1}), box("stco", numbers({0}) + list({24, 102}))};
}

TEST(Mpeg4ParserTest, FindsTheSamplesHoweverTheFileIsBuilt)
{
    const QByteArray audio = kSong[0] + kSong[1] + "between" + kSong[2] + kSong[3];
    const auto indexFirst = [&](const QByteArray& before) {
        const auto file = [&](quint32 at) {
            Table table = tableOf();
            table.offsets = box("co64", numbers({0, 2, 0, at, 0, at + 78}));
            return kType + box("moov", before + track(table)) + box("free", noise(40));
        };
        return file(static_cast<quint32>(file(0).size()) + 8) + box("mdat", audio);
    };
    Table film = tableOf();
    film.offsets = box("stco", numbers({0}) + list({95, 95}));
    Table compact = tableOf();
    compact.sizes = box("stz2", numbers({0, 8, 4}) + QByteArray::fromHex("1e293417"));
    Table short_ = tableOf();
    short_.sizes = box("stsz", numbers({0, 0, 0xffffffff}) + numbers(kSizes));
    Table off = tableOf();
    off.offsets = box("stco", numbers({0}) + list({31, 109}));
    struct Case {
        const char* name;
        QByteArray file;
    };
    const Case cases[] = {
        {"index last", indexLast(tableOf())},
        {"index first", indexFirst({})},
        {"a large picture before the index", indexFirst(box("udta", box("meta", noise(300'000))))},
        {"a film's track first",
         kType + box("mdat", audio) + box("moov", track(film, "vide") + track(tableOf()) + track(off))},
        {"a track that is off first",
         kType + box("mdat", audio) + box("moov", track(off, "soun", false) + track(tableOf()))},
        {"a coding that is not known first",
         kType + box("mdat", audio) + box("moov", track(tableOf(soundEntry("ac-3", {}))) + track(tableOf()))},
        {"sizes of a byte", indexLast(compact)},
        {"more sizes claimed than there are", indexLast(short_)},
        {"zeros after the last box of a list",
         kType + box("mdat", audio) + box("moov", track(tableOf()) + QByteArray(4, '\0'))},
        {"a film of QuickTime that has no type",
         box("wide", {}) + box("free", {}) + box("mdat", audio) + box("moov", track(tableOf()))},
    };
    for (const Case& one : cases) {
        for (const qsizetype piece : {1, 7, 2048, 10'000'000}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            const Parsing parsing(one.file, piece);
            EXPECT_EQ(parsing.status, kAudioOk);
            EXPECT_EQ(parsing.listener.packets, kSong);
            EXPECT_EQ(parsing.listener.bound, 53U);
            EXPECT_EQ(parsing.listener.audioDataByteCount, 30 + 41 + 7 + 52 + 23);
        }
    }
}

TEST(Mpeg4ParserTest, TellsOfHeAacHoweverTheFileDoes)
{
    struct Case {
        const char* config;
        double rate; ///< of plain AAC
        std::uint32_t channels;
        double extendedRate; ///< 0: plain AAC alone
        std::uint32_t extendedChannels;
    };
    const Case cases[] = {
        {"1210", 44100, 2, 0, 0},
        {"121056e500", 44100, 2, 0, 0},         // told not to be
        {"2b920800", 22050, 2, 44100, 2},       // explicit
        {"eb8a0800", 22050, 1, 44100, 2},       // explicit, parametric stereo
        {"139056e5a0", 22050, 2, 44100, 2},     // behind what old decoders read
        {"138856e5a54880", 22050, 1, 44100, 2}, // the same, parametric stereo
        {"1690", 0, 0, 0, 0},                   // a rate that is none
        {"f94a0000", 0, 0, 0, 0},               // another coding than AAC
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.config);
        const Parsing parsing(indexLast(tableOf(aacEntry(QByteArray::fromHex(one.config)))));
        if (one.rate == 0) {
            EXPECT_NE(parsing.status, kAudioOk);
            continue;
        }
        EXPECT_EQ(parsing.listener.packets, kSong);
        const AudioStreamDescription plain{.sampleRate = one.rate,
                                           .formatId = audioformat::Aac,
                                           .framesPerPacket = 1024,
                                           .channelsPerFrame = one.channels};
        EXPECT_EQ(parsing.listener.format, plain);
        std::vector<AudioFormatListItem> formats;
        const AudioStatus listed = parsing.stream->formatList(formats);
        if (one.extendedRate == 0) {
            EXPECT_NE(listed, kAudioOk);
            continue;
        }
        ASSERT_EQ(formats.size(), 2U);
        EXPECT_EQ(formats[0].description, (AudioStreamDescription{.sampleRate = one.extendedRate,
                                                                  .formatId = audioformat::HeAac,
                                                                  .framesPerPacket = 2048,
                                                                  .channelsPerFrame = one.extendedChannels}));
        EXPECT_EQ(formats[1].description, plain);
    }
}

TEST(Mpeg4ParserTest, SeeksBeyondTheEndReachTheLastPacket)
{
    const QByteArray file = indexLast(tableOf());
    Parsing parsing(file);
    std::int64_t offset = -1;
    bool estimated = true;
    EXPECT_NE(parsing.stream->seek(-1, offset, estimated), kAudioOk);
    for (const qint64 packet : {qint64{3}, qint64{4}, std::numeric_limits<qint64>::max()}) {
        ASSERT_EQ(parsing.stream->seek(packet, offset, estimated), kAudioOk);
        EXPECT_FALSE(estimated);
        parsing.listener.packets.clear();
        EXPECT_EQ(feed(*parsing.stream, file.mid(24 + offset), 5, true), kAudioOk);
        EXPECT_EQ(parsing.listener.packets, kSong.last(1));
    }
    // A second seek before the first brought a packet.
    ASSERT_EQ(parsing.stream->seek(1, offset, estimated), kAudioOk);
    EXPECT_EQ(feed(*parsing.stream, file.mid(24 + offset, 9), 5, true), kAudioOk);
    ASSERT_EQ(parsing.stream->seek(2, offset, estimated), kAudioOk);
    parsing.listener.packets.clear();
    EXPECT_EQ(feed(*parsing.stream, file.mid(24 + offset), 5, true), kAudioOk);
    EXPECT_EQ(parsing.listener.packets, kSong.last(2));
}

TEST(Mpeg4ParserTest, PlaysNothingOfTablesThatLie)
{
    const auto with = [](QByteArray Table::*part, const QByteArray& value) {
        Table table = tableOf();
        table.*part = value;
        return indexLast(table);
    };
    const QByteArray chunks = numbers({0}) + list({24, 102});
    struct Case {
        const char* name;
        QByteArray file;
        qsizetype packets; ///< that come all the same
        bool refused;
    };
    const Case cases[] = {
        {"no samples", with(&Table::sizes, sizesBox({})), 0, true},
        {"no chunks", with(&Table::offsets, box("stco", numbers({0}) + list({}))), 0, true},
        {"no lengths of chunks", with(&Table::runs, numbers({0, 0})), 0, true},
        {"empty chunks", with(&Table::runs, numbers({0, 1, 1, 0, 1})), 0, true},
        {"lengths that do not begin with the first chunk", with(&Table::runs, numbers({0, 1, 2, 2, 1})), 0,
         true},
        {"lengths that go backwards", with(&Table::runs, numbers({0, 3, 1, 1, 1, 2, 1, 1, 1, 2, 1})), 0,
         true},
        {"overlapping chunks", with(&Table::offsets, box("stco", numbers({0}) + list({24, 50}))), 0, true},
        {"chunks that go backwards", with(&Table::offsets, box("stco", numbers({0}) + list({102, 24}))), 0,
         true},
        {"a sample larger than any", with(&Table::sizes, sizesBox({30, 41, 0x7fffffff, 1})), 0, true},
        {"chunks beyond the end", with(&Table::offsets, box("stco", numbers({0}) + list({24, 0xfffffff0}))),
         2, false},
        {"a chunk where no number reaches",
         with(&Table::offsets, box("co64", numbers({0, 2, 0, 24, 0xffffffff, 0xffffffff}))), 0, true},
        {"a chunk for each of four milliards of samples",
         with(&Table::runs, numbers({0, 1, 1, 0xffffffff, 1})), 4, false},
        {"four milliards of samples of one byte",
         with(&Table::sizes, box("stsz", numbers({0, 1, 0xffffffff}))), 4, false},
        {"empty samples", with(&Table::sizes, sizesBox({30, 0, 0, 52})), 2, false},
        {"more chunks claimed than there are",
         with(&Table::offsets, box("stco", numbers({0, 0xffffffff, 24, 102}))), 4, false},
        {"no index", kType + box("mdat", noise(500), 0), 0, false},
        {"a box smaller than its header", kType + box("free", noise(40), 3), 0, true},
        {"a box larger than what it is in", kType + box("moov", box("trak", noise(20), 0x7fffffff)), 0, true},
        {"no movie in the movie", kType + box("moov", {}), 0, true},
        {"a coding that is not known", with(&Table::entry, soundEntry("ac-3", noise(30))), 0, true},
        {"a description cut off", with(&Table::entry, kAac.left(40)), 0, true},
    };
    for (const Case& one : cases) {
        for (const qsizetype piece : {1, 2048}) {
            SCOPED_TRACE(testing::Message() << one.name << ", pieces of " << piece);
            const Parsing parsing(one.file, piece);
            EXPECT_EQ(parsing.status != kAudioOk, one.refused) << parsing.status;
            EXPECT_EQ(parsing.listener.packets.size(), one.packets);
        }
    }
}

TEST(Mpeg4ParserTest, HoldsABoundedAmountWhereTheIndexIsLast)
{
    Parsing parsing(kType + box("mdat", {}, 0));
    ASSERT_EQ(parsing.status, kAudioOk);
    const QByteArray mebibyte(1 << 20, 'x');
    int fed = 0;
    while (fed < 400 && feed(*parsing.stream, mebibyte, mebibyte.size()) == kAudioOk)
        ++fed;
    EXPECT_EQ(feed(*parsing.stream, mebibyte, mebibyte.size()), kIndexTooLate);
    EXPECT_EQ(fed, 256);
}

TEST(Mpeg4ParserTest, FragmentsThatLieAreRefused)
{
    const QByteArray movie =
        kType + box("moov", track({kAac, sizesBox({}), numbers({0, 0}), box("stco", numbers({0, 0}))}) +
                                box("mvex", box("trex", numbers({0, 1, 1, 1024, 30, 0}))));
    const auto fragment = [&](const QByteArray& header, const QByteArray& run) {
        return movie + box("moof", box("traf", box("tfhd", header) + box("trun", run))) +
               box("mdat", QByteArray(60, 'a'));
    };
    const QByteArray ours = numbers({0x20000, 1});
    struct Case {
        const char* name;
        QByteArray file;
        qsizetype packets;
        bool refused;
    };
    const Case cases[] = {
        {"two of the movie's size", fragment(ours, numbers({1, 2, 60})), 2, false},
        {"one of the fragment's size", fragment(numbers({0x20010, 1, 60}), numbers({1, 1, 64})), 1, false},
        {"another track's", fragment(numbers({0x20000, 2}), numbers({1, 2, 60})), 0, false},
        {"more samples than bytes tell of", fragment(ours, numbers({0x201, 9, 60, 20, 20})), 0, true},
        {"four milliards of samples", fragment(ours, numbers({1, 0xffffffff, 60})), 0, true},
        {"before the file", fragment(ours, numbers({1, 2, 0x80000000})), 0, true},
        {"a sample larger than any", fragment(ours, numbers({0x201, 1, 60, 0xffffffff})), 0, true},
        {"nothing told at all", fragment({}, {}), 0, false},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const Parsing parsing(one.file, 7);
        EXPECT_EQ(parsing.status != kAudioOk, one.refused) << parsing.status;
        EXPECT_EQ(parsing.listener.packets.size(), one.packets);
    }
}

} // namespace
} // namespace zib
