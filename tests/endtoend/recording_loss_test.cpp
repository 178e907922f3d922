// What a recording survives on Linux: a sound server that is restarted, a program that is held up,
// another one that wants its file; and what it does not, a folder that is removed.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "endtoend/recording_stage.h"
#include "endtoend/shipped_program.h"

namespace nerolith::endtoend {
namespace {

Outcome serverIsRestarted() {
  RecordingStage it;
  it.stage.prepare({"1 first.wav"}, 60);
  it.open({.mode = 1, .mixLead = 4, .fadeLength = 2});
  if (!it.start()) return it.stage.outcome({"the song is not heard"});
  const double hertz = it.stage.songs[0].hertz;
  Complaints complaints;
  expect(it.holdsHalves(2, 15), "the file does not grow", complaints);
  expect(it.section->noticeContrast() < kNoticeEmpty, "trouble without cause", complaints);
  it.stage.desktop.killSoundServer();
  it.stage.recording.reset();
  expect(waitForFinishedFile(it.file, 10), "without a server the file is not whole", complaints);
  const RecordedWave before = readRecorded(it.file, complaints, Ending::CutOff);
  expect(waitUntil(3, [&] { return it.section->noticeContrast() > kNoticeLegible; }),
         "the window does not say so", complaints);
  it.stage.desktop.screenshot(kPictures / "recording-server-away.png");

  it.stage.desktop.startSoundServer();
  it.stage.recording = std::make_unique<Recording>(it.stage.desktop, "second");
  expect(it.stage.recording->waitForTone(hertz, 10), "the player does not play on", complaints);
  const int halves = static_cast<int>(before.dataBytes / kHalfBytes);
  expect(it.holdsHalves(halves + 2, 15), "the recording does not go on", complaints);
  expect(it.section->noticeContrast() < kNoticeEmpty, "the trouble is told when it is over",
         complaints);
  it.section->exit();
  pauseFor(0.5);
  const RecordedWave wave = readRecorded(it.file, complaints);
  const Stretch full = heardIn(wave.sound, it.stage.songs[0]);
  expect(full.from < 1 && full.to > wave.seconds() - 0.2, "sound is missing at an end", complaints);
  const auto leaps = phaseLeaps(wave.sound, hertz, full.from + 0.1, full.to - 0.1);
  expect(leaps.empty() || leaps.back() - leaps.front() < 2, "breaks in the tone", complaints);
  return it.stage.outcome(complaints, {figure("before", before.seconds(), "s"),
                                       figure("in the end", wave.seconds(), "s")});
}

TEST(RecordingLoss, ASoundServerThatIsRestartedIsSaidAndTheFileIsWholeAndGrowsOn) {
  measure(serverIsRestarted);
}

Outcome folderIsRemoved() {
  RecordingStage it;
  it.stage.prepare({"1 first.wav"}, 60);
  it.file = it.stage.desktop.scratch() / "takes/take.wav";
  std::filesystem::create_directory(it.file.parent_path());
  it.open({.mode = 1, .mixLead = 4, .fadeLength = 2});
  if (!it.start()) return it.stage.outcome({"the song is not heard"});
  Complaints complaints;
  expect(it.holdsHalves(1, 15), "the file does not grow", complaints);
  std::filesystem::remove_all(it.file.parent_path());
  expect(waitUntil(6, [&] { return it.section->noticeContrast() > kNoticeLegible; }),
         "the window does not say so", complaints);
  it.stage.desktop.screenshot(kPictures / "recording-folder-removed.png");
  pauseFor(0.5);
  expect(it.stage.recording->waitForTone(it.stage.songs[0].hertz, 1), "the player is silent",
         complaints);
  expect(!std::filesystem::exists(it.file.parent_path()), "the folder is there again", complaints);
  return it.stage.outcome(complaints);
}

TEST(RecordingLoss, AFolderThatIsRemovedIsSaidAndThePlayerPlaysOn) { measure(folderIsRemoved); }

/// Another program that writes a file, and asks first whether somebody else does.
class OtherWriter {
 public:
  explicit OtherWriter(const std::filesystem::path& file) : file_(open(file.c_str(), O_RDWR)) {}
  ~OtherWriter() { close(file_); }
  OtherWriter(const OtherWriter&) = delete;
  OtherWriter& operator=(const OtherWriter&) = delete;
  bool takes() const { return file_ >= 0 && flock(file_, LOCK_EX | LOCK_NB) == 0; }

