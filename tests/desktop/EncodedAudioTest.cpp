// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for frames that hand-made files do not have: what real encoders write must come out packet for packet
// as another demuxer finds it.
#include "tests/desktop/EncodedAudio.h"

namespace zib {
namespace {

using namespace audiofiles;

TEST_F(EncodedAudioTest, MpegPacketsAreThoseThatAnotherDemuxerFinds)
{
    struct Case {
        const char* name;
        const char* options;
        std::uint32_t bound; ///< of the packet size, where the rate is constant
    };
    const Case cases[] = {
        {"constant.mp3", "-ac 2 -ar 44100 -b:a 128k", 419},
        {"constant-without-info.mp3", "-ac 2 -ar 44100 -b:a 128k -write_xing 0 -id3v2_version 0", 1046},
        {"loud.mp3", "-ac 2 -ar 48000 -b:a 320k", 962},
        {"variable.mp3", "-ac 2 -ar 44100 -q:a 2", 1046},
        {"average.mp3", "-ac 2 -ar 44100 -b:a 128k -abr 1", 1046},
        {"mono.mp3", "-ac 1 -ar 32000 -b:a 64k", 290},
        {"half-rate.mp3", "-ac 2 -ar 22050 -b:a 64k", 210},
        {"half-rate-variable.mp3", "-ac 1 -ar 24000 -q:a 5", 482},
        {"quarter-rate.mp3", "-ac 1 -ar 8000 -b:a 16k", 146},
        {"tags.mp3", "-ac 2 -ar 44100 -b:a 192k -metadata title=Zwölf -metadata artist=A -write_id3v1 1",
         628},
        {"cover.mp3",
         "-f lavfi -i testsrc=s=600x600:d=0.04 -map 0:a -map 1:v -c:v png -disposition:v attached_pic "
         "-ac 2 -ar 44100 -b:a 128k",
         419},
        {"layer2.mp2", "-ac 2 -ar 48000 -b:a 192k", 1154},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const QString path = encode(QLatin1String(one.name), one.options);
        const QByteArray file = contents(path);
        const QList<QByteArray> expected = packetDigests(path);
        ASSERT_GT(expected.size(), 30);
        for (const qsizetype piece : {qsizetype{1}, qsizetype{7}, qsizetype{2048}, file.size()}) {
            SCOPED_TRACE(piece);
            Listener listener;
            const auto stream = parsers.open(AudioFileType::Wave, listener, status);
            EXPECT_EQ(feed(*stream, file, piece), kAudioOk);
            EXPECT_EQ(packetDigests(listener.packets), expected);
            EXPECT_EQ(listener.bound, one.bound);
            EXPECT_EQ(listener.dataOffset, file.indexOf(listener.packets.value(0)));
            EXPECT_EQ(listener.audioDataByteCount.value_or(listener.packets.join().size()),
                      listener.packets.join().size());
        }
    }
}

TEST_F(EncodedAudioTest, SeeksInConstantRatesHitThePacket)
{
    for (const char* options : {"-ac 2 -ar 44100 -b:a 128k", "-ac 1 -ar 22050 -b:a 56k -write_xing 0",
                                "-ac 2 -ar 48000 -b:a 256k", "-ac 2 -ar 44100 -b:a 160k -write_xing 0"}) {
        SCOPED_TRACE(options);
        const QByteArray file =
            contents(encode(QStringLiteral("song.mp3"), (QByteArray(options) + " -y").constData()));
        Listener listener;
        const auto stream = parsers.open(AudioFileType::Mp3, listener, status);
        ASSERT_EQ(feed(*stream, file, 2048), kAudioOk);
        const QList<QByteArray> song = listener.packets;
        for (qsizetype packet = 0; packet < song.size() - 2; packet += 9) {
            std::int64_t offset = 0;
            bool estimated = true;
            ASSERT_EQ(stream->seek(packet, offset, estimated), kAudioOk);
            EXPECT_FALSE(estimated);
            listener.packets.clear();
            ASSERT_EQ(feed(*stream, file.mid(listener.dataOffset + offset), 2048, true), kAudioOk);
            ASSERT_EQ(listener.packets, song.mid(packet)) << packet;
        }
    }
}

} // namespace
} // namespace zib
