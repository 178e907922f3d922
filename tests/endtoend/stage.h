// Everything that a test of the whole player needs, set up in the order it is needed.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "endtoend/busy_watch.h"
#include "endtoend/player_window.h"
#include "endtoend/private_desktop.h"
#include "endtoend/shipped_program.h"
#include "endtoend/stall_watch.h"
#include "endtoend/tones.h"
#include "endtoend/trial.h"

namespace nerolith::endtoend {

/// A desktop with songs, then (`open`) a recording and the player on it.
class Stage {
 public:
  Stage() = default;
  explicit Stage(PrivateDesktop::SoundServer sound) : desktop(sound) {}
  /// Leaves a picture of the screen when a test is ended by an exception.
  ~Stage();
  Stage(const Stage&) = delete;
  Stage& operator=(const Stage&) = delete;

  /// Songs of `seconds` in the music folder.
  const std::vector<Song>& prepare(const std::vector<std::string>& names, double seconds);
  /// One song whose frequency tells the position.
  Song prepareClimb(const std::string& name, double seconds);

  /// Stores the settings (their folder is the music folder), records, starts the player with this
  /// command line and waits for its window. Throws std::runtime_error when none comes.
  void open(StoredSettings settings, std::vector<std::string> arguments = {});

  /// Closes the player as a person does; its exit code, nothing when it hangs.
  std::optional<int> close();

  /// Gaps of the control tone since `from`, stalls of the whole machine, and other work on it.
  Complaints disturbances(const Sound& sound, double from = 0) const;
  /// The whole recording judged: disturbances are added, and the player has to be running still.
  Outcome outcome(Complaints complaints, std::vector<std::string> figures = {}) const;

  PrivateDesktop desktop;
  std::vector<Song> songs;
  StallWatch watch;
  BusyWatch busy;
  std::unique_ptr<Recording> recording;
  std::unique_ptr<PlayerWindow> player;
};

/// The songs as the mix check wants them.
std::vector<MixedSong> mixed(const std::vector<Song>& songs);

/// How often each song's tone is heard, in the order of the songs.
std::vector<int> timesHeard(const Sound& sound, const std::vector<Song>& songs);

/// Songs in the order in which they are first heard.
std::vector<std::size_t> orderHeard(const Sound& sound, const std::vector<Song>& songs);

/// Position in the climbing tone each 20 ms; negative where nothing is heard.
struct Climb {
  static constexpr double kStep = 0.02;
  std::vector<double> position;

  /// Times at which the position leaps by more than `least` seconds; silence in between is passed.
  std::vector<double> leaps(double least) const;
};
Climb climbOf(const Sound& sound, double from);

/// The position at the edge of a silence, seen from its neighbourhood: before `time` or after it.
double positionBefore(const Sound& sound, double time);
double positionAfter(const Sound& sound, double time);

/// "name: value unit" for the report.
std::string figure(const std::string& name, double value, const std::string& unit);

void pauseFor(double seconds);

}  // namespace nerolith::endtoend
