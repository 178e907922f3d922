#include "endtoend/tones.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <numbers>
#include <stdexcept>

#include "endtoend/child_process.h"

namespace nerolith::endtoend {
namespace {

constexpr double kEdge = 0.01;
constexpr double kClimbStart = 500;
constexpr double kClimbRate = 300;

// Rises and falls like half a cosine, so that the edge has no corner either.
double edge(double time, double seconds) {
  const double inside = std::clamp(std::min(time, seconds - time) / kEdge, 0.0, 1.0);
  return 0.5 - 0.5 * std::cos(std::numbers::pi * inside);
}

template <class Phase>
Sound shaped(double seconds, Phase phase) {
  Sound sound;
  const auto count = static_cast<std::size_t>(std::lround(seconds * Sound::kRate));
  for (std::size_t i = 0; i < count; ++i) {
    const double time = static_cast<double>(i) / Sound::kRate;
    sound.samples.push_back(
        static_cast<float>(kToneAmplitude * edge(time, seconds) * std::sin(phase(time))));
  }
  return sound;
}

void putLittleEndian(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) bytes.push_back(static_cast<char>(value >> (8 * i)));
}

std::vector<std::string> coderFor(const std::string& ending) {
  if (ending == ".mp3") return {"-c:a", "libmp3lame", "-b:a", "192k"};
  if (ending == ".mp2") return {"-c:a", "mp2", "-b:a", "256k"};
  if (ending == ".mpg") return {"-c:a", "mp2", "-b:a", "256k", "-f", "mpeg"};
  if (ending == ".wma" || ending == ".asf") return {"-c:a", "wmav2", "-b:a", "192k"};
  if (ending == ".aif") return {"-c:a", "pcm_s16be", "-f", "aiff"};
  throw std::runtime_error("no coder for " + ending);
}

void runFfmpeg(std::vector<std::string> words) {
  words.insert(words.begin(), {"ffmpeg", "-nostdin", "-v", "error", "-y"});
  Command command;
  command.words = std::move(words);
  if (runToEnd(command) != 0) throw std::runtime_error("ffmpeg cannot make the songs");
}

}  // namespace

Sound tone(double hertz, double seconds) {
  return shaped(seconds, [&](double time) { return 2 * std::numbers::pi * hertz * time; });
}

Sound songOf(double hertz, double seconds) {
  constexpr double kSilence = 0.1;
  Sound sound = tone(hertz, seconds - 2 * kSilence);
  const auto count = static_cast<std::size_t>(kSilence * Sound::kRate);
  sound.samples.insert(sound.samples.begin(), count, 0.0F);
  sound.samples.insert(sound.samples.end(), count, 0.0F);
  return sound;
}

Sound climbingTone(double seconds) {
  return shaped(seconds, [](double time) {
    return 2 * std::numbers::pi * (kClimbStart * time + kClimbRate * time * time / 2);
  });
}

double positionInClimb(double hertz) { return (hertz - kClimbStart) / kClimbRate; }

double songFrequency(std::size_t index) { return 700 + 270 * static_cast<double>(index * 7 % 20); }

void writeWav(const Sound& sound, const std::filesystem::path& file) {
  const auto dataBytes = static_cast<std::uint32_t>(sound.samples.size() * 4);
  std::string bytes = "RIFF";
  putLittleEndian(bytes, 36 + dataBytes, 4);
  bytes += "WAVEfmt ";
  putLittleEndian(bytes, 16, 4);
  putLittleEndian(bytes, 1, 2);  // PCM
  putLittleEndian(bytes, 2, 2);  // stereo
  putLittleEndian(bytes, Sound::kRate, 4);
  putLittleEndian(bytes, Sound::kRate * 4, 4);
  putLittleEndian(bytes, 4, 2);
  putLittleEndian(bytes, 16, 2);
  bytes += "data";
  putLittleEndian(bytes, dataBytes, 4);
  for (const float sample : sound.samples) {
    const auto value = static_cast<std::uint32_t>(std::lround(sample * 32767));
    putLittleEndian(bytes, value, 2);
    putLittleEndian(bytes, value, 2);
  }
  std::ofstream(file, std::ios::binary) << bytes;
}

Sound decode(const std::filesystem::path& file) {
  const ScratchFolder scratch;
  const auto raw = scratch.path() / "decoded.raw";
  runFfmpeg({"-i", file.string(), "-f", "f32le", "-ac", "1", "-ar", "44100", raw.string()});
  Sound sound;
  const std::string bytes = contentsOf(raw);
  sound.samples.resize(bytes.size() / sizeof(float));
  std::copy_n(bytes.data(), sound.samples.size() * sizeof(float),
              reinterpret_cast<char*>(sound.samples.data()));
  return sound;
}

Song encode(const Sound& sound, double hertz, const std::filesystem::path& file) {
  if (file.extension() == ".wav") {
    writeWav(sound, file);
  } else {
    const ScratchFolder scratch;
    const auto source = scratch.path() / "source.wav";
    writeWav(sound, source);
    std::vector<std::string> words = {"-i", source.string()};
    for (const std::string& word : coderFor(file.extension().string())) words.push_back(word);
    words.push_back(file.string());
    runFfmpeg(words);
  }
  const Sound decoded = decode(file);
  Song song{file, hertz, 0, decoded.length()};
  const auto heard = stretchesAbove(envelopeOf(decoded, hertz, -0.1, 0.4, 0.001), kToneLevel - 6);
  if (!heard.empty()) song.attack = heard.front().from;
  return song;
}

std::vector<Song> makeSongs(const std::filesystem::path& folder,
                            const std::vector<std::string>& names, double seconds) {
  std::vector<Song> songs;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const Sound song = songOf(songFrequency(i), seconds + 0.023 * static_cast<double>(i));
    songs.push_back(encode(song, songFrequency(i), folder / names[i]));
  }
  return songs;
}

}  // namespace nerolith::endtoend
