#include "program_fixture.h"

namespace nerolith::app {
namespace {

using StartUp = ProgramTest;

TEST_F(StartUp, AFirstRunStartsWithTheDefaultsAndStoresThem) {
  start();
  EXPECT_EQ(form().Label1.foreColour(), controls::kBasicPalette[2]);
  EXPECT_TRUE(form().Option3.value());
  EXPECT_EQ(form().Check1.value(), 0);
  EXPECT_EQ(machine.trace({Door::Settings}),
            "settings.write Velmarion/Path/path=C:\\Music | "
            "settings.write " +
                kDisplay +
                "/Setting/setting=3 | "
                "settings.write " +
                kDisplay +
                "/Setting/fadelen=5 | "
                "settings.write " +
                kDisplay +
                "/Setting/fadem=10 | "
                "settings.write " +
                kDisplay +
                "/Setting/ti=False | "
                "settings.write " +
                kDisplay +
                "/Setting/color=2 | "
                "settings.write " +
                kDisplay + "/Setting/lo=False");
}

TEST_F(StartUp, ALaterRunStoresNothing) {
  storeEarlierRun("1");
  start();
  EXPECT_EQ(machine.trace({Door::Settings}), "");
}

TEST_F(StartUp, RestoresColourLoopModeAndFolder) {
  storeEarlierRun("2", "C:\\Other");
  storeDisplay("lo", "True");
  addSongs("C:\\Other", 2);
  start();
  EXPECT_EQ(form().Label1.foreColour(), controls::kBasicPalette[10]);
  EXPECT_EQ(form().Check1.value(), 1);
  EXPECT_TRUE(form().Option2.value());
  EXPECT_EQ(form().Text2.text(), "C:\\Other\\");
  EXPECT_EQ(form().List1.count(), 2);
}

TEST_F(StartUp, TheCaptionTellsMajorAndMinorVersion) {
  storeEarlierRun("1");
  start();
  const std::string& caption = form().captionLabel.caption();
  EXPECT_EQ(caption.rfind("Quendrel Nerolith v", 0), 0u) << caption;
  EXPECT_EQ(std::count(caption.begin(), caption.end(), '.'), 1) << caption;
}

class Skin : public ProgramTest {
 protected:
  Skin() {
    storeEarlierRun("1");
    machine.files.setProgramFolder("C:\\Program");
    machine.files.setUserDataFolder("C:\\User");
  }
  void addSkin(const std::string& path, int width) {
    machine.files.addFile(path);
    machine.pictures.add(path, {width, 1, std::vector<std::uint32_t>(width, 0xFF112233u)});
  }
};

TEST_F(Skin, AMissingOneLeavesTheDefaultBackground) {
  start();
  EXPECT_TRUE(form().form.picture().empty());
}

TEST_F(Skin, TheUsersGoesBeforeTheOneBesideTheProgram) {
  addSkin("C:\\Program\\skin.jpg", 1);
  start();
  EXPECT_EQ(form().form.picture().width, 1);
  program.reset();
  addSkin("C:\\User\\skin.jpg", 2);
  start();
  EXPECT_EQ(form().form.picture().width, 2);
}

TEST_F(Skin, ADamagedOneOfTheUsersLeavesTheOneBesideTheProgram) {
  addSkin("C:\\Program\\skin.jpg", 1);
  machine.files.addFile("C:\\User\\skin.jpg");
  start();
  EXPECT_EQ(form().form.picture().width, 1);
}

TEST_F(StartUp, AFolderThatIsGoneGivesWayToTheOneThatTheProgramWasStartedIn) {
  storeEarlierRun("1", "C:\\Gone");
  addSongs("C:\\Music", 3);
  start();
  EXPECT_EQ(form().Text2.text(), "C:\\Music\\");
  EXPECT_EQ(form().List1.count(), 3);
}

TEST_F(StartUp, SingleStartsNothing) {
  storeEarlierRun("1");
  addSongs("C:\\Music", 3);
  start();
  EXPECT_EQ(machine.decks.audibleGraphs(), 0);
  EXPECT_EQ(form().List1.listIndex(), -1);
}

TEST_F(StartUp, AutoNextStartsTheFirstSong) {
  storeEarlierRun("2");
  addSongs("C:\\Music", 3);
  start();
  EXPECT_EQ(playing(), "a.mp3");
  EXPECT_EQ(machine.decks.audibleGraphs(), 1);
}

TEST_F(StartUp, NoDeckIsTouchedBeforeTheWindowIsUp) {
  storeEarlierRun("2");
  addSongs("C:\\Music", 3);
  program = std::make_unique<Program>(machine.doors(), StandIns{&playlists, &icon, &recording});
  program->start("");
  EXPECT_TRUE(form().form.visible());
  EXPECT_EQ(machine.trace({Door::Decks}).find("render"), std::string::npos);
  machine.advance(0ms);
  EXPECT_NE(machine.trace({Door::Decks}).find("render a.mp3"), std::string::npos);
}

TEST_F(StartUp, RandomDrawsDependOnClockAndDateAlone) {
  storeEarlierRun("3");
  addSongs("C:\\Music", 26);
  const auto firstDraw = [this](double day, std::chrono::seconds time) {
    machine.clock.set(day, time);
    start();
    std::string song = playing();
    program.reset();
    return song;
  };
  const std::string atNoon = firstDraw(46000, 12h);
  EXPECT_EQ(firstDraw(46000, 12h), atNoon);
  bool differs = false;
  for (int i = 1; i <= 8; ++i) differs |= firstDraw(46000, 12h + std::chrono::seconds(i)) != atNoon;
  EXPECT_TRUE(differs);
}

TEST_F(StartUp, ReopensTheLastPlaylistOnlyWhenItsFileExists) {
  storeEarlierRun("1");
  machine.settings.set("Velmarion", "Path", "plname", "C:\\Lists\\evening.m3u");
  start();
  EXPECT_EQ(playlists.remembered, "");
  program.reset();
  machine.files.addFile("C:\\Lists\\evening.m3u");
  start();
  EXPECT_EQ(playlists.remembered, "C:\\Lists\\evening.m3u");
}

TEST_F(StartUp, EveryFailingDoorIsSkippedAndTheWindowStillComesUp) {
  storeEarlierRun("2");
  addSongs("C:\\Music", 3);
  start();
  const auto calls = machine.doorCalls();
  program.reset();
  ASSERT_GT(calls, 5u);
  for (std::uint64_t n = 1; n <= calls; ++n) {
    machine.failDoorCall(n);
    start();
    EXPECT_TRUE(form().form.visible()) << n;
    EXPECT_TRUE(form().Command3.enabled()) << n;
    machine.advance(2s);
    program.reset();
  }
}

TEST_F(StartUp, SettingsThatAreGarbageLeaveAPlayerThatWorks) {
  storeEarlierRun("banana");
  for (const char* key : {"color", "ti", "lo", "fadem", "fadelen"})
    storeDisplay(key, "\xFF\xFE 1e400 nonsense");
  addSongs("C:\\Music", 3);
  start();
  EXPECT_TRUE(form().Option1.value());
  form().List1.userActivate(1);
  EXPECT_EQ(machine.decks.audibleGraphs(), 1);
  machine.advance(40s);
}

}  // namespace
}  // namespace nerolith::app
