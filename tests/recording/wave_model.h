// WAV files of the recorder's as they should be, put together by hand.
#pragma once

#include <cstdint>
#include <string>

namespace nerolith::recording::model {

inline constexpr std::int64_t kHalf = 352800;  // bytes of two seconds

inline std::string number(std::uint32_t value, int width) {
  std::string text;
  for (; width > 0; --width, value >>= 8) text += static_cast<char>(value & 0xFF);
  return text;
}

/// Sample number n of the sound that tests capture; no two neighbours, rounds or halves alike.
inline std::int16_t sampleNumber(std::int64_t n) {
  const auto mixed = static_cast<std::uint64_t>(n + 1) * 0x9E3779B97F4A7C15u;
  return static_cast<std::int16_t>(mixed >> 40);
}

inline std::string header(std::uint32_t riffSize, std::uint32_t dataSize) {
  return "RIFF" + number(riffSize, 4) + "WAVE" + "fmt " + number(16, 4) + number(1, 2) +
         number(2, 2) + number(44100, 4) + number(176400, 4) + number(4, 2) + number(16, 2) +
         "data" + number(dataSize, 4);
}

/// The captured bytes from `begin` to `end`, counted since the capture began.
inline std::string sound(std::int64_t begin, std::int64_t end) {
  std::string bytes;
  for (std::int64_t sample = begin / 2; sample < end / 2; ++sample)
    bytes += number(static_cast<std::uint16_t>(sampleNumber(sample)), 2);
  return bytes;
}

/// One piece of sound as the recorder writes it: with a sample of zero behind it.
inline std::string block(std::int64_t begin, std::int64_t end) {
  return sound(begin, end) + std::string(2, '\0');
}

/// What is in a file as long as it is being recorded, `halves` halves of it done.
inline std::string halves(int halves) {
  std::string bytes;
  for (int i = 0; i < halves; ++i) bytes += block(i * kHalf, (i + 1) * kHalf);
  return bytes;
}

/// A whole file that was stopped when `end` bytes were captured, `done` halves of them moved.
inline std::string finished(int done, std::int64_t end) {
  const auto data = static_cast<std::uint32_t>(end);
  return header(data + 44, data) + halves(done) + block(done * kHalf, end);
}

}  // namespace nerolith::recording::model
