#include "platform/linux/desktop/file_url.h"

#include <gtest/gtest.h>

namespace nerolith::desktop {
namespace {

TEST(FileUrl, PlainNamesStayAsTheyAre) {
  EXPECT_EQ(fileUrl("/music/a-b_c.~1.mp3"), "file:///music/a-b_c.~1.mp3");
}

TEST(FileUrl, EveryOtherByteIsEscapedAndComesBack) {
  const std::string path = "/m/50% #1?/\"\n\xC3\xA9\xFF+ &.mp3";
  EXPECT_EQ(fileUrl(path), "file:///m/50%25%20%231%3F/%22%0A%C3%A9%FF%2B%20%26.mp3");
  EXPECT_EQ(pathOfUrl(fileUrl(path)), path);
}

TEST(FileUrl, TakesTheFormsThatProgramsWrite) {
  EXPECT_EQ(pathOfUrl("file:///m/a%20b.mp3"), "/m/a b.mp3");
  EXPECT_EQ(pathOfUrl("file://localhost/m/a.mp3"), "/m/a.mp3");
  EXPECT_EQ(pathOfUrl("file:///m/a b.mp3"), "/m/a b.mp3");
  EXPECT_EQ(pathOfUrl("/m/50%.mp3"), "/m/50%.mp3");
}

TEST(FileUrl, RefusesWhatIsNoFileOfThisMachine) {
  for (const char* url : {"", "http://host/a.mp3", "file://host/a.mp3", "file:", "a.mp3",
                          "file:///a%2", "file:///a%zz", "file:///a%00b", "file:///a%"})
    EXPECT_EQ(pathOfUrl(url), std::nullopt) << url;
}

}  // namespace
}  // namespace nerolith::desktop
