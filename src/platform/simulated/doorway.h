// What every simulated door passes through: the one trace of all calls, and faults on demand.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace nerolith::platform::simulated {

enum class Door {
  Decks,
  Files,
  Settings,
  Dialogs,
  Pictures,
  Events,
  Windows,
  Capture,
  Tone,
  Output,
  Media,
  Power,
  Icon
};

/// A call that changes or asks the outer world for something is an action and always traced; one
/// that only looks (a position, a stored text, whether a file exists) is a reading and traced only
/// when readings are recorded, since a tick alone makes a dozen of them.
///
/// An entry of the trace is "who.verb argument", or "who.verb" without one; " failed" is added
/// when the call failed, by script or by fault.
class Doorway {
 public:
  struct Call {
    Door door;
    std::string_view who;
    std::string_view verb;
    std::string_view argument = {};
  };

  /// Traces an action that may fail, and makes it fail if its number is up.
  void act(const Call& call);
  /// Traces an action that never fails and is not counted.
  void note(const Call& call);
  /// As `act`, for a call that only looks.
  void look(const Call& call);
  /// Fails the call that is under way, by script: its entry ends in " failed".
  [[noreturn]] void refuse(const std::string& text, int code = 0);

  /// Entries joined by " | ": all of them, or those of some doors.
  std::string trace() const;
  std::string trace(std::initializer_list<Door> doors) const;
  void clearTrace() { entries_.clear(); }
  /// Off for runs that last for days; what was traced so far is kept.
  void record(bool on) { recording_ = on; }
  void recordReadings(bool on) { readings_ = on; }

  /// The n-th call from now on that may fail (1: the very next) fails, once, and does nothing
  /// else. 0 takes a fault back.
  void failCall(std::uint64_t n) { failAt_ = n == 0 ? 0 : calls_ + n; }
  /// Calls that may fail, since the start.
  std::uint64_t calls() const { return calls_; }
  /// Faults that have struck, since the start.
  std::uint64_t faults() const { return faults_; }

 private:
  struct Entry {
    Door door;
    std::string text;
  };

  void write(const Call& call, bool reading);
  void count(const Call& call);

  std::vector<Entry> entries_;
  std::uint64_t calls_ = 0;
  std::uint64_t failAt_ = 0;
  std::uint64_t faults_ = 0;
  bool recording_ = true;
  bool readings_ = false;
  bool written_ = false;  // whether the call under way has an entry
};

}  // namespace nerolith::platform::simulated
