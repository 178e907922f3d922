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

/// The number that stands at a place of a file.
inline std::uint32_t numberAt(const std::string& bytes, std::size_t place) {
  std::uint32_t value = 0;
  for (std::size_t i = 4; i-- > 0;)
    value = value << 8 | static_cast<unsigned char>(bytes[place + i]);
  return value;
}

/// Whether a file's two sizes and its length go together, with a sample of zero behind each piece.
inline bool isWhole(const std::string& bytes) {
  const std::int64_t riff = numberAt(bytes, 4), data = numberAt(bytes, 40);
  const std::int64_t extra = static_cast<std::int64_t>(bytes.size()) - 44 - data;
  return riff == data + 44 && extra >= 2 && extra % 2 == 0 && extra <= 2 * (data / kHalf + 1);
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
