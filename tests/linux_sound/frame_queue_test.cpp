#include "platform/linux/sound/frame_queue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

namespace nerolith::sound {
namespace {

void fill(FrameQueue& queue, std::size_t count, float first) {
  while (count > 0) {
    const auto room = queue.writable();
    const std::size_t piece = std::min(room.size(), count);
    ASSERT_GT(piece, 0U);
    for (std::size_t i = 0; i < piece; ++i) room[i].left = first++;
    queue.commit(piece);
    count -= piece;
  }
}

TEST(FrameQueue, GivesBackInOrderAcrossTheRingsEnd) {
  FrameQueue queue(8);
  fill(queue, 6, 0);
  queue.consume(5);
  fill(queue, 7, 6);
  float next = 5;
  while (!queue.readable().empty()) {
    for (const Frame& frame : queue.readable()) EXPECT_EQ(frame.left, next++);
    queue.consume(queue.readable().size());
  }
  EXPECT_EQ(next, 13);
}

TEST(FrameQueue, OffersNoRoomWhenFull) {
  FrameQueue queue(4);
  fill(queue, 4, 0);
  EXPECT_TRUE(queue.writable().empty());
  EXPECT_EQ(queue.size(), 4U);
}

TEST(FrameQueue, IsDrainedOnlyWhenFinishedAndEmpty) {
  FrameQueue queue(4);
  EXPECT_FALSE(queue.drained());
  fill(queue, 1, 0);
  queue.finish();
  EXPECT_FALSE(queue.drained());
  queue.consume(1);
  EXPECT_TRUE(queue.drained());
}

TEST(FrameQueue, ResetEmptiesAndForgetsTheEnd) {
  FrameQueue queue(4);
  fill(queue, 3, 0);
  queue.finish();
  queue.reset();
  EXPECT_EQ(queue.size(), 0U);
  EXPECT_FALSE(queue.drained());
}

TEST(FrameQueue, LosesNothingBetweenTwoThreads) {
  FrameQueue queue(97);
  constexpr int kFrames = 1 << 20;  // all whole numbers that a float holds exactly, and fewer
  std::thread producer([&queue] {
    int next = 0;
    while (next < kFrames) {
      const auto room = queue.writable();
      const auto count = std::min(room.size(), static_cast<std::size_t>(kFrames - next));
      for (std::size_t i = 0; i < count; ++i) room[i].left = static_cast<float>(next++);
      queue.commit(count);
      if (count == 0) std::this_thread::yield();
    }
    queue.finish();
  });
  int expected = 0;
  bool inOrder = true;
  while (!queue.drained()) {
    const auto waiting = queue.readable();
    for (const Frame& frame : waiting) inOrder &= frame.left == static_cast<float>(expected++);
    queue.consume(waiting.size());
    if (waiting.empty()) std::this_thread::yield();
  }
  producer.join();
  EXPECT_TRUE(inOrder);
  EXPECT_EQ(expected, kFrames);
}

}  // namespace
}  // namespace nerolith::sound
