// SPDX-License-Identifier: GPL-3.0-or-later
// What the streamer relies on of any queue, the real one and the fake: buffers that never come back would
// block its thread for ever, a stop that is not reported would never end, a call that waits for a callback
// would lock both up.
#include "platform/desktop/DesktopAudioQueue.h"
#include "platform/desktop/DesktopSound.h"
#include "platform/desktop/NullOutput.h"
#include "tests/fakes/FakeAudioQueues.h"
#include "tests/support/QueueListener.h"
#include "tests/support/Tones.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace zib::test {
namespace {

class RealQueues {
  public:
    AudioQueues& queues() { return queues_; }
    /// Plays whatever is to be played; the real output does so by itself.
    void play() {}

  private:
    DesktopSound sound_{std::make_unique<NullOutput>(20), std::make_unique<NullOutput>(20)};
    DesktopAudioQueues queues_{sound_};
};

class FakeQueues {
  public:
    AudioQueues& queues() { return queues_; }
    void play() { queues_.outputs().back()->playAll(); }

  private:
    FakeAudioQueues queues_;
};

template <typename Queues>
class AudioQueueContract : public testing::Test {
  protected:
    void SetUp() override
    {
        AudioStatus status = kAudioQueueStopped;
        queue = world.queues().newOutput(pcmFormat(), listener, status);
        ASSERT_TRUE(queue);
        ASSERT_EQ(status, kAudioOk);
        ASSERT_EQ(queue->addIsRunningListener(), kAudioOk);
    }
    void enqueueSeconds(double seconds, int buffers)
    {
        for (int i = 0; i < buffers; ++i)
            ASSERT_EQ(enqueue(*queue, pcm16(tone(440, seconds / buffers), 2)), kAudioOk);
    }

