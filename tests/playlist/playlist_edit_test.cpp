#include "playlist/playlist_edit.h"

#include <gtest/gtest.h>

#include "base/failure.h"

namespace nerolith::playlist {
namespace {

TEST(PlaylistEdit, SongsKeepTheirOrderBeforeAndAfterALine) {
  EXPECT_EQ(insertBefore({"a", "b", "c"}, 1, {"x", "y"}, false), (Lines{"a", "x", "y", "b", "c"}));
  EXPECT_EQ(insertAfter({"a", "b", "c"}, 1, {"x", "y"}, false), (Lines{"a", "b", "x", "y", "c"}));
  EXPECT_EQ(insertAfter({"a", "b"}, 1, {"x"}, false), (Lines{"a", "b", "x"}));
}

TEST(PlaylistEdit, WithNoCurrentPositionTheFirstLineCounts) {
  EXPECT_EQ(positionOf(-1), 0);
  EXPECT_EQ(positionOf(3), 3);
  EXPECT_EQ(insertBefore({"a"}, positionOf(-1), {"x", "y"}, false), (Lines{"x", "y", "a"}));
}

TEST(PlaylistEdit, SongsTakeThePlaceOfALine) {
  EXPECT_EQ(replaceLine({"a", "b", "c"}, 1, {"x", "y"}, false), (Lines{"a", "x", "y", "c"}));
  EXPECT_EQ(replaceLine({"a", "b"}, 0, {}, false), (Lines{"b"}));
}

TEST(PlaylistEdit, AFileThatWasEmptyHoldsTheSongsAlone) {
  EXPECT_EQ(insertBefore({}, 0, {"x", "y"}, true), (Lines{"x", "y"}));
  EXPECT_EQ(insertBefore({}, 0, {}, true), Lines{});
}

TEST(PlaylistEdit, AListThatWasEmptiedKeepsAnEmptyLine) {
  EXPECT_EQ(insertBefore({}, 0, {"x", "y"}, false), (Lines{"x", "y", "\r\n"}));
  EXPECT_EQ(insertAfter({}, 0, {"x", "y"}, false), (Lines{"\r\n", "x", "y"}));
  EXPECT_EQ(replaceLine({}, 0, {"x"}, false), (Lines{"x"}));
}

TEST(PlaylistEdit, ALineIsRemovedAndOneThatIsNotThereFails) {
  EXPECT_EQ(removeLine({"a", "b"}, 0), (Lines{"b"}));
  EXPECT_THROW(removeLine({}, 0), base::Failure);
  EXPECT_THROW(removeLine({"a"}, 1), base::Failure);
  EXPECT_THROW(insertBefore({"a"}, 1, {"x"}, false), base::Failure);
}

}  // namespace
}  // namespace nerolith::playlist
