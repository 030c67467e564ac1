// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts for packets that a reader loses because they would fill its buffer exactly, and for ones made longer
// than its buffer.
#include "platform/desktop/parsers/FittedFileStreams.h"
#include "platform/AudioQueue.h"
#include "tests/fakes/FakeAudioFileStreams.h"

#include <QList>

#include <gtest/gtest.h>

#include <random>

namespace zib {
namespace {

/// Fills its buffer as the streamer does, and counts what it drops.
struct Reader : AudioFileStreamClient {
    void propertyFound(AudioFileStream& stream, AudioFileStreamProperty property) override
    {
        if (property == AudioFileStreamProperty::ReadyToProducePackets) {
            EXPECT_EQ(stream.packetSizeUpperBound(bound), kAudioOk);
        }
    }
    void packetsProduced(std::span<const std::byte> bytes, std::uint32_t /*packetCount*/,
                         std::span<const AudioPacketDescription> descriptions) override
    {
        for (const AudioPacketDescription& packet : descriptions) {
            const std::size_t size = packet.dataByteSize;
            if (bound - filled < size)
                filled = count = 0;
            if (filled + size >= bound) {
                dropped += descriptions.size();
                return;
            }
            filled += size;
            if (++count == kPacketsPerBuffer)
                filled = count = 0;
            packets.append(QByteArray(reinterpret_cast<const char*>(bytes.data()) + packet.startOffset,
                                      static_cast<qsizetype>(size)));
        }
    }

    std::uint32_t bound = 0;
    std::size_t filled = 0;
    std::size_t count = 0;
    std::size_t dropped = 0;
    QList<QByteArray> packets;
};

TEST(FittedFileStreamsTest, NoPacketIsLostToABufferThatItWouldFill)
{
    const struct {
        const char* name;
        int least;
        int most;
    } sizes[] = {{"any", 4, 999},
                 {"few to a buffer", 300, 999},
                 {"one size", 250, 250},
                 {"tiny", 4, 5},
                 {"half of the buffer", 500, 500}};
    for (const auto& size : sizes) {
        SCOPED_TRACE(size.name);
        FakeAudioFileStreams parsers;
        parsers.file.packetSizeUpperBound = size.most == 5 ? 4096 : 1000;
        std::mt19937 random(7);
        std::uniform_int_distribution<int> bytes(size.least, size.most);
        QList<QByteArray> song;
        for (int i = 0; i < 20'000; ++i)
            song.append(FakeAudioFile::packet(bytes(random)));

        Reader reader;
        AudioStatus status = kAudioOk;
        const auto stream = FittedFileStreams(parsers).open(AudioFileType::Mp3, reader, status);
        ASSERT_TRUE(stream);
        const auto feed = [&](const QByteArray& file, bool discontinuous) {
            stream->parseBytes(
                std::as_bytes(std::span(file.constData(), static_cast<std::size_t>(file.size()))),
                discontinuous);
        };
        feed(song.first(10'000).join(), false);
        std::int64_t offset = 0;
        bool estimated = false;
        stream->seek(10'000, offset, estimated);
        reader.filled = reader.count = 0;
        feed(song.sliced(10'000).join(), true);

        EXPECT_EQ(reader.dropped, 0U);
        ASSERT_EQ(reader.packets.size(), song.size());
        for (qsizetype i = 0; i < song.size(); ++i)
            ASSERT_TRUE(reader.packets[i] == song[i] || reader.packets[i] == song[i] + '\0') << i;
    }
}

} // namespace
} // namespace zib
