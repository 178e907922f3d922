#include "recording/recording_texts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "recording/wave_name.h"

namespace nerolith::recording {
namespace {

std::string lines(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (&text == &texts.front() ? "" : "\r\n") + text;
  return all;
}

// clang-format off
TEST(RecordingTexts, HowToRecordIsSaidWithItsOddSpellings) {
  EXPECT_EQ(kHowToText, lines({
      "First, give a name to the file you want to create for this recording.  ",
      "'Select Filename for Recording'",
      "Create a playlistfile from the music you selected. 'options-playlist actions'",
      "Now import this playlist file, and select all songs.",
      "Go to in the 'options-seletion functions-total duration selected files',",
      "so you can see the total duration of the songs in your playlist. Fill your playlist with music from",
      "different directories (if you want) until you have the correct duration (e.g. playtime of 74 min.).",
      "You can also fill the playlist with 1 song at the time, so you can create the playing",
      "order you want to hear the songs. In this case, select 'auto-next' and ",
      "unselect 'loop' so the music stops when the last song is completed. Import this playlist,",
      "select the song on top of the playlist, press 'Start playing and record the sound to the selected file'",
      "The Sound you hear will now be recorded to a WAV file.",
      "When the last song is played, the recording stops.",
  }));
}

TEST(RecordingTexts, TheVolumeTextHasTwoEmptyLinesBeforeItsLastTwo) {
  EXPECT_EQ(kVolumeSettingsText, lines({
      "From your volume control box, choose 'Options' > 'Properties' > 'Recording'.",
      "Make sure 'Wave', 'Mixed Out' or 'Wave Out Mix' or 'Stereo Mixed' (differs per system)",
      "is selected from the 'Show the following volume controls:' box below and click 'OK'.",
      "Now select that volume slider for the 'Mixed Output' as the only",
      "recording source and slide the slider to the maximum level. (See 'Calibrate Sound levels')",
      "From the Nerolith's recording box, you should be able to see the",
      "volume indicator change, indicating there is sound. (Volume adjust must be enabled)",
      "To enable the volume adjust, just click on it once.",
      "",
      "",
      "The WAV file you are about to record is directly usable to make an",
      "audio CD of, with your standard burning software.",
  }));
}

TEST(RecordingTexts, TheCalibrationTextComesInTwoGroups) {
  EXPECT_EQ(kCalibrationText, lines({
      "Open your Volume controls and set the slider of your wave-out to max.",
      "Open the recording properties of your Volume controles.",
      "Make sure 'Wave', 'Mixed Out' or 'Wave Out Mix' or 'Stereo Mixed' (differs per system)",
      "is selected, and adjust the slider so that the volume Peak-meter in the",
      "Nerolith recording section, is just turning Orange.",
      "",
      "Some systems may need additional calibration, regardless of the orange indiactor.",
      "In these rare cases, position the recording slider to your own satisfaction.",
  }));
}
// clang-format on

TEST(RecordingTexts, TheQuestionsAreTheUsualOnes) {
  EXPECT_EQ(kFileQuestionTitle, "Select Filename to record to");
  EXPECT_EQ(kFileQuestionFilter, "*.wav|*.wav");
  EXPECT_EQ(kOverwriteQuestion, "File already exists. Overwrite file?");
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
