#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/simulated/simulated_machine.h"

namespace nerolith::platform::simulated {
namespace {

using Names = std::vector<std::string>;

TEST(SimulatedFiles, AWindowsMachineIgnoresTheCaseOfNames) {
  SimulatedMachine machine;
  machine.files.addFile("C:\\Music\\Song.MP3", {.modified = 45000.5});
  EXPECT_EQ(machine.files.lastModified("c:\\MUSIC\\song.mp3"), 45000.5);
  EXPECT_EQ(machine.files.folders("c:\\"), (Names{"Music", "Program Files", "Users"}));
  EXPECT_EQ(machine.files.files("C:\\music\\", "*.mp?"), Names{"Song.MP3"});
}

TEST(SimulatedFiles, ALinuxMachineKeepsCaseApartAndHidesDots) {
  SimulatedMachine machine('/');
  machine.files.addFile("/m/Song.mp3");
  machine.files.addFile("/m/.hidden.mp3");
  EXPECT_FALSE(machine.files.fileExists("/m/song.mp3"));
  EXPECT_TRUE(machine.files.fileExists("/m/.hidden.mp3"));
  EXPECT_EQ(machine.files.files("/m", "*"), Names{"Song.mp3"});
  EXPECT_EQ(machine.files.ancestors("/m"), (Names{"/", "/m"}));
}

TEST(SimulatedFiles, EachDriveRemembersItsFolderAndMayBePulledOut) {
  SimulatedMachine machine;
  machine.files.addDrive("D:\\", "D: [STICK]");
  machine.files.addFolder("D:\\Rock");
  EXPECT_EQ(machine.files.currentFolderOf("D:\\"), "D:\\");
  machine.files.setCurrentDirectory("D:\\Rock");
  EXPECT_EQ(machine.files.currentFolderOf("C:\\"), "C:\\Users\\User");
  EXPECT_EQ(machine.files.currentFolderOf("D:\\"), "D:\\Rock");
  EXPECT_EQ(machine.files.driveOf("d:\\rock"), "D:\\");
  machine.files.removeDrive("D:\\");
  EXPECT_THROW(machine.files.folders("D:\\"), Failure);
  EXPECT_THROW(machine.files.driveOf("D:\\Rock"), Failure);
  EXPECT_EQ(machine.files.drives().size(), 1u);
}

TEST(SimulatedFiles, AnUnreadableFolderIsThereButCannotBeListed) {
  SimulatedMachine machine;
  machine.files.setUnreadable("C:\\Closed");
  EXPECT_TRUE(machine.files.folderExists("C:\\Closed"));
  EXPECT_THROW(machine.files.files("C:\\Closed", "*"), Failure);
  machine.files.setUnreadable("C:\\Closed", false);
  EXPECT_EQ(machine.files.files("C:\\Closed", "*"), Names());
}

TEST(SimulatedFiles, AReadOnlyFileIsDeletedOnlyOncePlain) {
  SimulatedMachine machine;
  machine.files.addFile("C:\\a.mp3", {.readOnly = true});
  EXPECT_THROW(machine.files.deleteFile("C:\\a.mp3"), Failure);
  machine.files.makePlainArchive("C:\\a.mp3");
  machine.files.deleteFile("C:\\a.mp3");
  EXPECT_FALSE(machine.files.fileExists("C:\\a.mp3"));
  EXPECT_EQ(machine.trace(),
            "files.delete C:\\a.mp3 failed | files.plain C:\\a.mp3 | files.delete C:\\a.mp3");
}

TEST(SimulatedFiles, ARemovedFolderTakesAllInItAlongAndNothingElse) {
  SimulatedMachine machine;
  machine.files.addFile("C:\\Rock\\Live\\a.mp3");
  machine.files.addFile("C:\\Rocks\\b.mp3");
  machine.files.remove("C:\\Rock");
  EXPECT_FALSE(machine.files.folderExists("C:\\Rock\\Live"));
  EXPECT_FALSE(machine.files.fileExists("C:\\Rock\\Live\\a.mp3"));
  EXPECT_TRUE(machine.files.fileExists("C:\\Rocks\\b.mp3"));
}

}  // namespace
}  // namespace nerolith::platform::simulated
