#include "base/file_pattern.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

#include "base/letter_case.h"

namespace nerolith::base {
namespace {

using Names = std::vector<std::string>;

struct Case {
  const char* patterns;
  const char* name;
  bool matches;
};

TEST(FilePattern, AdmitsWhatOneOfThePatternsAdmits) {
  constexpr char kPlayer[] = "*.mp?;*.wav;*wma;*.asf;*.mid;*.ai?";
  const Case cases[] = {
      {kPlayer, "song.mp3", true},
      {kPlayer, "song.mpg", true},
      {kPlayer, "SONG.MP2", true},
      {kPlayer, "song.mp", false},
      {kPlayer, "song.mpeg", false},
      {kPlayer, "songwma", true},
      {kPlayer, "wma", true},
      {kPlayer, "song.WMA", true},
      {kPlayer, "song.wmv", false},
      {kPlayer, "song.aif", true},
      {kPlayer, "song.ai", false},
      {kPlayer, "song.aiff", false},
      {kPlayer, ".mp3", true},
      {kPlayer, "song.mp3.txt", false},
      {kPlayer, "a.mp3 b.mp3", true},
      {kPlayer, "", false},
      {"*", "anything", true},
      {"*", "", true},
      {"", "a", false},
      {";;", "a", false},
      {"**a**", "bab", true},
      {"a*b*c", "aXbYc", true},
      {"a*b*c", "aXcYb", false},
      {"*aab", "aaaab", true},
      {"?", "", false},
      {"?", "ab", false},
      {"[a]", "[a]", true},
      {"[a]", "a", false},
      {" *.mp3 ; *.wav", "a.wav", true},
      {"*.M3U", "list.m3u", true},
  };
  for (const Case& c : cases)
    EXPECT_EQ(FilePattern(c.patterns).matches(c.name), c.matches) << c.patterns << " " << c.name;
}

TEST(FilePattern, AQuestionMarkIsOneCharacterHoweverManyBytesItTakes) {
  EXPECT_TRUE(FilePattern("?.wav").matches("\xC3\xA9.wav"));          // two bytes
  EXPECT_TRUE(FilePattern("?.wav").matches("\xF0\x9F\x8E\xB5.wav"));  // four
  EXPECT_FALSE(FilePattern("??.wav").matches("\xC3\xA9.wav"));
  EXPECT_TRUE(FilePattern("?.wav").matches("\xE9.wav"));  // no UTF-8: one byte
  EXPECT_TRUE(FilePattern("*?.wav").matches("\xE9\xC3\xA9.wav"));
}

TEST(FilePattern, IgnoresTheCaseOfEveryLetterItKnows) {
  EXPECT_TRUE(FilePattern("*\xC3\x89T\xC3\x89").matches("l'\xC3\xA9t\xC3\xA9"));
  EXPECT_TRUE(FilePattern("\xD0\x96*").matches("\xD0\xB6\xD0\xB6"));
}

TEST(FilePattern, ManyStarsOnALongNameTakeNoTime) {
  const std::string name(255, 'a');
  const auto start = std::chrono::steady_clock::now();
  EXPECT_FALSE(FilePattern("*a*a*a*a*a*a*a*a*a*a*b").matches(name));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
}

TEST(LetterCase, KnowsWhereACharacterEnds) {
  EXPECT_EQ(characterLength("a", 0), 1u);
  EXPECT_EQ(characterLength("\xC3\xA9", 0), 2u);
  EXPECT_EQ(characterLength("\xE2\x98\x83", 0), 3u);
  EXPECT_EQ(characterLength("\xC3", 0), 1u);              // cut short
  EXPECT_EQ(characterLength("\xC0\x80", 0), 1u);          // overlong
  EXPECT_EQ(characterLength("\xE0\x80\x80", 0), 1u);      // overlong
  EXPECT_EQ(characterLength("\xED\xA0\x80", 0), 1u);      // a surrogate
  EXPECT_EQ(characterLength("\xF4\x90\x80\x80", 0), 1u);  // beyond the last character
}

TEST(LetterCase, FoldsLettersAndLeavesStrayBytesAlone) {
  EXPECT_EQ(foldCase("AbC 1\xC3\x84\xC5\xBB\xCE\xA9\xD0\x81"),
            "abc 1\xC3\xA4\xC5\xBC\xCF\x89\xD1\x91");
  EXPECT_EQ(foldCase("\xC4\x80"), "\xC4\x81");
  EXPECT_EQ(foldCase("\xC3\x97\xC3\xB7"), "\xC3\x97\xC3\xB7");  // signs, no letters
  EXPECT_EQ(foldCase("A\xFF\xC3"), "a\xFF\xC3");
  EXPECT_EQ(sortKey("\xC3\x89"
                    "dith \xC5\xBD"),
            "edith z");
  EXPECT_EQ(sortKey("\xC3\x97"), "\xC3\x97");
}

// In two pieces: the "d" would count as a digit of the byte before it.
const std::string kAccentedEdith =
    "\xC3\x89"
    "dith";

TEST(SortNames, PutsNamesWhereAPersonLooksForThem) {
  Names names{"zebra", kAccentedEdith, "Edgar", "eel", "apple", "Apple", "10", "2", "_x"};
  sortNames(names);
  EXPECT_EQ(names,
            (Names{"10", "2", "_x", "Apple", "apple", "Edgar", kAccentedEdith, "eel", "zebra"}));
}

TEST(SortNames, TheOrderDoesNotDependOnHowNamesCameIn) {
  Names names;
  for (int i = 0; i < 500; ++i) {
    names.push_back("Common beginning " + std::to_string(i % 50) + std::string(i / 50, 'x'));
    names.push_back("common Beginning " + std::to_string(i % 50) + std::string(i / 50, 'X'));
  }
  Names shuffled = names;
  std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(7));
  sortNames(names);
  sortNames(shuffled);
  EXPECT_EQ(names, shuffled);
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end(),
                             [](const auto& a, const auto& b) { return sortKey(a) < sortKey(b); }));
}

}  // namespace
}  // namespace nerolith::base
