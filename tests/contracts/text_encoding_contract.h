// What every text encoding promises, whatever the machine.
//
// A backend for the suite is a default-constructible struct with
//   platform::TextEncoding& encoding();
#pragma once

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "platform/text_encoding.h"

namespace nerolith::contracts {

template <typename Backend>
class TextEncodingContract : public ::testing::Test {
 protected:
  std::string textOf(const std::string& bytes) { return backend.encoding().textOf(bytes); }
  std::string bytesOf(const std::string& text) { return backend.encoding().bytesOf(text); }
  std::string back(const std::string& text) { return textOf(bytesOf(text)); }

  Backend backend;
};

TYPED_TEST_SUITE_P(TextEncodingContract);

TYPED_TEST_P(TextEncodingContract, AsciiStaysAsItIs) {
  std::string ascii;
  for (char c = 0; c < 127; ++c) ascii += c;
  EXPECT_EQ(this->textOf(ascii), ascii);
  EXPECT_EQ(this->bytesOf(ascii), ascii);
  EXPECT_EQ(this->textOf(""), "");
  EXPECT_EQ(this->bytesOf(""), "");
}

TYPED_TEST_P(TextEncodingContract, NoNameIsLost) {
  for (const std::string text :
       {"/m/Caf\xC3\xA9.mp3", "/m/\xE2\x98\x83.mp3", "/m/\xC3\x83\xC2\xA9.mp3",
        "/m/\xD0\x9C\xD0\xB8\xD1\x80.mp3", "/m/\xF0\x9F\x8E\xB5.mp3", "/m/\xE2\x82\xAC 100.mp3",
        "/m/\xC2\x80\xC2\x9F.mp3", "/m/\xE6\x97\xA5\xE6\x9C\xAC\xE3\x81\xAE.mp3",
        "/m/\xE2\x80\x9Cquoted\xE2\x80\x9D.mp3", "/m/e\xCC\x81.mp3", "/m/\xED\xA0\x80 alone.mp3",
        "/m/\xEF\xBC\xA1.mp3", "/m/\xC2\xA0.mp3", "\xC3\xAF\xC2\xBB\xC2\xBF.mp3"})
    EXPECT_EQ(this->back(text), text);
}

TYPED_TEST_P(TextEncodingContract, Utf8IsReadAsSuch) {
  EXPECT_EQ(this->textOf("/m/Caf\xC3\xA9.mp3"), "/m/Caf\xC3\xA9.mp3");
  EXPECT_EQ(this->textOf("/m/\xE2\x98\x83.mp3"), "/m/\xE2\x98\x83.mp3");
}

TYPED_TEST_P(TextEncodingContract, WhateverItsBytesALineIsTheSameNameAfterARewrite) {
  std::mt19937 random(5);
  for (int round = 0; round < 20000; ++round) {
    std::string bytes;
    const unsigned length = 1 + random() % 8;
    for (unsigned i = 0; i < length; ++i) bytes += static_cast<char>(random() % 256);
    const std::string text = this->textOf(bytes);
    ASSERT_EQ(this->back(text), text) << testing::PrintToString(bytes);
  }
}

TYPED_TEST_P(TextEncodingContract, EveryPairOfHighBytesIsTheSameNameAfterARewrite) {
  for (int first = 128; first < 256; ++first)
    for (int second = 0; second < 256; ++second) {
      const std::string bytes{static_cast<char>(first), static_cast<char>(second)};
      const std::string text = this->textOf(bytes);
      ASSERT_EQ(this->back(text), text) << first << ' ' << second;
    }
}

REGISTER_TYPED_TEST_SUITE_P(TextEncodingContract, AsciiStaysAsItIs, NoNameIsLost, Utf8IsReadAsSuch,
                            WhateverItsBytesALineIsTheSameNameAfterARewrite,
                            EveryPairOfHighBytesIsTheSameNameAfterARewrite);

}  // namespace nerolith::contracts
