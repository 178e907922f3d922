// A Standard MIDI File as a list of events with their times.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace nerolith::sound {

/// One channel message, `frame` frames of the mix after the beginning.
struct MidiEvent {
  std::int64_t frame = 0;
  std::uint8_t status = 0;  // 0x80..0xEF, channel in the low four bits
  std::uint8_t first = 0;
  std::uint8_t second = 0;
};

struct MidiScore {
  std::vector<MidiEvent> events;  // by time
  std::int64_t frames = 0;        // up to the last track's end
};

/// Reads formats 0, 1 and 2 (the tracks of 2 are played together), also inside a RIFF wrapper, with
/// all tempo changes. A track cut short counts as far as it goes. None if it is no MIDI file or
/// holds no event.
std::optional<MidiScore> parseMidi(std::span<const std::uint8_t> bytes);

/// The first bytes of a file say that `parseMidi` is for it.
bool looksLikeMidi(std::span<const std::uint8_t> head);

}  // namespace nerolith::sound