 private:
  int file_;
};

/// Chooses the file that is there, and wants it overwritten.
bool overwrites(const RecordingStage& it) {
  const int before = it.stage.player->countTitles(".");
  it.section->chooseFile(it.file);
  const bool asked = waitUntil(10, [&] { return it.stage.player->countTitles(".") > before; });
  it.stage.player->key("alt+y");
  return asked && waitUntil(10, [&] { return it.stage.player->countTitles(".") == before; });
}

Outcome fileOfTwoPrograms() {
  RecordingStage it;
  it.stage.prepare({"1 first.wav"}, 30);
  it.file = it.stage.desktop.scratch() / "take.wav";
  std::ofstream(it.file) << "theirs";
  auto other = std::make_unique<OtherWriter>(it.file);
  if (!other->takes()) return {{"the file cannot be locked"}, {}, {}};
  it.stage.open({.mode = 1, .mixLead = 4, .fadeLength = 2});
  it.section = std::make_unique<SectionWindow>(it.stage.desktop, *it.stage.player);
  Complaints complaints;
  expect(overwrites(it), "it is not asked for the file", complaints);
  expect(waitUntil(5, [&] { return it.section->noticeContrast() > kNoticeLegible; }),
         "the window does not say who holds the file", complaints);
  it.stage.desktop.screenshot(kPictures / "recording-held-file.png");
  expect(contentsOf(it.file) == "theirs", "the other program's file is touched", complaints);

  other.reset();
  expect(overwrites(it), "it is not asked for the file again", complaints);
  if (!it.start()) return it.stage.outcome({"the song is not heard"});
  expect(it.holdsHalves(1, 15), "the file does not grow", complaints);
  expect(!OtherWriter(it.file).takes(), "another program may write into it", complaints);
  expect(runToEnd(startOf(it.stage.desktop, {"--repair", toldAs(it.file)})) == 1,
         "it is repaired while it is recorded", complaints);
  expect(it.holdsHalves(2, 15), "the file does not grow on", complaints);
  expect(it.section->noticeContrast() < kNoticeEmpty, "trouble without cause", complaints);
  it.section->exit();
  expect(waitForFinishedFile(it.file, 5), "the file is not finished", complaints);
  expect(waitUntil(5, [&] { return OtherWriter(it.file).takes(); }),
         "it is held after the recording", complaints);
  const RecordedWave wave = readRecorded(it.file, complaints);
  expect(lostIn(wave.sound, it.stage.recording->sound(), it.stage.songs[0]).empty(),
         "breaks in the tone", complaints);
  return it.stage.outcome(complaints, {figure("recorded", wave.seconds(), "s")});
}

TEST(RecordingLoss, AFileThatAnotherProgramWritesIsLeftToItAndOursToUs) {
  measure(fileOfTwoPrograms);
}

Outcome programIsHeldUp() {
  RecordingStage it;
  it.stage.prepare({"1 first.wav"}, 60);
  it.open({.mode = 1, .mixLead = 4, .fadeLength = 1});
  if (!it.start()) return it.stage.outcome({"the song is not heard"});
  Complaints complaints;
  expect(it.holdsHalves(1, 15), "the file does not grow", complaints);
  it.stage.player->program().signal(SIGSTOP);
  pauseFor(6);
  it.stage.player->program().signal(SIGCONT);
  pauseFor(1);
  expect(it.section->noticeContrast() < kNoticeEmpty, "it is told before the stop", complaints);
  it.section->fadeOutAndStop();
  expect(waitForFinishedFile(it.file, 10), "it does not stop", complaints);
  expect(waitUntil(3, [&] { return it.section->noticeContrast() > kNoticeLegible; }),
         "the window does not say what is missing", complaints);
  it.stage.desktop.screenshot(kPictures / "recording-held-up.png");
  const RecordedWave wave = readRecorded(it.file, complaints);
  return it.stage.outcome(complaints, {figure("recorded", wave.seconds(), "s")});
}

TEST(RecordingLoss, AProgramThatWasHeldUpSaysAfterTheStopWhatIsMissing) {
  measure(programIsHeldUp);
}

TEST(RecordingLoss, WithoutASoundServerTheMenuSaysWhyThereIsNoSection) {
  Stage stage(PrivateDesktop::SoundServer::Missing);
  writeSettings(stage.desktop, {.mode = 1, .folder = stage.desktop.music()});
  stage.player = std::make_unique<PlayerWindow>(stage.desktop);
  ASSERT_TRUE(stage.player->waitForWindow()) << stage.player->output();
  pauseFor(0.5);
  for (const char* name : {"alt+o", "Up", "Up", "Return"}) {
    stage.player->key(name);
    pauseFor(0.2);
  }
  EXPECT_TRUE(waitUntil(15, [&] { return stage.player->countTitles(".") > 1; }));
  pauseFor(0.5);
  stage.desktop.screenshot(kPictures / "recording-impossible.png");
  stage.player->key("Return");
  EXPECT_TRUE(waitUntil(10, [&] { return stage.player->countTitles(".") == 1; }));
  EXPECT_TRUE(stage.player->running());
}

}  // namespace
}  // namespace nerolith::endtoend
