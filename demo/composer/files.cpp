#include "files.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace nerolith::demo {
namespace {

constexpr int kTicksPerBeat = 480;
constexpr int kDrumChannel = 9;

void save(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) {
    throw std::runtime_error("cannot write " + path);
  }
}

std::string littleEndian(std::uint32_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) {
    text += static_cast<char>(value >> (8 * i) & 0xffU);
  }
  return text;
}

std::string bigEndian(std::uint32_t value, int bytes) {
  std::string text = littleEndian(value, bytes);
  std::reverse(text.begin(), text.end());
  return text;
}

// MIDI's numbers of variable length: seven bits in a byte, the highest first.
std::string variableLength(std::uint32_t value) {
  std::string text(1, static_cast<char>(value & 0x7fU));
  while ((value >>= 7U) != 0) {
    text.insert(text.begin(), static_cast<char>((value & 0x7fU) | 0x80U));
  }
  return text;
}

struct Instrument {
  int channel;
  int program;
  int drum;  // the drum's key, 0 for an instrument with pitches
};

Instrument instrument(Voice voice) {
  switch (voice) {
    case Voice::ElectricPiano:
      return {0, 0, 0};
    case Voice::Pluck:
      return {1, 46, 0};
    case Voice::Pad:
      return {2, 48, 0};
    case Voice::Bass:
      return {3, 32, 0};
    case Voice::Bell:
      return {4, 11, 0};
    case Voice::Flute:
      return {5, 73, 0};
    case Voice::Kick:
      return {kDrumChannel, 0, 36};
    case Voice::Snare:
      return {kDrumChannel, 0, 38};
    case Voice::Hat:
      return {kDrumChannel, 0, 42};
    case Voice::Shaker:
      return {kDrumChannel, 0, 70};
  }
  return {0, 0, 0};
}

struct Event {
  std::uint32_t tick;
  bool off;
  std::string bytes;
};

std::vector<Event> events(const Song& song) {
  std::vector<Event> all;
  for (const auto& note : song.notes) {
    const auto [channel, program, drum] = instrument(note.voice);
    const int key = drum != 0 ? drum : note.pitch;
    const int velocity = std::clamp(static_cast<int>(127.0 * std::sqrt(note.velocity)), 1, 127);
    const auto start = static_cast<std::uint32_t>(std::lround(note.start * kTicksPerBeat));
    const auto end = start + static_cast<std::uint32_t>(
                                 std::max(1L, std::lround(note.length * kTicksPerBeat) - 10));
    all.push_back(
        {start,
         false,
         {static_cast<char>(0x90 | channel), static_cast<char>(key), static_cast<char>(velocity)}});
    all.push_back({end, true, {static_cast<char>(0x80 | channel), static_cast<char>(key), 0}});
  }
  std::stable_sort(all.begin(), all.end(), [](const Event& a, const Event& b) {
    return a.tick != b.tick ? a.tick < b.tick : a.off && !b.off;
  });
  return all;
}

}  // namespace

void writeWav(const std::string& path, const Sound& sound) {
  std::string data;
  data.reserve(sound.left.size() * 4);
  const auto sample = [&data](float value) {
    const auto whole = static_cast<std::int16_t>(std::lround(std::clamp(value, -1.F, 1.F) * 32767));
    data += littleEndian(static_cast<std::uint16_t>(whole), 2);
  };
  for (size_t i = 0; i < sound.left.size(); ++i) {
    sample(sound.left[i]);
    sample(sound.right[i]);
  }
  const auto size = static_cast<std::uint32_t>(data.size());
  save(path, "RIFF" + littleEndian(36 + size, 4) + "WAVEfmt " + littleEndian(16, 4) +
                 littleEndian(1, 2) + littleEndian(2, 2) + littleEndian(kSampleRate, 4) +
                 littleEndian(4 * kSampleRate, 4) + littleEndian(4, 2) + littleEndian(16, 2) +
                 "data" + littleEndian(size, 4) + data);
}

void writeMidi(const std::string& path, const Song& song) {
  std::string track;
  const auto meta = [&track](char kind, const std::string& bytes) {
    track += std::string{0, '\xff', kind} +
             variableLength(static_cast<std::uint32_t>(bytes.size())) + bytes;
  };
  meta(0x03, song.title);
  meta(0x51, bigEndian(static_cast<std::uint32_t>(std::lround(6e7 / song.tempo)), 3));

  std::array<bool, 16> known{};
  for (const auto& note : song.notes) {
    const auto [channel, program, drum] = instrument(note.voice);
    if (drum == 0 && !known.at(static_cast<size_t>(channel))) {
      known.at(static_cast<size_t>(channel)) = true;
      track += std::string{0, static_cast<char>(0xc0 | channel), static_cast<char>(program)};
    }
  }
  std::uint32_t tick = 0;
  for (const auto& event : events(song)) {
    track += variableLength(event.tick - tick) + event.bytes;
    tick = event.tick;
  }
  track += variableLength(kTicksPerBeat) + "\xff\x2f" + '\0';
  save(path, "MThd" + bigEndian(6, 4) + bigEndian(0, 2) + bigEndian(1, 2) +
                 bigEndian(kTicksPerBeat, 2) + "MTrk" +
                 bigEndian(static_cast<std::uint32_t>(track.size()), 4) + track);
}

}  // namespace nerolith::demo
