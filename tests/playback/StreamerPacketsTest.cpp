// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts bytes that get lost, doubled or written beyond a buffer on the way from the parser to the output.
#include "StreamerFixture.h"

#include <limits>
#include <numeric>

namespace zib {
namespace {

class StreamerPacketsTest : public StreamerFixture {
  protected:
    /// Sends the pieces so that each is parsed on its own.
    void sendApart(const QList<QByteArray>& pieces)
    {
        exchange().respond({{"Content-Length", "1000000"}});
        for (const QByteArray& piece : pieces) {
            exchange().send(piece);
            ASSERT_TRUE(allRead());
        }
    }
    /// Ends the download of a short song and plays it. @return the sizes of the buffers that were heard.
    QList<qsizetype> heardSizes()
    {
        exchange().end();
        EXPECT_TRUE(reaches(State::Stopping));
        if (!output())
            return {};
        output()->playAll();
        EXPECT_TRUE(reaches(State::Initialized));
        QList<qsizetype> sizes;
        for (const auto& buffer : output()->everythingEnqueued())
            sizes.append(buffer.bytes.size());
        return sizes;
    }
    void useConstantPackets(std::uint32_t bytesPerPacket)
    {
        files.file.format = {.sampleRate = 44100,
                             .formatId = audioformat::LinearPcm,
                             .bytesPerPacket = bytesPerPacket,
                             .framesPerPacket = 1,
                             .bytesPerFrame = bytesPerPacket,
                             .channelsPerFrame = 2,
                             .bitsPerChannel = 16};
    }
};

TEST_F(StreamerPacketsTest, DescriptionsCountFromTheBufferNotFromTheBatch)
{
    startRequest();
    sendApart({FakeAudioFile::packets(2, 300), FakeAudioFile::packets(2, 500)});
    EXPECT_EQ(heardSizes(), QList<qsizetype>{1600});
    const auto packets = output()->everythingEnqueued().front().packets;
    ASSERT_EQ(packets.size(), 4U);
    const std::int64_t offsets[] = {0, 300, 600, 1100};
    for (std::size_t i = 0; i < packets.size(); ++i)
        EXPECT_EQ(packets[i].startOffset, offsets[i]);
    EXPECT_EQ(packets.back().dataByteSize, 500U);
}

TEST_F(StreamerPacketsTest, APacketThatWouldFillTheBufferExactlyEndsItsBatch)
{
    files.file.packetSizeUpperBound = 400;
    startRequest();
    sendApart({FakeAudioFile::packets(3, 100), FakeAudioFile::packet(100) + FakeAudioFile::packet(50),
               FakeAudioFile::packet(101)});
    EXPECT_EQ(heardSizes(), (QList<qsizetype>{300, 101}));
}

TEST_F(StreamerPacketsTest, APacketThatDoesNotFitGoesIntoTheNextBuffer)
{
    files.file.packetSizeUpperBound = 400;
    startRequest();
    sendApart({FakeAudioFile::packets(3, 100), FakeAudioFile::packets(2, 120)});
    EXPECT_EQ(heardSizes(), (QList<qsizetype>{300, 240}));
}

TEST_F(StreamerPacketsTest, ABufferHoldsAtMost512Packets)
{
    startRequest();
    sendApart({FakeAudioFile::packets(400, 4), FakeAudioFile::packets(200, 4)});
    EXPECT_EQ(heardSizes(), (QList<qsizetype>{512 * 4, 88 * 4}));
    EXPECT_EQ(output()->everythingEnqueued().front().packets.size(), 512U);
}

TEST_F(StreamerPacketsTest, BytesOfConstantPacketsFillBuffersTo2048)
{
    useConstantPackets(4);
    startRequest();
    sendApart({QByteArray(1000, 'a'), QByteArray(1000, 'b'), QByteArray(1000, 'c'), QByteArray(4096, 'd')});
    // A piece that does not fit whole begins the next buffer; only one longer than a buffer is cut.
    EXPECT_EQ(heardSizes(), (QList<qsizetype>{2000, 1000, 2048, 2048}));
    EXPECT_EQ(output()->bufferCapacity(), 4096U);
    EXPECT_TRUE(output()->everythingEnqueued().front().packets.empty());
}

TEST_F(StreamerPacketsTest, ConstantPacketsNeverRunOverASmallBuffer)
{
    useConstantPackets(4);
    files.file.packetSizeUpperBound = 1000;
    startRequest();
    sendApart({QByteArray(2000, 'a'), QByteArray(100, 'b')});
    EXPECT_EQ(heardSizes(), QList<qsizetype>{1000}); // a full buffer takes no more
}

TEST_F(StreamerPacketsTest, BuffersAreAsLargeAsTheParserSays)
{
    struct Case {
        std::uint32_t upperBound, maximum, capacity;
    };
    for (const Case& c : {Case{3000, 5000, 3000}, {0, 5000, 5000}, {0, 0, 2048}}) {
        files.file.packetSizeUpperBound = c.upperBound;
        files.file.maximumPacketSize = c.maximum;
        const std::size_t before = queues.outputs().size();
        streamer.reset();
        startRequest();
        respondAndSend(FakeAudioFile::packet(100));
        ASSERT_TRUE(
            eventually([&] { return queues.outputs().size() > before && output()->bufferCapacity() > 0; }));
        EXPECT_EQ(output()->bufferCapacity(), c.capacity);
        streamer->stop();
    }
}

TEST_F(StreamerPacketsTest, TakesHeAacOnlyFromEvery48thFormat)
{
    const auto list = [](std::size_t size, std::size_t heAacAt) {
        std::vector<AudioFormatListItem> formats(size);
        for (auto& item : formats)
            item.description = {.sampleRate = 22050, .formatId = audioformat::Aac, .framesPerPacket = 1024};
        if (heAacAt < size)
            formats[heAacAt].description = {
                .sampleRate = 44100, .formatId = audioformat::HeAac, .framesPerPacket = 2048};
        return formats;
    };
    struct Case {
        std::size_t size, heAacAt;
        std::uint32_t expected;
    };
    for (const Case& c : {Case{2, 0, audioformat::HeAac},
                          {2, 1, audioformat::Aac},
                          {48, 47, audioformat::Aac},
                          {49, 48, audioformat::HeAac},
                          {3, 9, audioformat::Aac}}) {
        SCOPED_TRACE(c.heAacAt);
        files.file.format = {.sampleRate = 22050, .formatId = audioformat::Aac, .framesPerPacket = 1024};
        files.file.formatList = list(c.size, c.heAacAt);
        const std::size_t before = queues.outputs().size();
        streamer.reset();
        startRequest();
        respondAndSend(FakeAudioFile::packet(100));
        ASSERT_TRUE(eventually([&] { return queues.outputs().size() > before; }));
        EXPECT_EQ(output()->format().formatId, c.expected);
        streamer->stop();
    }
}

TEST_F(StreamerPacketsTest, HandsTheMagicCookieOnAndLetsItFail)
{
    files.file.magicCookie = {std::byte{1}, std::byte{2}};
    for (const AudioStatus status : {kAudioOk, AudioStatus(-1)}) {
        queues.failures.set(QueueCall::SetMagicCookie, status);
        const std::size_t before = queues.outputs().size();
        streamer.reset();
        startRequest();
        respondAndSend(FakeAudioFile::packets(packetsToPlay, packetBytes));
        ASSERT_TRUE(reaches(State::Playing));
        ASSERT_GT(queues.outputs().size(), before);
        EXPECT_EQ(output()->magicCookie().size(), status == kAudioOk ? 2U : 0U);
        streamer->stop();
        EXPECT_EQ(streamer->errorCode(), ErrorCode::None);
    }
}

TEST_F(StreamerPacketsTest, TheHeaderOfTheFileTellsItsLength)
{
    struct Case {
        std::int64_t dataOffset;
        std::optional<std::uint64_t> byteCount;
        double audioBytes; // of a response of 1000000
    };
    const Case cases[] = {
        {0, {}, 1000000},
        {44, {}, 999956},
        {44, 5000, 5000},
        {0, 5000, 5000},
        {44, std::numeric_limits<std::uint64_t>::max(), 9.2e18},
    };
    for (const Case& c : cases) {
        files.file.dataOffset = c.dataOffset;
        files.file.audioDataByteCount = c.byteCount;
        const std::size_t before = queues.outputs().size();
        make();
        streamer->setBitRate(8); // one byte a second
        startRequest();
        respondAndSend(QByteArray(static_cast<qsizetype>(c.dataOffset), 'h') + FakeAudioFile::packet(100));
        ASSERT_TRUE(eventually([&] { return queues.outputs().size() > before; }));
        EXPECT_NEAR(streamer->duration(), c.audioBytes, c.audioBytes / 100);
        streamer->stop();
    }
}

} // namespace
} // namespace zib
