#include "recording/wave_repair.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "recording/recorder_rig.h"
#include "recording/sound_layout.h"
#include "recording/wave_command.h"

namespace nerolith::recording {
namespace {

constexpr char kCopy[] = "C:\\Takes\\copy.wav";

class WaveRepair : public RecorderRig {
 protected:
  RepairReport repair() { return repairRecording(machine.bytes, machine.output, kTake); }
  std::int64_t copy() { return writeStandardCopy(machine.bytes, machine.output, kTake, kCopy); }
  void put(const std::string& bytes) { machine.bytes.put(kTake, bytes); }
  template <typename Call>
  std::string words(Call call) {
    try {
      call();
      return {};
    } catch (const platform::Failure& failure) {
      return failure.what();
    }
  }
};

/// The sound up to `end` as the standard has it.
std::string standardFile(std::int64_t end) {
  const auto data = static_cast<std::uint32_t>(end);
  return model::header(data + 36, data) + model::sound(0, end);
}

std::string recorded(std::uint32_t riff, std::uint32_t data, int halves, std::int64_t more = 0) {
  return model::header(riff, data) + model::halves(halves) +
         model::sound(halves * model::kHalf, halves * model::kHalf + more);
}

TEST(SoundLayout, AFinishedFileIsToldByItsHeader) {
  EXPECT_EQ(layoutByHeader(0, 0), SoundLayout{});
  EXPECT_EQ(layoutByHeader(352802, 352800), (SoundLayout{0, 352800}));
  EXPECT_EQ(layoutByHeader(352802 + 102, 352900), (SoundLayout{1, 100}));
  EXPECT_EQ(layoutByHeader(352802 + 2, 352800), (SoundLayout{1, 0}));
  // One piece of more than a half: the stop flushed it at once.
  EXPECT_EQ(layoutByHeader(352802 + 400002, 752800), (SoundLayout{1, 400000}));
  EXPECT_EQ(layoutByHeader(2 * 352802 + 47202, 752800), (SoundLayout{2, 47200}));
}

TEST(SoundLayout, AHeaderThatDoesNotFitTheLengthIsNoFinishedFile) {
  EXPECT_EQ(layoutByHeader(352802, 0), std::nullopt);
  EXPECT_EQ(layoutByHeader(352802, 352802), std::nullopt);
  EXPECT_EQ(layoutByHeader(352802, 352801), std::nullopt);
  EXPECT_EQ(layoutByHeader(100, 352800), std::nullopt);
  EXPECT_EQ(layoutByHeader(10 * 352802, 352800), std::nullopt);
}

TEST(SoundLayout, ACutOffFileIsToldByItsLength) {
  struct Case {
    std::int64_t length, sound, missing;
  };
  for (const auto& [length, sound, missing] : {Case{0, 0, 0},
                                               {352802, 352800, 0},
                                               {705604, 705600, 0},
                                               {352802 + 102, 352900, 0},
                                               {352802 + 100, 352900, 2},
                                               {352802 + 101, 352900, 1},
                                               {352802 + 103, 352904, 3},
                                               {1, 0, 1},
                                               {352801, 352800, 1}}) {
    const CutLayout cut = layoutByLength(length);
    EXPECT_EQ(cut.layout.soundBytes(), sound) << length;
    EXPECT_EQ(cut.missing, missing) << length;
  }
}

TEST(ExtraSampleFilter, GivesTheSameSoundWhateverTheBlocks) {
  const std::string file =
      model::halves(3) + model::block(3 * model::kHalf, 3 * model::kHalf + 400);
  const std::string expected = model::sound(0, 3 * model::kHalf + 400);
  for (const std::size_t block : {std::size_t{1} << 20, std::size_t{352802}, std::size_t{1023}}) {
    ExtraSampleFilter filter({3, 400});
    std::string sound;
    for (std::size_t at = 0; at < file.size(); at += block)
      sound += filter.soundOf(std::string_view(file).substr(at, block));
    EXPECT_TRUE(sound == expected) << block;
  }
}

TEST_F(WaveRepair, ARecordingThatWasCutOffGetsItsSizes) {
  put(recorded(0, 0, 3));
  const RepairReport report = repair();
  EXPECT_TRUE(report.changed);
  EXPECT_EQ(report.soundBytes, 3 * 352800);
  expectFile(recorded(3 * 352800 + 44, 3 * 352800, 3));
}

TEST_F(WaveRepair, TheSizeOfAnEarlierRecordingIsNoHindrance) {
  put(recorded(0, 352800, 3));
  EXPECT_EQ(repair().soundBytes, 3 * 352800);
  expectFile(recorded(3 * 352800 + 44, 3 * 352800, 3));
}

TEST_F(WaveRepair, SizesOfAMomentOfTroubleAreBroughtUpToDate) {
  put(recorded(352800 + 44, 352800, 3));
  EXPECT_TRUE(repair().changed);
  expectFile(recorded(3 * 352800 + 44, 3 * 352800, 3));
}

TEST_F(WaveRepair, AnEndThatWasCutInTheMiddleGetsItsExtraSample) {
  put(recorded(0, 0, 2, 1000));
  EXPECT_EQ(repair().soundBytes, 2 * 352800 + 1000);
  expectFile(model::finished(2, 2 * 352800 + 1000));
  put(recorded(0, 0, 2, 1000) + std::string(2, '\0'));  // cut off just before the sizes
  EXPECT_EQ(repair().soundBytes, 2 * 352800 + 1000);
  expectFile(model::finished(2, 2 * 352800 + 1000));
}

TEST_F(WaveRepair, WhatIsFinishedIsLeftAlone) {
  start();
  recordFor(milliseconds(7250));
  recorder.Stop_Recording();
  const std::string before = bytes();
  machine.clearTrace();
  const RepairReport report = repair();
  EXPECT_FALSE(report.changed);
  EXPECT_EQ(report.soundBytes, 7250 * 176400LL / 1000);
  EXPECT_EQ(machine.trace({Door::Output}), "");
  expectFile(before);
}

TEST_F(WaveRepair, ASecondRepairFindsNothingToDo) {
  for (const std::int64_t more : {0, 4, 1000, 352796}) {
    put(recorded(0, 0, 2, more));
    EXPECT_TRUE(repair().changed) << more;
    EXPECT_FALSE(repair().changed) << more;
  }
}

TEST_F(WaveRepair, OtherFilesAreNotTouched) {
  std::string mono = recorded(0, 0, 1);
  mono[22] = 1;
  for (const std::string& other : {std::string("RIFF"), std::string(), std::string(1000, 'x'), mono,
                                   standardFile(352800), std::string("ID3") + recorded(0, 0, 1)}) {
    put(other);
    EXPECT_EQ(words([&] { repair(); }), std::string(kTake) + ": is no recording of this player");
    EXPECT_EQ(words([&] { copy(); }), std::string(kTake) + ": is no recording of this player");
    EXPECT_EQ(bytes(), other);
  }
  EXPECT_NE(words([&] { repairRecording(machine.bytes, machine.output, "C:\\Takes\\no.wav"); }),
            "");
}

TEST_F(WaveRepair, AHeaderAloneHoldsNoSound) {
  put(model::header(0, 0));
  EXPECT_EQ(words([&] { repair(); }), std::string(kTake) + ": has no sound in it");
  EXPECT_EQ(words([&] { copy(); }), std::string(kTake) + ": has no sound in it");
  EXPECT_EQ(machine.files.find(kCopy), nullptr);
}

TEST_F(WaveRepair, ARecordingUnderWayIsNotTouched) {
  start();
  recordFor(seconds(3));
  EXPECT_NE(words([&] { repair(); }), "");
  expectFile(recorded(0, 0, 1));
}

TEST_F(WaveRepair, ARecordingThatWasKilledIsGotBackAfterTheNextStart) {
  start();
  recordFor(seconds(7));
  // What a killed program leaves: file and note as they are, nothing closed.
  const std::string left = bytes();
  put(left);
  ASSERT_EQ(unfinished.path(), kTake);
  recorder.Stop_Recording();
  put(left);
  EXPECT_EQ(repair().soundBytes, 3 * 352800);
  EXPECT_EQ(copy(), 3 * 352800);
  expectFile(standardFile(3 * 352800), kCopy);
}

TEST_F(WaveRepair, ACopyHasTheSoundAndNothingElse) {
  start();
  recordFor(milliseconds(9250));
  recorder.Stop_Recording();
  const std::string before = bytes();
  EXPECT_EQ(copy(), 9250 * 176400LL / 1000);
  expectFile(standardFile(9250 * 176400LL / 1000), kCopy);
  expectFile(before);
}

TEST_F(WaveRepair, ACopyOfALongLastPieceIsRightToo) {
  start();
  recordFor(seconds(4));
  machine.advance(milliseconds(2250));
  recorder.Stop_Recording();
  EXPECT_EQ(copy(), 6250 * 176400LL / 1000);
  expectFile(standardFile(6250 * 176400LL / 1000), kCopy);
}

TEST_F(WaveRepair, ACopyOfACutOffRecordingNeedsNoRepair) {
  put(recorded(0, 0, 2, 1000) + "x");
  EXPECT_EQ(copy(), 2 * 352800 + 1000);
  expectFile(standardFile(2 * 352800 + 1000), kCopy);
  put(recorded(0, 0, 2, 1000) + "xyz");
  EXPECT_EQ(copy(), 2 * 352800 + 1004);
  const std::string& copied = bytes(kCopy);
  EXPECT_EQ(copied.substr(copied.size() - 4), std::string("xyz\0", 4));
}

TEST_F(WaveRepair, ACopyIsNeverWrittenOverItsOwnRecording) {
  put(recorded(0, 0, 2));
  EXPECT_NE(words([&] { writeStandardCopy(machine.bytes, machine.output, kTake, kTake); }), "");
  EXPECT_NE(words([&] {
              writeStandardCopy(machine.bytes, machine.output, kTake, "c:\\takes\\TAKE.WAV");
            }),
            "");
  expectFile(recorded(0, 0, 2));
}

TEST_F(WaveRepair, ACopyThatFailsLeavesTheOldOne) {
  put(recorded(0, 0, 2));
  machine.bytes.put(kCopy, "old");
  machine.output.setFreeSpace(400000);
  EXPECT_NE(words([&] { copy(); }), "");
  EXPECT_EQ(bytes(kCopy), "old");
}

TEST_F(WaveRepair, WhicheverCallFailsNothingIsHalfDone) {
  const std::string before = recorded(0, 0, 1, 100);
  for (std::uint64_t n = 1; n < 12; ++n) {
    put(before);
    machine.failDoorCall(n);
    if (words([&] { repair(); }).empty()) continue;
    machine.failDoorCall(0);
    EXPECT_EQ(repair().soundBytes, 352900) << n;
    expectFile(model::finished(1, 352900));
  }
}

TEST_F(WaveRepair, ACopyMayBeGivenUpBetweenBlocks) {
  struct GivenUp {};
  put(recorded(0, 0, 2));
  EXPECT_THROW(
      writeStandardCopy(machine.bytes, machine.output, kTake, kCopy, [] { throw GivenUp(); }),
      GivenUp);
  EXPECT_EQ(machine.files.find(kCopy), nullptr);
}

TEST_F(WaveRepair, TheShellIsToldWhatBecameOfIt) {
  const auto answer = [&](std::vector<std::string> words) {
    return answerWaveCommand(words, machine.bytes, machine.output, machine.settings);
  };
  EXPECT_FALSE(answer({}));
  EXPECT_FALSE(answer({"song.mp3,2"}));
  put(recorded(0, 0, 36));
  EXPECT_EQ(answer({"--repair", kTake})->text,
            std::string(kTake) + ": repaired, 1 min 12.0 s of sound");
  EXPECT_EQ(answer({"--repair", kTake})->text,
            std::string(kTake) + ": needs no repair, 1 min 12.0 s of sound");
  EXPECT_EQ(answer({"--standard", kTake, kCopy})->exitCode, 0);
  EXPECT_EQ(answer({"--standard", kTake, kTake})->exitCode, 1);
  EXPECT_EQ(answer({"--repair", "C:\\Takes\\no.wav"})->exitCode, 1);
  EXPECT_EQ(answer({"--repair"})->exitCode, 2);
  EXPECT_EQ(answer({"--repair", "a", "b"})->exitCode, 2);
  EXPECT_EQ(answer({"--standard", "a"})->exitCode, 2);
}

TEST_F(WaveRepair, WhatTheShellRepairedIsNoLongerNotedAsUnfinished) {
  const auto repairByShell = [this] {
    const std::vector<std::string> words = {"--repair", kTake};
    return answerWaveCommand(words, machine.bytes, machine.output, machine.settings)->exitCode;
  };
  put(recorded(0, 0, 2));
  unfinished.remember("C:\\Takes\\another.wav");
  EXPECT_EQ(repairByShell(), 0);
  EXPECT_EQ(unfinished.path(), "C:\\Takes\\another.wav");
  unfinished.remember(kTake);
  machine.output.lock(kTake);  // whole for now, but another player writes on
  EXPECT_EQ(repairByShell(), 0);
  EXPECT_EQ(unfinished.path(), kTake);
  machine.output.unlock(kTake);
  EXPECT_EQ(repairByShell(), 0);
  EXPECT_EQ(unfinished.path(), "");
  put("no recording");
  unfinished.remember(kTake);
  EXPECT_EQ(repairByShell(), 1);
  EXPECT_EQ(unfinished.path(), kTake);
}

}  // namespace
}  // namespace nerolith::recording
