#include "recording/recording_texts.h"

#include <gtest/gtest.h>

#include "recording/wave_name.h"

namespace nerolith::recording {
namespace {

std::size_t linesOf(std::string_view text) {
  std::size_t lines = 1;
  for (std::size_t at = text.find("\r\n"); at != std::string_view::npos;
       at = text.find("\r\n", at + 2))
    ++lines;
  return lines;
}

std::string_view line(std::string_view text, std::size_t wanted) {
  for (std::size_t i = 0; i < wanted; ++i) text.remove_prefix(text.find("\r\n") + 2);
  return text.substr(0, text.find("\r\n"));
}

TEST(RecordingTexts, TheHowToTextKeepsItsOddSpellings) {
  ASSERT_EQ(linesOf(kHowToText), 13U);
  EXPECT_EQ(line(kHowToText, 0),
            "First, give a name to the file you want to create for this recording.  ");
  EXPECT_EQ(line(kHowToText, 4),
            "Go to in the 'options-seletion functions-total duration selected files',");
  EXPECT_EQ(line(kHowToText, 8),
            "order you want to hear the songs. In this case, select 'auto-next' and ");
  EXPECT_EQ(line(kHowToText, 12), "When the last song is played, the recording stops.");
}

TEST(RecordingTexts, TheVolumeTextHasTwoEmptyLinesBeforeItsLastTwo) {
  ASSERT_EQ(linesOf(kVolumeSettingsText), 12U);
  EXPECT_EQ(line(kVolumeSettingsText, 7), "To enable the volume adjust, just click on it once.");
  EXPECT_EQ(line(kVolumeSettingsText, 8), "");
  EXPECT_EQ(line(kVolumeSettingsText, 9), "");
  EXPECT_EQ(line(kVolumeSettingsText, 11), "audio CD of, with your standard burning software.");
}

TEST(RecordingTexts, TheCalibrationTextComesInTwoGroups) {
  ASSERT_EQ(linesOf(kCalibrationText), 8U);
  EXPECT_EQ(line(kCalibrationText, 1), "Open the recording properties of your Volume controles.");
  EXPECT_EQ(line(kCalibrationText, 5), "");
  EXPECT_EQ(line(kCalibrationText, 6),
            "Some systems may need additional calibration, regardless of the orange indiactor.");
}

TEST(WaveName, AnEndingIsAddedWhereThereIsNone) {
  EXPECT_EQ(withWaveEnding("C:\\a"), "C:\\a.wav");
  EXPECT_EQ(withWaveEnding("/x.y/a"), "/x.y/a.wav");
  EXPECT_EQ(withWaveEnding("/x/a."), "/x/a.wav");
  EXPECT_EQ(withWaveEnding("/x/.a"), "/x/.a.wav");
  EXPECT_EQ(withWaveEnding("/x/a.wave"), "/x/a.wave");
  EXPECT_EQ(withWaveEnding("/x/a.WAV"), "/x/a.WAV");
}

TEST(WaveName, AStandardCopyStandsBesideItsRecording) {
  EXPECT_EQ(standardCopyName("C:\\r\\a.wav"), "C:\\r\\a standard.wav");
  EXPECT_EQ(standardCopyName("/r.s/a"), "/r.s/a standard.wav");
}

}  // namespace
}  // namespace nerolith::recording
