#include "playlist/playlist_text.h"

#include <gtest/gtest.h>

#include "base/failure.h"
#include "platform/simulated/simulated_encoding.h"

namespace nerolith::playlist {
namespace {

using namespace std::string_literals;
using Entries = std::vector<std::string>;
using platform::simulated::SimulatedEncoding;

Entries read(const std::string& bytes, EmptyLines emptyLines = EmptyLines::Skipped,
             std::size_t block = 1 << 20, char separator = '\\') {
  const SimulatedEncoding encoding(separator);
  PlaylistReader reader(encoding, emptyLines);
  for (std::size_t done = 0; done < bytes.size(); done += block)
    reader.take(std::string_view(bytes).substr(done, block));
  return reader.finish();
}

Entries readKeeping(const std::string& bytes) { return read(bytes, EmptyLines::Kept); }

std::string write(const Entries& lines, char separator = '\\') {
  return playlistBytes(lines, SimulatedEncoding(separator));
}

TEST(PlaylistReader, YieldsOnlyThePathLines) {
  EXPECT_EQ(read("#EXTM3U\r\n#EXTINF:123,Artist - Title\r\nC:\\a.mp3\r\n\r\n#EXTINF:5,B\r\n"
                 "C:\\b.mp3\r\n"),
            (Entries{"C:\\a.mp3", "C:\\b.mp3"}));
}

TEST(PlaylistReader, LeavesOutTheBlanksAtTheEndsOfALine) {
  EXPECT_EQ(read("  C:\\a song.mp3   \r\n"), Entries{"C:\\a song.mp3"});
}

TEST(PlaylistReader, OnlyBlanksAreLeftOut) {
  EXPECT_EQ(read("\ta.mp3\t\r\n"), Entries{"\ta.mp3\t"});
}

TEST(PlaylistReader, KeepsASignInTheMiddleOfAPath) {
  EXPECT_EQ(read("C:\\Song #1.mp3\r\n"), Entries{"C:\\Song #1.mp3"});
}

TEST(PlaylistReader, SkipsACommentWithBlanksInFront) { EXPECT_EQ(read("   #x\r\n"), Entries()); }

TEST(PlaylistReader, TakesARelativePathAsItStands) {
  EXPECT_EQ(read("..\\other\\a.mp3\r\n"), Entries{"..\\other\\a.mp3"});
}

TEST(PlaylistReader, AnEmptyFileHasNoEntries) {
  EXPECT_EQ(read(""), Entries());
  EXPECT_EQ(readKeeping(""), Entries());
}

TEST(PlaylistReader, SkipsEmptyLinesOrKeepsThem) {
  const std::string bytes = "a\r\n\r\n   \r\n#c\r\nb\r\n";
  EXPECT_EQ(read(bytes), (Entries{"a", "b"}));
  EXPECT_EQ(readKeeping(bytes), (Entries{"a", "", "", "b"}));
}

TEST(PlaylistReader, ALineEndClosesALineAndOpensNone) {
  EXPECT_EQ(readKeeping("a\r\n"), Entries{"a"});
  EXPECT_EQ(readKeeping("\r\n"), Entries{""});
  EXPECT_EQ(readKeeping("a\r\n\r\n\r\n"), (Entries{"a", "", ""}));
}

TEST(PlaylistReader, TheLastLineNeedsNoEnd) { EXPECT_EQ(read("a\r\nb"), (Entries{"a", "b"})); }

TEST(PlaylistReader, EveryKindOfLineEndIsOne) {
  EXPECT_EQ(readKeeping("a\nb\rc\r\nd\n\re"), (Entries{"a", "b", "c", "d", "", "e"}));
  EXPECT_EQ(readKeeping("\r"), Entries{""});
  EXPECT_EQ(readKeeping("\n"), Entries{""});
}

TEST(PlaylistReader, ItDoesNotMatterHowTheBytesAreCutIntoBlocks) {
  const std::string bytes =
      "\xEF\xBB\xBF#EXTM3U\r\n  one.mp3 \r\n\r\ntwo.mp3\rthree.mp3\n\n four\r\r\nCaf\xC3\xA9";
  const Entries whole = readKeeping(bytes);
  ASSERT_EQ(whole.size(), 8u);
  for (std::size_t block = 1; block < bytes.size(); ++block)
    EXPECT_EQ(read(bytes, EmptyLines::Kept, block), whole) << block;
}

TEST(PlaylistReader, AByteOrderMarkIsNoPartOfTheFirstPath) {
  EXPECT_EQ(read("\xEF\xBB\xBF"
                 "C:\\a.mp3\r\nC:\\b.mp3\r\n"),
            (Entries{"C:\\a.mp3", "C:\\b.mp3"}));
  EXPECT_EQ(read("\xEF\xBB\xBF#EXTM3U\r\na\r\n"), Entries{"a"});
  EXPECT_EQ(read("\xEF\xBB\xBF"), Entries());
}

TEST(PlaylistReader, AMarkFurtherDownIsPartOfItsLine) {
  EXPECT_EQ(read("a\r\n\xEF\xBB\xBF b\r\n"), (Entries{"a", "\xEF\xBB\xBF b"}));
}

TEST(PlaylistReader, ReadsTheCodePageAndUtf8LineByLine) {
  EXPECT_EQ(read("Caf\xE9.mp3\r\nCaf\xC3\xA9.mp3\r\n"),
            (Entries{"Caf\xC3\xA9.mp3", "Caf\xC3\xA9.mp3"}));
}

TEST(PlaylistReader, OnLinuxALineIsItsBytes) {
  EXPECT_EQ(read("/m/Caf\xE9.mp3\n", EmptyLines::Skipped, 100, '/'), Entries{"/m/Caf\xE9.mp3"});
}

TEST(PlaylistReader, TakesALineOfAMegabyte) {
  const std::string line(1'000'000, 'x');
  EXPECT_EQ(read("a\r\n" + line + "\r\nb\r\n", EmptyLines::Skipped, 4096),
            (Entries{"a", line, "b"}));
}

TEST(PlaylistReader, KeepsZeroBytes) {
  EXPECT_EQ(read("a\0b.mp3\r\n\0\r\n"s), (Entries{"a\0b.mp3"s, "\0"s}));
}

TEST(PlaylistReader, RefusesWhatIsFarTooLongForAPlaylist) {
  const SimulatedEncoding encoding('/');
  PlaylistReader reader(encoding);
  const std::string comment = "#" + std::string((1 << 24) - 2, 'x') + "\n";
  for (int i = 0; i < 32; ++i) reader.take(comment);
  EXPECT_THROW(reader.take("x"), base::Failure);
}

TEST(PlaylistBytes, EachLineEndsWithReturnAndLineFeedAndThereIsNoHeader) {
  EXPECT_EQ(write({"C:\\a.mp3", "", "C:\\b.mp3"}), "C:\\a.mp3\r\n\r\nC:\\b.mp3\r\n");
  EXPECT_EQ(write({}), "");
}

TEST(PlaylistBytes, ALineEndAsALineIsWrittenAsItStands) { EXPECT_EQ(write({"\r\n"}), "\r\n\r\n"); }

TEST(PlaylistBytes, AreInTheCodePageWhereItHoldsThePath) {
  EXPECT_EQ(write({"C:\\Caf\xC3\xA9.mp3"}), "C:\\Caf\xE9.mp3\r\n");
  EXPECT_EQ(write({"C:\\\xE2\x98\x83.mp3"}), "C:\\\xE2\x98\x83.mp3\r\n");
}

TEST(PlaylistBytes, NoNameIsLostWhateverIsInIt) {
  const Entries linux{"/m/line\nbreak.mp3", "/m/return\r.mp3", "/m/blank.mp ", "/m/\xFF\xFE.mp3",
                      "/m/%0A.mp3",         "/m/ #1.mp3",      "/m/\x01.mp3",  "/m/file:\n"};
  EXPECT_EQ(read(write(linux, '/'), EmptyLines::Kept, 5, '/'), linux);
  const Entries windows{"C:\\blank ", "\\\\server\\share\\Caf\xC3\xA9 ", "C:\\a.mp3"};
  EXPECT_EQ(readKeeping(write(windows)), windows);
}

TEST(PlaylistBytes, ANameThatBeginsAsTheMarkDoesKeepsItsBeginning) {
  const Entries entries{"\xEF\xBB\xBF odd.mp3", "b.mp3"};
  EXPECT_EQ(read(write(entries)), entries);
}

TEST(PlaylistBytes, AddressesOfOtherProgramsStandAsTheyAre) {
  for (const std::string line : {"file:///m/a%20b.mp3", "file:///m/a.mp3", "file:///m/%0",
                                 "file:///m/%0a.mp3", "http://radio/%0A", "file://"}) {
    EXPECT_EQ(read(line + "\r\n"), Entries{line});
    EXPECT_EQ(write({line}), line + "\r\n");
  }
}

}  // namespace
}  // namespace nerolith::playlist
