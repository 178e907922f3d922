// A sound server of a test's own, with a card that swallows the sound and lets it be recorded.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "linux_sound/scratch.h"
#include "platform/linux/sound/audio_source.h"

namespace nerolith::sound_tests {

/// PulseAudio with one null sink named "card" (44.1 kHz stereo float: samples arrive as they were
/// written). While it lives, this process's XDG_RUNTIME_DIR, HOME and PULSE_* point to it: one at
/// a time. Ends the server it started, and only that, with its own end.
class PrivateSoundServer {
 public:
  /// Whether the server's programs are installed.
  static bool available();

  enum class Begin { Started, NotStarted };
  explicit PrivateSoundServer(Begin begin = Begin::Started);
  ~PrivateSoundServer();
  PrivateSoundServer(const PrivateSoundServer&) = delete;
  PrivateSoundServer& operator=(const PrivateSoundServer&) = delete;

  /// Returns when it answers; throws std::runtime_error if it does not within 5 s.
  void start();
  /// Kills it as a crash would and clears away what it left.
  void kill();
  /// Stops and continues the process: a server that hangs.
  void freeze();
  void thaw();

  const Scratch& scratch() const { return scratch_; }

 private:
  Scratch scratch_;
  pid_t process_ = 0;
};

/// What the card plays from construction on. A test reads it while it goes on.
class CardRecording {
 public:
  CardRecording();
  ~CardRecording();
  CardRecording(const CardRecording&) = delete;
  CardRecording& operator=(const CardRecording&) = delete;

  /// The frames recorded so far.
  std::vector<sound::Frame> frames() const;
  /// How many there are.
  std::size_t size() const;
  /// Waits, five seconds at most, until `done(frames)`; whether it came true.
  template <class Done>
  bool waitFor(Done done) const {
    for (int i = 0; i < 1000; ++i) {
      if (done(frames())) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
  }

 private:
  void read();

  pid_t process_ = 0;
  int pipe_ = -1;
  mutable std::mutex mutex_;
  std::vector<sound::Frame> frames_;
  std::thread reader_;
};

}  // namespace nerolith::sound_tests
