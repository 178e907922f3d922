// Hears what the machine plays.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/wave_format.h"

namespace nerolith::platform {

/// Places in a capture buffer, in bytes from its start, 0 <= p < size, multiples of the format's
/// block align.
struct CaptureCursors {
  std::int32_t capture = 0;  // where the machine writes
  std::int32_t read = 0;     // everything before it has arrived
};

/// Looping memory that the machine fills by itself: behind its last byte it begins again at its
/// first. Silence (zeros) where nothing was captured yet. Destroying it stops it.
///
/// While the device is away (the sound server was restarted, a card was pulled) the cursors stand
/// still, and go on from there once sound arrives again; a backend that cannot do so fails.
class CaptureBuffer {
 public:
  virtual ~CaptureBuffer() = default;

  /// Fills the buffer round and round; a fresh buffer from its start, a stopped one from where it
  /// stopped. Nothing happens when it runs already.
  virtual void startLooping() = 0;
  /// The cursors stay. Nothing happens when it does not run.
  virtual void stop() = 0;
  virtual CaptureCursors cursors() const = 0;
  /// Copies `bytes` (even) from byte `start` on into the front of `samples`, wrapping at the
  /// buffer's end; what `samples` holds beyond them stays. Fails for a `start` outside the buffer,
  /// a count below 0 or above its size, and where `samples` is too short for it; 0 copies nothing.
  virtual void read(std::int32_t start, std::int32_t bytes,
                    std::span<std::int16_t> samples) const = 0;
};

/// The opened default device: the card's own mix of what it plays.
class CaptureDevice {
 public:
  virtual ~CaptureDevice() = default;

  /// A buffer at rest, of `bytes` bytes. Fails when the device cannot deliver the format. The
  /// device outlives its buffers; at most one of them runs.
  virtual std::unique_ptr<CaptureBuffer> createBuffer(const WaveFormat& format,
                                                      std::int32_t bytes) = 0;
};

/// User-interface thread only; a backend may capture on a thread of its own.
class SoundCapture {
 public:
  virtual ~SoundCapture() = default;

  /// Opens the machine's first output and capture devices and asks what the latter can do. Fails
  /// when there is none.
  virtual std::unique_ptr<CaptureDevice> openDefaultDevice() = 0;

  /// One sentence for the user while nothing can be captured though a buffer runs; empty while all
  /// is well. Capturing goes on by itself once it can.
  virtual std::string captureTrouble() const { return {}; }

  /// One line for the user of a machine on which nothing can be captured: where to get what is
  /// missing.
  virtual std::string whereToObtain() const { return "(see the system's own help on sound)"; }
};

}  // namespace nerolith::platform
