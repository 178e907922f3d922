// A whole machine in memory, for tests and for days that pass in seconds.
#pragma once

#include <chrono>
#include <initializer_list>
#include <string>

#include "platform/machine.h"
#include "platform/simulated/doorway.h"
#include "platform/simulated/simulated_byte_files.h"
#include "platform/simulated/simulated_capture.h"
#include "platform/simulated/simulated_clock.h"
#include "platform/simulated/simulated_decks.h"
#include "platform/simulated/simulated_dialogs.h"
#include "platform/simulated/simulated_encoding.h"
#include "platform/simulated/simulated_events.h"
#include "platform/simulated/simulated_files.h"
#include "platform/simulated/simulated_icon.h"
#include "platform/simulated/simulated_media.h"
#include "platform/simulated/simulated_output.h"
#include "platform/simulated/simulated_pictures.h"
#include "platform/simulated/simulated_power.h"
#include "platform/simulated/simulated_settings.h"
#include "platform/simulated/simulated_tone.h"
#include "platform/simulated/simulated_windows.h"
#include "platform/simulated/timeline.h"

namespace nerolith::platform::simulated {

/// All doors, one virtual time, one trace. Forms and parts that were given to it are destroyed
/// before it. Script it through its members, run it with `advance`, compare `trace`:
///
///   SimulatedMachine machine;
///   machine.files.addFile("C:\\Music\\a.mp3", {.duration = 12});
///   ...
///   machine.advance(std::chrono::seconds(8));
///   EXPECT_EQ(machine.trace({Door::Decks}), "B.render b.mp3 | B.volume 0 | B.run");
class SimulatedMachine {
 public:
  explicit SimulatedMachine(char separator = '\\');
  SimulatedMachine(const SimulatedMachine&) = delete;
  SimulatedMachine& operator=(const SimulatedMachine&) = delete;

  /// What the program is handed.
  Machine doors();

  void advance(std::chrono::nanoseconds length) { timeline.advance(length); }
  bool quitAsked() const { return timeline.ended(); }
  bool pending() const { return timeline.pending(); }

  std::string trace() const { return doorway.trace(); }
  std::string trace(std::initializer_list<Door> only) const { return doorway.trace(only); }
  void clearTrace() { doorway.clearTrace(); }
  void recordTrace(bool on) { doorway.record(on); }

  /// See `Doorway::failCall`: counted from now on, 1 is the very next call that may fail.
  void failDoorCall(std::uint64_t n) { doorway.failCall(n); }
  std::uint64_t doorCalls() const { return doorway.calls(); }

  Doorway doorway;
  Timeline timeline;
  SimulatedClock clock;
  SimulatedEvents events;
  SimulatedFiles files;
  SimulatedDecks decks;
  SimulatedSettings settings;
  SimulatedDialogs dialogs;
  SimulatedPictures pictures;
  SimulatedWindows windows;
  SimulatedByteFiles bytes;
  SimulatedEncoding encoding;
  SimulatedCapture capture;
  SimulatedTone tone;
  SimulatedOutput output;
  SimulatedMedia media;
  SimulatedPower power;
  SimulatedIcon icon;
};

}  // namespace nerolith::platform::simulated
