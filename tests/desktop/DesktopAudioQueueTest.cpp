// SPDX-License-Identifier: GPL-3.0-or-later
// What is heard of a queue, to the sample: a wrong shape of PCM is noise, a packet lost between two buffers
// is a click, a hostile packet must not end the song, and a lost sound server must not lose the place.
#include "platform/desktop/DesktopAudioQueue.h"
#include "platform/desktop/DesktopSound.h"
#include "tests/support/QueueListener.h"
#include "tests/support/SoundRecorder.h"
#include "tests/support/Tones.h"
#include "tests/support/UnreliableServer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <limits>
#include <random>

namespace zib::test {
namespace {

constexpr double kSpeed = 20;

class DesktopAudioQueueTest : public testing::Test {
  protected:
    std::unique_ptr<AudioQueue> open(const AudioStreamDescription& format)
    {
        AudioStatus status = kAudioOk;
        auto queue = queues.newOutput(format, listener, status);
        if (queue)
            queue->addIsRunningListener();
        else
            EXPECT_EQ(status, kAudioBadFormat);
        return queue;
    }
    void playOut(AudioQueue& queue) const
    {
        ASSERT_EQ(queue.start(), kAudioOk);
        ASSERT_EQ(queue.flush(), kAudioOk);
        ASSERT_EQ(queue.stop(false), kAudioOk);
        ASSERT_TRUE(listener->waitForEnd());
    }
    void playUntil(AudioQueue& queue, double frames) const
    {
        double time = 0;
        while (time < frames) {
            ASSERT_EQ(queue.currentTime(time), kAudioOk);
            std::this_thread::yield();
        }
    }

