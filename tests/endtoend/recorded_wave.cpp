#include "endtoend/recorded_wave.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <cstring>
#include <numbers>
#include <string>

#include "endtoend/child_process.h"

namespace nerolith::endtoend {
namespace {

constexpr std::int64_t kHeaderBytes = 44;
constexpr double kTau = 2 * std::numbers::pi;

std::uint32_t number(const std::string& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i)
    value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << (8 * i);
  return value;
}

std::int16_t sampleAt(const std::string& bytes, std::size_t at) {
  std::int16_t value = 0;
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}

void expect(bool holds, const std::string& what, Complaints& complaints) {
  if (!holds) complaints.push_back("the recorded file: " + what);
}

void checkHeader(const std::string& bytes, Complaints& complaints) {
  const std::string words = bytes.substr(0, 4) + bytes.substr(8, 8) + bytes.substr(36, 4);
  expect(words == "RIFFWAVEfmt data", "its header names \"" + words + "\"", complaints);
  const std::string format("\x10\0\0\0\1\0\2\0\x44\xac\0\0\x10\xb1\2\0\4\0\x10\0", 20);
  expect(bytes.substr(16, 20) == format, "its format is another", complaints);
  expect(number(bytes, 4) == number(bytes, 40) + 44, "its two sizes do not agree", complaints);
}

/// The strength and phase of a tone around a sample, under a window of 10 ms on either side.
std::complex<double> toneAt(const Sound& sound, double hertz, std::int64_t middle) {
  constexpr std::int64_t kReach = Sound::kRate / 100;
  std::complex<double> sum = 0;
  for (std::int64_t i = middle - kReach; i < middle + kReach; ++i) {
    if (i < 0 || i >= static_cast<std::int64_t>(sound.samples.size())) continue;
    const double window = 0.5 + 0.5 * std::cos(kTau / 2 * static_cast<double>(i - middle) / kReach);
    const double turns = std::fmod(hertz * static_cast<double>(i) / Sound::kRate, 1.0);
    sum += std::polar(window * sound.samples[static_cast<std::size_t>(i)], -kTau * turns);
  }
  return sum / static_cast<double>(kReach) * 2.0;
}

/// With the header and the empty samples.
std::int64_t fileBytesFor(std::int64_t dataBytes, Ending ending) {
  // The rest fetched at the stop has its empty sample too, even where nothing was left.
  const std::int64_t pieces = ending == Ending::Stopped ? dataBytes / kHalfBytes + 1
                                                        : (dataBytes + kHalfBytes - 1) / kHalfBytes;
  return kHeaderBytes + dataBytes + 2 * pieces;
}

}  // namespace

RecordedWave readRecorded(const std::filesystem::path& file, Complaints& complaints,
                          Ending ending) {
  const std::string bytes = contentsOf(file);
  RecordedWave wave;
  wave.fileBytes = static_cast<std::int64_t>(bytes.size());
  if (wave.fileBytes < kHeaderBytes) {
    complaints.push_back("nothing is recorded into " + file.filename().string());
    return wave;
  }
  checkHeader(bytes, complaints);
  wave.dataBytes = number(bytes, 40);
  expect(wave.fileBytes == fileBytesFor(wave.dataBytes, ending),
         std::to_string(wave.fileBytes) + " bytes with " + std::to_string(wave.dataBytes) +
             " of sound by its header",
         complaints);
  int full = 0;
  for (std::int64_t at = kHeaderBytes; at + 2 <= wave.fileBytes;) {
    const std::int64_t end = std::min(at + kHalfBytes, wave.fileBytes - 2);
    for (; at + 4 <= end; at += 4) {
      const auto place = static_cast<std::size_t>(at);
      const double both = sampleAt(bytes, place) + sampleAt(bytes, place + 2);
      wave.sound.samples.push_back(static_cast<float>(both / 65536));
    }
    full += sampleAt(bytes, static_cast<std::size_t>(end)) != 0;
    at = end + 2;
  }
  expect(full == 0, std::to_string(full) + " of its extra samples are not empty", complaints);
  return wave;
}

std::vector<double> phaseLeaps(const Sound& sound, double hertz, double from, double to) {
  constexpr std::int64_t kStep = Sound::kRate / 100;
  constexpr double kFaint = 0.0056;  // -45 dB
  constexpr double kLeap = 0.012;    // radians; half a sample of a 180 Hz tone
  std::vector<double> leaps;
  std::complex<double> before = 0;
  for (auto at = static_cast<std::int64_t>(from * Sound::kRate);
       at < static_cast<std::int64_t>(to * Sound::kRate); at += kStep) {
    const std::complex<double> now = toneAt(sound, hertz, at);
    const bool both = std::abs(before) > kFaint && std::abs(now) > kFaint;
    if (both && std::abs(std::arg(now * std::conj(before))) > kLeap)
      leaps.push_back(static_cast<double>(at) / Sound::kRate);
    before = now;
  }
  return leaps;
}

}  // namespace nerolith::endtoend
