#include "linux_sound/wave_file.h"

#include <cmath>
#include <cstring>
#include <fstream>
#include <numbers>

namespace nerolith::sound_tests {
namespace {

// Low and high digit of a frame's number, each a level between a quarter and a half: far from
// silence and from anything half faded.
constexpr std::int64_t kDigits = 4096;
constexpr float kBase = 0.25F;

float levelOf(std::int64_t digit) {
  return kBase + static_cast<float>(digit) / (4.0F * static_cast<float>(kDigits));
}

std::int64_t digitOf(float level) {
  const double digit = (static_cast<double>(level) - kBase) * 4.0 * static_cast<double>(kDigits);
  const double nearest = std::round(digit);
  return std::abs(digit - nearest) < 0.05 && nearest >= 0 && nearest < kDigits
             ? static_cast<std::int64_t>(nearest)
             : -1;
}

template <typename T>
void put(std::ofstream& file, T value) {
  file.write(reinterpret_cast<const char*>(&value), sizeof value);
}

}  // namespace

void writeWave(const std::string& path, const std::vector<Frame>& frames, int rate) {
  std::ofstream file(path, std::ios::binary);
  const auto bytes = static_cast<std::uint32_t>(frames.size() * sizeof(Frame));
  file << "RIFF";
  put<std::uint32_t>(file, 36 + bytes);
  file << "WAVEfmt ";
  put<std::uint32_t>(file, 16);
  put<std::uint16_t>(file, 3);  // IEEE float
  put<std::uint16_t>(file, 2);
  put<std::uint32_t>(file, static_cast<std::uint32_t>(rate));
  put<std::uint32_t>(file, static_cast<std::uint32_t>(rate) * 8);
  put<std::uint16_t>(file, 8);
  put<std::uint16_t>(file, 32);
  file << "data";
  put<std::uint32_t>(file, bytes);
  file.write(reinterpret_cast<const char*>(frames.data()), bytes);
}

std::vector<Frame> chirp(double seconds, int rate) {
  std::vector<Frame> frames(static_cast<std::size_t>(std::llround(seconds * rate)));
  double up = 0;
  double down = 0;
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const double share = static_cast<double>(i) / static_cast<double>(frames.size());
    frames[i] = {static_cast<float>(0.4 * std::sin(up)), static_cast<float>(0.4 * std::sin(down))};
    up += 2 * std::numbers::pi * (200 + 2800 * share) / rate;
    down += 2 * std::numbers::pi * (2500 - 2000 * share) / rate;
  }
  return frames;
}

std::vector<Frame> numbered(double seconds) {
  std::vector<Frame> frames(static_cast<std::size_t>(std::llround(seconds * sound::kSampleRate)));
  for (std::size_t i = 0; i < frames.size(); ++i) {
    const auto number = static_cast<std::int64_t>(i);
    frames[i] = {levelOf(number % kDigits), levelOf(number / kDigits)};
  }
  return frames;
}

std::int64_t numberOf(const Frame& frame) {
  const std::int64_t low = digitOf(frame.left);
  const std::int64_t high = digitOf(frame.right);
  return low < 0 || high < 0 ? -1 : high * kDigits + low;
}

std::vector<Frame> silence(double seconds) {
  return std::vector<Frame>(static_cast<std::size_t>(std::llround(seconds * sound::kSampleRate)));
}

}  // namespace nerolith::sound_tests