    SoundRecorder recorder;
    UnreliableServer::Switch serverThere = std::make_shared<std::atomic<bool>>(true);
    DesktopSound sound{std::make_unique<UnreliableServer>(serverThere, kSpeed, recorder.ear()),
                       std::make_unique<NullOutput>(kSpeed, recorder.ear())};
    DesktopAudioQueues queues{sound};
    std::shared_ptr<QueueListener> listener = std::make_shared<QueueListener>();
};

struct Shape {
    const char* name;
    std::uint32_t flags;
    std::uint32_t bits;
    std::uint32_t bytes; ///< of one sample
};

/// The value, from -1 to 1, as one sample of that shape.
QByteArray sampleBytes(double value, const Shape& shape)
{
    std::uint64_t bits = 0;
    if (shape.flags & audioformat::IsFloat) {
        bits = shape.bytes == 4 ? std::bit_cast<std::uint32_t>(static_cast<float>(value))
                                : std::bit_cast<std::uint64_t>(value);
    } else {
        const auto full = std::int64_t{1} << (8 * shape.bytes - 1);
        const auto level = std::llround(value * static_cast<double>(full));
        bits = static_cast<std::uint64_t>(shape.flags & audioformat::IsSignedInteger ? level : level + full);
    }
    QByteArray bytes;
    for (std::uint32_t i = 0; i < shape.bytes; ++i)
        bytes.append(static_cast<char>(bits >> (8 * i)));
    if (shape.flags & audioformat::IsBigEndian)
        std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

TEST_F(DesktopAudioQueueTest, PlaysEveryShapeOfPcm)
{
    using namespace audioformat;
    const Shape shapes[] = {
        {"s8", IsSignedInteger, 8, 1},
        {"u8", 0, 8, 1},
        {"s16le", IsSignedInteger | IsPacked, 16, 2},
        {"s16be", IsSignedInteger | IsPacked | IsBigEndian, 16, 2},
        {"s20 in 3 bytes", IsSignedInteger, 20, 3},
        {"s24le", IsSignedInteger | IsPacked, 24, 3},
        {"s24be", IsSignedInteger | IsPacked | IsBigEndian, 24, 3},
        {"s32le", IsSignedInteger | IsPacked, 32, 4},
        {"s32be", IsSignedInteger | IsPacked | IsBigEndian, 32, 4},
        {"f32le", IsFloat | IsPacked, 32, 4},
        {"f32be", IsFloat | IsPacked | IsBigEndian, 32, 4},
        {"f64le", IsFloat | IsPacked, 64, 8},
        {"f64be", IsFloat | IsPacked | IsBigEndian, 64, 8},
    };
    for (const Shape& shape : shapes) {
        SCOPED_TRACE(shape.name);
        const auto before = recorder.samples().size();
        const auto frame = 2 * shape.bytes;
        auto queue = open({48000, LinearPcm, shape.flags, frame, 1, frame, 2, shape.bits, 0});
        ASSERT_TRUE(queue);
        QByteArray bytes;
        for (int i = 0; i < 100; ++i)
            bytes += sampleBytes(0.5, shape) + sampleBytes(-0.25, shape);
        ASSERT_EQ(enqueue(*queue, bytes), kAudioOk);
        playOut(*queue);
        const auto heard = recorder.samples();
        ASSERT_EQ(heard.size(), before + 200);
        EXPECT_EQ(recorder.format(), (SoundFormat{48000, 2}));
        for (std::size_t i = before; i < heard.size(); ++i)
            ASSERT_FLOAT_EQ(heard[i], i % 2 == 0 ? 0.5F : -0.25F) << i - before;
    }
}

TEST_F(DesktopAudioQueueTest, RefusesWhatItCannotPlay)
{
    using namespace audioformat;
    const AudioStreamDescription formats[] = {
        {},
        {44100, fourCharacters("wma2"), 0, 0, 0, 0, 2, 0, 0},
        {0, MpegLayer3, 0, 0, 1152, 0, 2, 0, 0},
        {1e12, MpegLayer3, 0, 0, 1152, 0, 2, 0, 0},
        {std::nan(""), MpegLayer3, 0, 0, 1152, 0, 2, 0, 0},
        {44100, MpegLayer3, 0, 0, 1152, 0, 0, 0, 0},
        {44100, MpegLayer3, 0, 0, 1152, 0, 1000, 0, 0},
        {44100, LinearPcm, IsFloat, 4, 1, 4, 2, 16, 0},
        {44100, LinearPcm, IsSignedInteger, 7, 1, 7, 2, 28, 0},
        {44100, ALaw, 0, 0x7fffffff, 1, 2, 2, 8, 0},
    };
    for (const auto& format : formats)
        EXPECT_FALSE(open(format)) << &format - formats;

    auto queue = open(mp3Format());
    AudioQueueBuffer stranger;
    EXPECT_EQ(queue->enqueueBuffer(stranger, {}), kAudioBadParameter);
    EXPECT_EQ(enqueue(*queue, "bytes"), kAudioBadParameter) << "no description tells the packets' sizes";
    AudioQueueBuffer* buffer = nullptr;
    ASSERT_EQ(queue->allocateBuffer(10, buffer), kAudioOk);
    buffer->byteSize = 11;
    const AudioPacketDescription packet{0, 0, 11};
    EXPECT_EQ(queue->enqueueBuffer(*buffer, {&packet, 1}), kAudioBadParameter);
    buffer->byteSize = 10;
    EXPECT_EQ(queue->enqueueBuffer(*buffer, {&packet, 1}), kAudioOk);
    EXPECT_EQ(queue->enqueueBuffer(*buffer, {&packet, 1}), kAudioBadParameter) << "it is the queue's already";
}

TEST_F(DesktopAudioQueueTest, GoesOnWithinAPacketFromBufferToBuffer)
{
    auto queue = open(pcmFormat());
    const QByteArray song = pcm16(tone(440, 1), 2);
    for (qsizetype at = 0; at < song.size(); at += 2047)
        ASSERT_EQ(enqueue(*queue, song.mid(at, 2047)), kAudioOk);
    playOut(*queue);
    const auto heard = recorder.channel(1);
    const auto expected = tone(440, 1);
    ASSERT_EQ(heard.size(), expected.size());
    for (std::size_t i = 0; i < heard.size(); ++i)
        ASSERT_NEAR(heard[i], expected[i], 1e-4) << i;
}

TEST_F(DesktopAudioQueueTest, PlaysMpegAudioThroughDamage)
{
    const auto packets = mp3Packets(440, 5);
    ASSERT_GT(packets.size(), 190U);
    std::mt19937 random(7);
    std::vector<QByteArray> stream;
    for (std::size_t i = 0; i < packets.size(); ++i) {
        stream.push_back(packets[i]);
        if (i % 20 != 10)
            continue;
        QByteArray garbage(400, '\0');
        std::ranges::generate(garbage, [&random] { return static_cast<char>(random()); });
        stream.insert(stream.end(), {garbage, packets[i].left(40), QByteArray("\xff")});
    }
    auto queue = open(mp3Format());
    for (std::size_t at = 0; at < stream.size(); at += 3)
        ASSERT_EQ(enqueuePackets(*queue, std::span(stream).subspan(at, std::min(3UL, stream.size() - at))),
                  kAudioOk);
    playOut(*queue);
    const auto heard = recorder.channel(0);
    EXPECT_GE(heard.size(), (packets.size() - 1) * 1152);
    EXPECT_LE(heard.size(), (packets.size() + 40) * 1152);
    const auto untouched = std::span(heard).subspan(2304, 7 * 1152);
    EXPECT_NEAR(pitch(untouched), 440, 2);
    EXPECT_NEAR(loudness(untouched), 0.354, 0.02);
    EXPECT_NEAR(loudness(std::span(heard).last(8 * 1152).first(5 * 1152)), 0.354, 0.02) << "it still plays";
}

TEST_F(DesktopAudioQueueTest, IgnoresDescriptionsThatLie)
{
    auto queue = open(pcmFormat());
    const AudioPacketDescription packets[] = {
        {-4, 0, 4}, {0, 0, 0}, {4, 0, 0xffffffff}, {std::numeric_limits<std::int64_t>::max(), 0, 8},
        {9, 0, 4},  {0, 0, 8}, // the only one that stands in the buffer
    };
    ASSERT_EQ(enqueue(*queue, QByteArray(12, '\x20'), packets), kAudioOk);
    playOut(*queue);
    EXPECT_EQ(recorder.samples(), std::vector<float>(4, 0x2020 / 32768.0F));
}

TEST_F(DesktopAudioQueueTest, StartsAnewAfterASeek)
{
    auto queue = open(mp3Format());
    const auto low = mp3Packets(300, 3);
    const auto high = mp3Packets(900, 3);
    ASSERT_EQ(enqueuePackets(*queue, low), kAudioOk);
    ASSERT_EQ(queue->start(), kAudioOk);
    playUntil(*queue, 20000);
    ASSERT_EQ(queue->stop(true), kAudioOk);
    const auto atSeek = recorder.frames();
    EXPECT_GE(atSeek, 20000U);
    ASSERT_EQ(enqueuePackets(*queue, high), kAudioOk);
    playOut(*queue);
    const auto heard = recorder.channel(0);
    ASSERT_GT(heard.size(), atSeek + 2 * kToneRate);
    EXPECT_NEAR(pitch(std::span(heard).first(atSeek).subspan(2304)), 300, 3);
    EXPECT_NEAR(pitch(std::span(heard).subspan(atSeek + 2304, kToneRate)), 900, 3);
}

TEST_F(DesktopAudioQueueTest, AVolumeIsHeardBeforeWhatIsBuffered)
{
    auto queue = open(pcmFormat());
    ASSERT_EQ(queue->setVolume(0.5F), kAudioOk);
    const std::vector<float> level(10 * kToneRate, 0.8F);
    ASSERT_EQ(enqueue(*queue, pcm16(level, 2)), kAudioOk);
    ASSERT_EQ(queue->start(), kAudioOk);
    playUntil(*queue, 2 * kToneRate);
    ASSERT_EQ(queue->pause(), kAudioOk);
    const auto changedAt = recorder.frames();
    ASSERT_EQ(queue->setVolume(7), kAudioOk); // as loud as recorded, no louder
    playOut(*queue);
    const auto heard = recorder.channel(0);
    ASSERT_EQ(heard.size(), level.size()) << "nothing is lost or repeated";
    EXPECT_NEAR(heard[0], 0.4, 1e-3);
    EXPECT_NEAR(heard[changedAt - 1], 0.4, 1e-3);
    EXPECT_NEAR(heard[changedAt + kToneRate / 50], 0.8, 1e-3) << "within 20 ms";
    for (std::size_t i = 1; i < heard.size(); ++i)
        ASSERT_LT(std::abs(heard[i] - heard[i - 1]), 0.01) << "a click";
}

TEST_F(DesktopAudioQueueTest, PlaysOnWhenTheServerGoesAndComes)
{
    std::atomic<int> told = 0;
    QObject::connect(
        &sound, &DesktopSound::noSoundServer, &sound, [&told](const QString&) { ++told; },
        Qt::DirectConnection);
    auto queue = open(pcmFormat());
    ASSERT_EQ(enqueue(*queue, pcm16(tone(440, 100), 2)), kAudioOk);
    ASSERT_EQ(queue->start(), kAudioOk);
    playUntil(*queue, 10 * kToneRate);
    *serverThere = false;
    playUntil(*queue, 20 * kToneRate);
    EXPECT_EQ(told, 1);
    *serverThere = true;
    ASSERT_EQ(queue->stop(false), kAudioOk);
    ASSERT_TRUE(listener->waitForEnd());
    EXPECT_EQ(told, 1);
    const auto heard = recorder.channel(0);
    const auto expected = tone(440, 100);
    ASSERT_EQ(heard.size(), expected.size()) << "nothing is lost or repeated";
    for (std::size_t i = 0; i < heard.size(); ++i)
        ASSERT_NEAR(heard[i], expected[i], 1e-4) << i;
}

TEST_F(DesktopAudioQueueTest, ManyStartsStopsAndLateGoodbyes)
{
    const auto packets = mp3Packets(440, 1);
    for (int round = 0; round < 100; ++round) {
        auto queue = open(mp3Format());
        ASSERT_EQ(enqueuePackets(*queue, packets), kAudioOk);
        ASSERT_EQ(queue->start(), kAudioOk);
        if (round % 3 > 0) {
            ASSERT_EQ(queue->stop(round % 3 == 1), kAudioOk);
        }
    }
}

} // namespace
} // namespace zib::test
