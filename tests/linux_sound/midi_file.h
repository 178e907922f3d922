// MIDI files written byte by byte.
#pragma once

#include <cstdint>
#include <vector>

namespace nerolith::sound_tests {

using Bytes = std::vector<std::uint8_t>;

inline void append(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

inline Bytes bigEndian(std::uint32_t value, int size) {
  Bytes bytes;
  for (int i = size - 1; i >= 0; --i) bytes.push_back(static_cast<std::uint8_t>(value >> 8 * i));
  return bytes;
}

inline Bytes midiTrack(const Bytes& events) {
  Bytes bytes{'M', 'T', 'r', 'k'};
  append(bytes, bigEndian(static_cast<std::uint32_t>(events.size()), 4));
  append(bytes, events);
  return bytes;
}

inline Bytes midiFile(std::uint16_t division, const std::vector<Bytes>& tracks) {
  Bytes bytes{'M', 'T', 'h', 'd', 0, 0, 0, 6, 0, 1};
  append(bytes, bigEndian(static_cast<std::uint32_t>(tracks.size()), 2));
  append(bytes, bigEndian(division, 2));
  for (const Bytes& track : tracks) append(bytes, track);
  return bytes;
}

/// Quarter notes at 120 to the minute: lasts half a second for each.
inline Bytes midiSong(int quarters) {
  Bytes events;
  for (int i = 0; i < quarters; ++i) {
    const auto key = static_cast<std::uint8_t>(60 + i % 12);
    append(events, {0x00, 0x90, key, 100, 0x83, 0x60, 0x80, key, 0});
  }
  append(events, {0x00, 0xFF, 0x2F, 0x00});
  return midiFile(480, {midiTrack(events)});
}

}  // namespace nerolith::sound_tests
