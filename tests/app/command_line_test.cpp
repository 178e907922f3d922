#include "app/command_line.h"

#include <gtest/gtest.h>

namespace nerolith::app {
namespace {

struct Case {
  const char* text;
  const char* fileName;
  const char* mode;
};

TEST(CommandLine, IsSplitAtCommasIntoFileNameAndMode) {
  const Case cases[] = {
      {"a.mp3", "a.mp3", "1"},
      {"a.mp3,3", "a.mp3", "3"},
      {"d:\\music\\a.mp3,2", "d:\\music\\a.mp3", "2"},
      {"my song with blanks.mp3, 2 ", "my song with blanks.mp3", "2"},
      {"a.mp3,2,3", "a.mp3", "2"},
      {",3", "", "3"},
      {"", "", "1"},
      {",", "", "1"},
  };
  for (const Case& c : cases) {
    const CommandLine line = parseCommandLine(c.text);
    EXPECT_EQ(line.fileName, c.fileName) << c.text;
    EXPECT_EQ(line.modeCode, c.mode) << c.text;
  }
}

TEST(CommandLine, TakesANumberBetweenZeroAndFourAloneAsTheMode) {
  for (const char* mode : {"1", "2", "3"}) {
    const CommandLine line = parseCommandLine(mode);
    EXPECT_EQ(line.fileName, "");
    EXPECT_EQ(line.modeCode, mode);
  }
  EXPECT_EQ(parseCommandLine("2,song.mp3").fileName, "");
}

TEST(CommandLine, TakesAnyOtherFirstItemAsTheFileName) {
  for (const char* text : {"0", "4", "-1", "99999999999", "3 Doors.mp3", "1e9", "nan", "inf"}) {
    const CommandLine line = parseCommandLine(text);
    EXPECT_EQ(line.fileName, text);
    EXPECT_EQ(line.modeCode, "1");
  }
}

TEST(CommandLine, IgnoresAModeOutOfRangeBehindTheFileName) {
  for (const char* text : {"a.mp3,0", "a.mp3,4", "a.mp3,x", "a.mp3,-2", "a.mp3,"})
    EXPECT_EQ(parseCommandLine(text).modeCode, "1") << text;
}

TEST(CommandLine, AQuestionMarkAsksForTheUsage) {
  EXPECT_TRUE(parseCommandLine("?").asksForUsage());
  EXPECT_TRUE(parseCommandLine("?,3").asksForUsage());
  EXPECT_FALSE(parseCommandLine("what?.mp3").asksForUsage());
}

TEST(CommandLine, TheFolderOfAFileNameEndsWithItsLastSeparator) {
  EXPECT_EQ(splitPath("d:\\music\\a.mp3", '\\').folder, "d:\\music\\");
  EXPECT_EQ(splitPath("d:\\music\\a.mp3", '\\').name, "a.mp3");
  EXPECT_EQ(splitPath("a.mp3", '\\').folder, "");
  EXPECT_EQ(splitPath("a.mp3", '\\').name, "a.mp3");
  EXPECT_EQ(splitPath("/music/", '/').folder, "/music/");
  EXPECT_EQ(splitPath("/music/", '/').name, "");
}

}  // namespace
}  // namespace nerolith::app
