#include "platform/windows/wide_text.h"

#include <gtest/gtest.h>

namespace nerolith::windows {
namespace {

TEST(WideText, TextsOfAllLengthsComeBack) {
  for (const std::string text : {"", "a", "\xC3\xA9t\xC3\xA9", "\xE2\x98\x83", "\xF0\x9F\x8E\xB5"})
    EXPECT_EQ(utf8Text(wideText(text)), text);
  EXPECT_EQ(wideText("\xF0\x9F\x8E\xB5"), std::wstring({wchar_t(0xD83C), wchar_t(0xDFB5)}));
  EXPECT_EQ(wideText(std::string_view("a\0b", 3)).size(), 3u);
}

TEST(WideText, EveryUnitComesBackEvenASurrogateAlone) {
  for (unsigned unit = 0; unit < 0x10000; ++unit) {
    const std::wstring name{L'x', static_cast<wchar_t>(unit), L'y'};
    ASSERT_EQ(wideText(utf8Text(name)), name) << unit;
  }
  const std::wstring swapped{wchar_t(0xDC00), wchar_t(0xD800)};
  EXPECT_EQ(wideText(utf8Text(swapped)), swapped);
}

TEST(WideText, EveryPairIsOneCharacterOfFourBytes) {
  for (unsigned high = 0xD800; high < 0xDC00; high += 0x3F)
    for (unsigned low = 0xDC00; low < 0xE000; low += 0x3F) {
      const std::wstring pair{static_cast<wchar_t>(high), static_cast<wchar_t>(low)};
      const std::string utf8 = utf8Text(pair);
      ASSERT_EQ(utf8.size(), 4u);
      ASSERT_EQ(wideText(utf8), pair);
    }
}

TEST(WideText, BytesThatAreNoTextAreReplacedOneByOne) {
  EXPECT_EQ(wideText("a\xFFz"), L"a\xFFFDz");
  EXPECT_EQ(wideText("\xC3"), L"\xFFFD");
  EXPECT_EQ(wideText("\xE2\x98"), L"\xFFFD\xFFFD");
  EXPECT_EQ(wideText("\xC0\xAF"), L"\xFFFD\xFFFD");  // a "/" in disguise
  EXPECT_EQ(wideText("\xE0\x80\xAF"), L"\xFFFD\xFFFD\xFFFD");
  EXPECT_EQ(wideText("\xF4\x90\x80\x80").size(), 4u);  // beyond the last character
}

}  // namespace
}  // namespace nerolith::windows