    Queues world;
    std::shared_ptr<QueueListener> listener = std::make_shared<QueueListener>();
    std::unique_ptr<AudioQueue> queue;
    double time = -1;
};

using Both = testing::Types<RealQueues, FakeQueues>;
TYPED_TEST_SUITE(AudioQueueContract, Both);

TYPED_TEST(AudioQueueContract, PlaysOutGivesEachBufferBackInOrderAndReports)
{
    auto& t = *this;
    std::vector<AudioQueueBuffer*> buffers;
    for (int i = 0; i < 15; ++i) {
        AudioQueueBuffer* buffer = nullptr;
        ASSERT_EQ(t.queue->allocateBuffer(8192, buffer), kAudioOk);
        ASSERT_GE(buffer->capacity, 8192U);
        std::memset(buffer->data, 0, buffer->capacity);
        buffer->byteSize = 8192;
        ASSERT_EQ(t.queue->enqueueBuffer(*buffer, {}), kAudioOk);
        buffers.push_back(buffer);
    }
    EXPECT_EQ(t.listener->completed(), 0U) << "nothing is used before the start";
    EXPECT_EQ(t.queue->start(), kAudioOk);
    EXPECT_EQ(t.queue->flush(), kAudioOk);
    EXPECT_EQ(t.queue->stop(false), kAudioOk);
    t.world.play();
    ASSERT_TRUE(t.listener->waitForChanges(2));
    EXPECT_EQ(t.listener->changes(), (std::vector{true, false}));
    EXPECT_EQ(t.listener->completedBuffers(), buffers);
    EXPECT_EQ(t.listener->lastQueue(), t.queue.get());
    EXPECT_EQ(t.queue->currentTime(t.time), kAudioQueueStopped);
}

TYPED_TEST(AudioQueueContract, KeepsTheLastBufferUntilAllIsHeard)
{
    auto& t = *this;
    std::size_t enqueued = 0;
    ASSERT_EQ(t.queue->start(), kAudioOk);
    for (int round = 0; round < 3; ++round) { // it goes on after it has run dry
        t.enqueueSeconds(0.2, 4);
        enqueued += 4;
        t.world.play();
        ASSERT_TRUE(t.listener->waitForCompleted(enqueued));
        EXPECT_EQ(t.queue->currentTime(t.time), kAudioOk);
        EXPECT_DOUBLE_EQ(t.time, 0.2 * (round + 1) * kToneRate);
    }
    t.enqueueSeconds(0.2, 4);
    ASSERT_EQ(t.queue->pause(), kAudioOk) << "a pause keeps what is not heard";
    t.enqueueSeconds(0.2, 1);
    ASSERT_EQ(t.queue->start(), kAudioOk);
    t.world.play();
    ASSERT_TRUE(t.listener->waitForCompleted(enqueued + 5));
    EXPECT_EQ(t.queue->currentTime(t.time), kAudioOk);
    EXPECT_DOUBLE_EQ(t.time, kToneRate);
}

TYPED_TEST(AudioQueueContract, StopsAtOnceWithinTheCall)
{
    auto& t = *this;
    for (int round = 0; round < 3; ++round) { // a seek starts the same queue again
        const auto returned = t.listener->completed();
        const auto reported = t.listener->changes().size();
        t.enqueueSeconds(60, 15);
        ASSERT_EQ(t.queue->start(), kAudioOk);
        ASSERT_TRUE(t.listener->waitForChanges(reported + 1));
        EXPECT_EQ(t.queue->currentTime(t.time), kAudioOk);
        EXPECT_LT(t.time, 40 * kToneRate) << "the time starts anew";
        ASSERT_EQ(t.queue->stop(true), kAudioOk);
        EXPECT_EQ(t.listener->completed(), returned + 15);
        EXPECT_EQ(t.listener->completionThreads().back(), std::this_thread::get_id());
        EXPECT_EQ(t.listener->changes().size(), reported + 2);
        EXPECT_FALSE(t.listener->changes().back());
        EXPECT_EQ(t.queue->currentTime(t.time), kAudioQueueStopped);
    }
}

TYPED_TEST(AudioQueueContract, StoppingWhatDoesNotRunIsNoErrorAndNoNews)
{
    auto& t = *this;
    EXPECT_EQ(t.queue->stop(false), kAudioOk);
    EXPECT_EQ(t.queue->stop(true), kAudioOk);
    t.enqueueSeconds(1, 2);
    EXPECT_EQ(t.queue->stop(true), kAudioOk);
    EXPECT_EQ(t.listener->completed(), 2U) << "the buffers come back all the same";
    EXPECT_TRUE(t.listener->changes().empty());
}

TYPED_TEST(AudioQueueContract, APauseKeepsWhatItHasAndIsNoStop)
{
    auto& t = *this;
    t.enqueueSeconds(30, 3);
    ASSERT_EQ(t.queue->start(), kAudioOk);
    ASSERT_TRUE(t.listener->waitForChanges(1));
    ASSERT_EQ(t.queue->pause(), kAudioOk);
    double before = -1;
    ASSERT_EQ(t.queue->currentTime(before), kAudioOk);
    t.world.play();
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    ASSERT_EQ(t.queue->currentTime(t.time), kAudioOk);
    EXPECT_EQ(t.time, before);
    EXPECT_EQ(t.listener->changes().size(), 1U);
    ASSERT_EQ(t.queue->start(), kAudioOk);
    ASSERT_EQ(t.queue->pause(), kAudioOk);
    ASSERT_EQ(t.queue->stop(false), kAudioOk) << "plays the rest, from the pause";
    t.world.play();
    ASSERT_TRUE(t.listener->waitForChanges(2));
    EXPECT_EQ(t.listener->completed(), 3U);
    EXPECT_EQ(t.listener->changes(), (std::vector{true, false}));
}

TYPED_TEST(AudioQueueContract, MayBeCalledFromWithinItsCallbacks)
{
    auto& t = *this;
    t.listener->onComplete = t.listener->onChange = [&t] {
        double now = 0;
        t.queue->currentTime(now);
        t.queue->setVolume(0.5F);
    };
    t.enqueueSeconds(1, 4);
    ASSERT_EQ(t.queue->start(), kAudioOk);
    t.world.play();
    ASSERT_TRUE(t.listener->waitForCompleted(4));
    t.enqueueSeconds(60, 4);
    EXPECT_EQ(t.queue->stop(true), kAudioOk);
    EXPECT_EQ(t.listener->completed(), 8U);
}

TYPED_TEST(AudioQueueContract, NoCallWaitsForACallbackElsewhere)
{
    auto& t = *this;
    std::mutex held;
    std::atomic<bool> arrived = false;
    std::atomic<bool> left = false;
    t.listener->onComplete = [&] {
        if (arrived.exchange(true))
            return;
        {
            const std::lock_guard guard(held); // as the streamer's callback takes the streamer's lock
        }
        left = true;
    };
    std::thread player;
    {
        const std::lock_guard guard(held);
        t.enqueueSeconds(60, 15);
        ASSERT_EQ(t.queue->start(), kAudioOk);
        player = std::thread([&t] { t.world.play(); });
        while (!arrived)
            std::this_thread::yield();
        EXPECT_EQ(t.queue->currentTime(t.time), kAudioOk);
        EXPECT_EQ(t.queue->pause(), kAudioOk);
        EXPECT_EQ(t.queue->setVolume(0), kAudioOk);
        EXPECT_EQ(t.queue->stop(true), kAudioOk);
        EXPECT_EQ(t.queue->dispose(), kAudioOk);
    }
    player.join();
    while (!left) // what it refers to goes with this function
        std::this_thread::yield();
}

TYPED_TEST(AudioQueueContract, IsSilentOnceDisposedOf)
{
    auto& t = *this;
    t.enqueueSeconds(60, 15);
    ASSERT_EQ(t.queue->start(), kAudioOk);
    EXPECT_EQ(t.queue->pause(), kAudioOk);
    std::this_thread::sleep_for(std::chrono::milliseconds(10)); // for a callback that was on its way
    const auto before = t.listener->completed();
    EXPECT_EQ(t.queue->dispose(), kAudioOk);
    EXPECT_EQ(t.queue->dispose(), kAudioOk);
    t.queue.reset();
    EXPECT_LE(t.listener->completed(), before + 1);
    EXPECT_EQ(t.listener->changes(), std::vector{true});
}

TYPED_TEST(AudioQueueContract, OutlivesItsClient)
{
    auto& t = *this;
    t.enqueueSeconds(2, 4);
    ASSERT_EQ(t.queue->start(), kAudioOk);
    t.listener.reset();
    t.world.play();
    EXPECT_EQ(t.queue->stop(true), kAudioOk);
}

} // namespace
} // namespace zib::test
