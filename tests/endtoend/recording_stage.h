// What the tests of the recording section share.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "endtoend/recorded_wave.h"
#include "endtoend/section_window.h"
#include "endtoend/stage.h"
#include "endtoend/wait_until.h"

namespace nerolith::endtoend {

/// Where the pictures go.
inline const std::filesystem::path kPictures = NEROLITH_SCREENSHOT_DIR;

/// A stage with the recording section open and a file chosen.
struct RecordingStage {
  Stage stage;
  std::filesystem::path file;  // to record to; empty until `open` chooses "take.wav"
  std::unique_ptr<SectionWindow> section;

  void open(const StoredSettings& settings);
  /// Starts playing and recording; whether the first song is heard.
  bool start();
  /// Waits until the recorder has written so many halves; false: it never does.
  bool holdsHalves(int halves, double longest) const;
};

/// How loud a tone is around a moment, in decibels.
double levelAt(const Sound& sound, double hertz, double time);

/// Where a song's tone begins and ends; nothing heard: {0, 0}.
Stretch heardIn(const Sound& sound, const Song& song);

/// Where a song's tone is broken in the recording and not in what the card played meanwhile, in
/// seconds of the recording: what the recording itself lost. How the song is played, other tests
/// judge.
std::vector<double> lostIn(const Sound& recorded, const Sound& card, const Song& song);

/// Adds the complaint `what` unless it holds.
void expect(bool holds, const std::string& what, Complaints& complaints);

}  // namespace nerolith::endtoend
