// A sound file for a test.
#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>
#include <string>

namespace nerolith::windows {

/// The bytes of a wave file: a quiet tone, 44.1 kHz, mono, 16 bits.
inline std::string toneFile(double seconds, double hertz = 440) {
  constexpr std::uint32_t kRate = 44100;
  const auto samples = static_cast<std::uint32_t>(std::lround(seconds * kRate));
  std::string bytes;
  const auto number = [&bytes](std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFF);
  };
  bytes += "RIFF";
  number(36 + 2 * samples, 4);
  bytes += "WAVEfmt ";
  number(16, 4);
  number(1, 2);
  number(1, 2);
  number(kRate, 4);
  number(2 * kRate, 4);
  number(2, 2);
  number(16, 2);
  bytes += "data";
  number(2 * samples, 4);
  for (std::uint32_t i = 0; i < samples; ++i)
    number(static_cast<std::uint32_t>(std::lround(
               4000 * std::sin(2 * std::numbers::pi * hertz * i / static_cast<double>(kRate)))),
           2);
  return bytes;
}

}  // namespace nerolith::windows
