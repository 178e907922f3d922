// A screen, a sound card and a home of a test's own.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "endtoend/child_process.h"
#include "endtoend/spectrum.h"

namespace nerolith::endtoend {

/// Xvfb with openbox on a free display, a PulseAudio whose card swallows the sound, and empty
/// folders for home, settings and data. All of it lies in one scratch folder and ends with the
/// object, whatever became of the test. Throws std::runtime_error when a piece does not come up.
class PrivateDesktop {
 public:
  enum class SoundServer { Present, Missing };

  explicit PrivateDesktop(SoundServer sound = SoundServer::Present);
  ~PrivateDesktop();

  const std::filesystem::path& scratch() const { return scratch_.path(); }
  std::filesystem::path settingsFile() const;
  /// An empty folder for songs.
  std::filesystem::path music() const { return scratch_.path() / "music"; }
  Environment environment() const;
  /// A command with this desktop's environment, its output dropped.
  Command command(std::vector<std::string> words) const;

  /// Kills the server as a crash would, and removes what it leaves.
  void killSoundServer();
  void startSoundServer();

  /// Words that start the player, before its own: what limits it, say.
  std::vector<std::string> launcher;

  /// Message buses of this desktop's own, one for the system and one for the user's login; without
  /// them there are none. Programs that are started from now on find them.
  void startMessageBuses();

  /// The whole screen, as PNG.
  void screenshot(const std::filesystem::path& file) const;

 private:
  void startScreen();
  std::string startBus(const std::string& name, std::unique_ptr<ChildProcess>& bus);

  ScratchFolder scratch_;
  std::string display_, systemBusAddress_, loginBusAddress_;
  std::unique_ptr<ChildProcess> systemBus_, loginBus_;
  std::unique_ptr<ChildProcess> screen_, windowManager_, soundServer_;
};

/// What the card plays, from construction on; together with the control tone: a faint 18.5 kHz that
/// another program plays into the same card with a buffer like the player's. Where that has a
/// gap, the machine stood still, not the player.
class Recording {
 public:
  explicit Recording(const PrivateDesktop& desktop, const std::string& name = "recording");

  /// All that was recorded so far, left and right averaged.
  Sound sound() const;
  /// Seconds recorded so far. Lags behind what is played by some 50 ms at most, never leads.
  double now() const;
  /// Waits until the tone is heard in the newest 50 ms, or the time is over.
  bool waitForTone(double hertz, double longest) const;
  /// Waits until anything but the control tone was heard throughout the newest 50 ms.
  bool waitForSound(double longest) const;
  /// Waits until nothing but the control tone was heard for `quietFor` seconds.
  bool waitForSilence(double quietFor, double longest) const;

  /// The program that plays the control tone.
  ChildProcess& controlTone() { return *controlTone_; }

 private:
  std::filesystem::path file_;
  std::unique_ptr<ChildProcess> controlTone_, recorder_;
};

inline constexpr double kControlHertz = 18500;

/// Where the control tone has gaps.
std::vector<Stretch> controlGaps(const Sound& sound, double from, double to);

}  // namespace nerolith::endtoend
