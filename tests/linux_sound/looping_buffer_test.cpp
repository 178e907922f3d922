#include "platform/linux/sound/looping_buffer.h"

#include <gtest/gtest.h>

#include <string>

namespace nerolith::sound {
namespace {

void append(LoopingBuffer& buffer, const std::string& text) {
  buffer.append(std::as_bytes(std::span(text)));
}

std::string textAt(const LoopingBuffer& buffer, std::size_t start, std::size_t count) {
  std::string text(count, '?');
  buffer.read(start, std::as_writable_bytes(std::span(text)));
  return text;
}

TEST(LoopingBuffer, BeginsAtZeroFilledWithSilence) {
  const LoopingBuffer buffer(4);
  EXPECT_EQ(buffer.position(), 0U);
  EXPECT_EQ(textAt(buffer, 0, 4), std::string(4, '\0'));
}

TEST(LoopingBuffer, PositionIsBehindWhatArrived) {
  LoopingBuffer buffer(8);
  append(buffer, "abc");
  append(buffer, "de");
  EXPECT_EQ(buffer.position(), 5U);
  EXPECT_EQ(textAt(buffer, 0, 5), "abcde");
}

TEST(LoopingBuffer, WritingGoesRoundAtTheEnd) {
  LoopingBuffer buffer(8);
  append(buffer, "abcdef");
  append(buffer, "ghij");
  EXPECT_EQ(buffer.position(), 2U);
  EXPECT_EQ(textAt(buffer, 0, 8), "ijcdefgh");
}

TEST(LoopingBuffer, FilledToItsLastByteItStandsAtZeroAgain) {
  LoopingBuffer buffer(4);
  append(buffer, "abcd");
  EXPECT_EQ(buffer.position(), 0U);
}

TEST(LoopingBuffer, ReadingGoesRoundAtTheEnd) {
  LoopingBuffer buffer(8);
  append(buffer, "abcdefgh");
  EXPECT_EQ(textAt(buffer, 6, 4), "ghab");
  EXPECT_EQ(textAt(buffer, 3, 8), "defghabc");
}

TEST(LoopingBuffer, MoreThanARoundAtOnceKeepsTheNewest) {
  LoopingBuffer buffer(4);
  append(buffer, "abcdefghij");
  EXPECT_EQ(buffer.position(), 2U);
  EXPECT_EQ(textAt(buffer, 0, 4), "ijgh");
}

TEST(LoopingBuffer, HoleIsSilenceThatTakesItsTime) {
  LoopingBuffer buffer(8);
  append(buffer, "abcdefgh");
  append(buffer, "ijkl");
  buffer.appendSilence(6);
  EXPECT_EQ(buffer.position(), 2U);
  EXPECT_EQ(textAt(buffer, 0, 8), std::string("\0\0kl\0\0\0\0", 8));
}

}  // namespace
}  // namespace nerolith::sound
