#include "synthesis.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "instrument.h"

namespace nerolith::demo {
namespace {

// One side of a room: echoes that feed back and darken, then two passes that blur them.
class Room {
 public:
  explicit Room(size_t offset) {
    constexpr std::array<size_t, 6> kEchoes = {1187, 1291, 1373, 1451, 1543, 1621};
    for (size_t i = 0; i < kEchoes.size(); ++i) {
      echoes_[i].resize(kEchoes[i] + offset);
    }
    blurs_[0].resize(557 + offset);
    blurs_[1].resize(223 + offset);
  }

  double next(double in) {
    double sum = 0.0;
    for (size_t i = 0; i < echoes_.size(); ++i) {
      auto& line = echoes_[i];
      const size_t place = count_ % line.size();
      dark_[i] += 0.65 * (line[place] - dark_[i]);
      sum += line[place];
      line[place] = in + 0.84 * dark_[i];
    }
    for (auto& line : blurs_) {
      const size_t place = count_ % line.size();
      const double old = line[place];
      line[place] = sum + 0.5 * old;
      sum = old - 0.5 * line[place];
    }
    ++count_;
    return sum / 6.0;
  }

 private:
  std::array<std::vector<double>, 6> echoes_;
  std::array<std::vector<double>, 2> blurs_;
  std::array<double, 6> dark_{};
  size_t count_ = 0;
};

void addRoom(Sound& sound, double share) {
  Room left(0);
  Room right(23);
  for (size_t i = 0; i < sound.left.size(); ++i) {
    const double middle = 0.5 * (sound.left[i] + sound.right[i]);
    sound.left[i] += static_cast<float>(share * left.next(middle));
    sound.right[i] += static_cast<float>(share * right.next(middle));
  }
}

void master(Sound& sound) {
  float peak = 1e-6F;
  for (auto* side : {&sound.left, &sound.right}) {
    for (auto& sample : *side) {
      sample = std::tanh(0.5F * sample);  // rounds the odd peak, so that the rest can be louder
      peak = std::max(peak, std::abs(sample));
    }
  }
  const float gain = 0.84F / peak;
  const size_t length = sound.left.size();
  const size_t fade = kSampleRate / 2;
  for (auto* side : {&sound.left, &sound.right}) {
    for (size_t i = 0; i < length; ++i) {
      const size_t left = length - i;
      (*side)[i] *= left < fade ? gain * static_cast<float>(left) / static_cast<float>(fade) : gain;
    }
  }
}

}  // namespace

Sound render(const Song& song) {
  const double beat = 60.0 / song.tempo;
  double end = 0.0;
  for (const auto& note : song.notes) {
    end = std::max(end, (note.start + note.length) * beat);
  }
  const auto length = static_cast<size_t>((end + 1.5) * kSampleRate);
  Sound sound{std::vector<float>(length), std::vector<float>(length)};

  unsigned seed = 1;
  for (const auto& note : song.notes) {
    const double frequency = 440.0 * std::pow(2.0, (note.pitch - 69) / 12.0);
    const auto samples = play(note.voice, frequency, note.length * beat, note.velocity, seed++);
    const auto start = static_cast<size_t>(note.start * beat * kSampleRate);
    const double angle = (note.pan + 1.0) * std::numbers::pi / 4.0;
    const auto left = static_cast<float>(note.velocity * std::cos(angle));
    const auto right = static_cast<float>(note.velocity * std::sin(angle));
    for (size_t i = 0; i < samples.size() && start + i < length; ++i) {
      sound.left[start + i] += left * samples[i];
      sound.right[start + i] += right * samples[i];
    }
  }
  addRoom(sound, song.reverb);
  master(sound);
  return sound;
}

}  // namespace nerolith::demo
