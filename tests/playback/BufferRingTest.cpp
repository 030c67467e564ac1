// SPDX-License-Identifier: GPL-3.0-or-later
// Hunts a ring that loses count of its buffers, wakes nobody, or lets a queue of the past meddle with the
// present one.
#include "playback/BufferRing.h"

#include "platform/AudioQueue.h"

#include <gtest/gtest.h>

#include <thread>

namespace zib {
namespace {

class BufferRingTest : public testing::Test {
  protected:
    BufferRingTest()
    {
        BufferRing::Buffers all{};
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = &buffers[i];
        ring.assign(all, &queue);
    }

    std::array<AudioQueueBuffer, BufferRing::size> buffers;
    int queue = 0;
    int otherQueue = 0;
    BufferRing ring;
};

TEST_F(BufferRingTest, CountsWhatTheQueueHolds)
{
    ring.handOver(0);
    ring.handOver(1);
    EXPECT_EQ(ring.used(), 2);
    EXPECT_EQ(ring.giveBack(&queue, buffers[1]), BufferRing::GivenBack::Yes);
    EXPECT_EQ(ring.used(), 1);
}

TEST_F(BufferRingTest, TellsStrangersFromItsOwn)
{
    ring.handOver(0);
    AudioQueueBuffer stranger;
    EXPECT_EQ(ring.giveBack(&queue, stranger), BufferRing::GivenBack::UnknownBuffer);
    EXPECT_EQ(ring.giveBack(&otherQueue, buffers[0]), BufferRing::GivenBack::NotOurQueue);
    EXPECT_EQ(ring.used(), 1);
    ring.clear();
    EXPECT_EQ(ring.giveBack(&queue, buffers[0]), BufferRing::GivenBack::NotOurQueue);
    EXPECT_EQ(ring.used(), 0);
}

TEST_F(BufferRingTest, AFreeBufferIsNotWaitedFor)
{
    ring.handOver(0);
    ring.waitUntilFree(1);
    SUCCEED();
}

TEST_F(BufferRingTest, WaitingEndsWithTheVeryBuffer)
{
    ring.handOver(0);
    ring.handOver(1);
    std::atomic<bool> waiting = true;
    std::thread waiter([&] {
        ring.waitUntilFree(0);
        waiting = false;
    });
    ring.giveBack(&queue, buffers[1]);
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_TRUE(waiting);
    ring.giveBack(&queue, buffers[0]);
    waiter.join();
}

TEST_F(BufferRingTest, WaitingCanBeGivenUpAndTakenUpAgain)
{
    ring.handOver(0);
    std::thread waiter([&] { ring.waitUntilFree(0); });
    ring.giveUpWaiting();
    waiter.join();
    ring.waitUntilFree(0); // given up stays given up

    ring.resumeWaiting();
    std::thread second([&] { ring.waitUntilFree(0); });
    ring.giveBack(&queue, buffers[0]);
    second.join();
}

} // namespace
} // namespace zib
