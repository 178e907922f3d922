// Where the mix goes: the sound server, or a test's own clock.
#pragma once

#include <cstdint>
#include <string>

namespace nerolith::sound {

/// Pulls from the mixer on a thread of its own while there is something to hear. Its methods are
/// called on the user-interface thread, never block on the sound server, and never throw.
class SoundOutput {
 public:
  virtual ~SoundOutput() = default;

  /// A deck is being loaded: gets ready, so that the first sound need not wait for a connection.
  virtual void prepare() = 0;
  /// The mixer has become active: pull from it.
  virtual void wake() = 0;
  /// How many of the mixer's frames have been heard.
  virtual std::int64_t heardFrames() const = 0;
  /// One sentence while sound cannot be put out, else empty.
  virtual std::string trouble() const = 0;
  /// Times the server ran out of sound while something played.
  virtual std::uint64_t underRuns() const = 0;
};

}  // namespace nerolith::sound
