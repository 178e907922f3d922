#include "controls/file_lists.h"

#include <gtest/gtest.h>

#include "controls/event_count.h"

namespace nerolith::controls {
namespace {

TEST(DriveListBox, OnlyAnotherDriveRaisesChange) {
  DriveListBox list;
  const EventCount changes(list.change);
  list.setDrives({{"C:\\", "C:"}, {"D:\\", "D:"}});
  EXPECT_EQ(changes(), 0);
  list.setDrive("D:\\");
  list.setDrive("D:\\");
  EXPECT_EQ(changes(), 1);
}

TEST(DirListBox, OnlyAnotherPathRaisesChange) {
  DirListBox list;
  const EventCount changes(list.change), clicks(list.click);
  list.setPath("/music");
  list.setPath("/music");
  list.setContents({"/", "/music"}, {"jazz"});
  EXPECT_EQ(changes(), 1);
  EXPECT_EQ(clicks(), 0);
}

TEST(DirListBox, AClickOpensNothingAndOpeningIsNoClick) {
  DirListBox list;
  const EventCount changes(list.change), clicks(list.click);
  list.userClick();
  EXPECT_EQ(changes(), 0);
  list.userOpen("/music/jazz");
  EXPECT_EQ(list.path(), "/music/jazz");
  EXPECT_EQ(changes(), 1);
  EXPECT_EQ(clicks(), 1);
}

TEST(FileListBox, OnlyAnotherPathRaisesPathChange) {
  FileListBox list;
  const EventCount changes(list.pathChange);
  list.setPattern("*.mp?");
  list.setNames({"a.mp3"});
  EXPECT_EQ(changes(), 0);
  list.setPath("/music");
  list.setPath("/music");
  EXPECT_EQ(changes(), 1);
  EXPECT_EQ(list.count(), 1);
}

}  // namespace
}  // namespace nerolith::controls
