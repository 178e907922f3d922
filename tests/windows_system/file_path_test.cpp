#include "platform/windows/file_path.h"

#include <gtest/gtest.h>

#include "platform/failure.h"

namespace nerolith::windows {
namespace {

using Names = std::vector<std::string>;

TEST(FilePath, UntidyPathsBecomeTidy) {
  const std::string in = R"(C:\Music)";
  EXPECT_EQ(tidyPath(R"(c:/a//b\.\c\..\d\)", in), R"(C:\a\b\d)");
  EXPECT_EQ(tidyPath(R"(c:\..\..\a)", in), R"(C:\a)");
  EXPECT_EQ(tidyPath("c:", in), R"(C:\)");
  EXPECT_EQ(tidyPath("C:\\", in), R"(C:\)");
  EXPECT_EQ(tidyPath(R"(\\server\share)", in), R"(\\server\share\)");
  EXPECT_EQ(tidyPath(R"(//server/share/a/../b)", in), R"(\\server\share\b)");
  EXPECT_EQ(tidyPath(R"(\\?\C:\a)", in), R"(C:\a)");
  EXPECT_EQ(tidyPath(R"(\\?\UNC\server\share\a)", in), R"(\\server\share\a)");
}

TEST(FilePath, RelativePathsBeginInTheCurrentFolder) {
  const std::string in = R"(C:\Music\Rock)";
  EXPECT_EQ(tidyPath("song.mp3", in), R"(C:\Music\Rock\song.mp3)");
  EXPECT_EQ(tidyPath(R"(..\Jazz)", in), R"(C:\Music\Jazz)");
  EXPECT_EQ(tidyPath(R"(..\..\..\..)", in), R"(C:\)");
  EXPECT_EQ(tidyPath(R"(\a)", in), R"(C:\a)");
  EXPECT_EQ(tidyPath("c:song.mp3", in), R"(C:\Music\Rock\song.mp3)");
  EXPECT_EQ(tidyPath("d:song.mp3", in), R"(D:\song.mp3)");
  EXPECT_EQ(tidyPath("song.mp3", "C:\\"), R"(C:\song.mp3)");
  EXPECT_EQ(tidyPath("song.mp3", R"(\\server\share\)"), R"(\\server\share\song.mp3)");
}

TEST(FilePath, PathsThatNameNoFileAreFailures) {
  for (const char* path : {"", R"(\\.\C:)", R"(\\.\PhysicalDrive0)", R"(\\server)", R"(\\)",
                           R"(\\?\Volume{1}\a)", R"(\\?\UNC\server)", R"(\\\share\a)"})
    EXPECT_THROW(tidyPath(path, "C:\\"), platform::Failure) << path;
  EXPECT_THROW(tidyPath("a.mp3", ""), platform::Failure);
  EXPECT_THROW(tidyPath(std::string("C:\\a.mp3\0.txt", 13), "C:\\"), platform::Failure);
}

TEST(FilePath, TheWayLeadsFromTheRoot) {
  EXPECT_EQ(wayTo("C:\\"), Names{"C:\\"});
  EXPECT_EQ(wayTo(R"(C:\a\b)"), (Names{"C:\\", R"(C:\a)", R"(C:\a\b)"}));
  EXPECT_EQ(wayTo(R"(\\s\h\a)"), (Names{R"(\\s\h\)", R"(\\s\h\a)"}));
}

TEST(FilePath, OnlyWhatTheSystemWouldMisreadIsTakenLiterally) {
  EXPECT_EQ(systemPath(R"(C:\Music\a.mp3)"), LR"(C:\Music\a.mp3)");
  EXPECT_EQ(systemPath(R"(C:\Music\console.mp3)"), LR"(C:\Music\console.mp3)");
  EXPECT_EQ(systemPath(R"(C:\Music\con.mp3)"), LR"(\\?\C:\Music\con.mp3)");
  EXPECT_EQ(systemPath(R"(C:\NUL\a.mp3)"), LR"(\\?\C:\NUL\a.mp3)");
  EXPECT_EQ(systemPath(R"(C:\com7)"), LR"(\\?\C:\com7)");
  EXPECT_EQ(systemPath(R"(C:\dot.\a.mp3)"), LR"(\\?\C:\dot.\a.mp3)");
  EXPECT_EQ(systemPath("C:\\blank "), L"\\\\?\\C:\\blank ");
  EXPECT_EQ(systemPath("C:\\" + std::string(260, 'x')), LR"(\\?\C:\)" + std::wstring(260, L'x'));
  EXPECT_EQ(systemPath(R"(\\s\h\aux)"), LR"(\\?\UNC\s\h\aux)");
  EXPECT_EQ(literalPath(R"(C:\Music\a.mp3)"), LR"(\\?\C:\Music\a.mp3)");
  EXPECT_EQ(literalPath(R"(\\s\h\a.mp3)"), LR"(\\?\UNC\s\h\a.mp3)");
}

}  // namespace
}  // namespace nerolith::windows
