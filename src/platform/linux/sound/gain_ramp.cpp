#include "platform/linux/sound/gain_ramp.h"

#include <cmath>
#include <cstddef>

namespace nerolith::sound {

float gainOfVolume(std::int32_t hundredthsOfDecibel) {
  if (hundredthsOfDecibel <= -10000) return 0;
  return static_cast<float>(std::pow(10.0, hundredthsOfDecibel / 2000.0));
}

void GainRamp::jumpTo(float level) {
  level_ = target_ = level;
  left_ = 0;
}

void GainRamp::glideTo(float level, int frames) {
  target_ = level;
  left_ = frames;
  step_ = (target_ - level_) / static_cast<float>(frames);
}

float GainRamp::next() {
  const float now = level_;
  if (left_ > 0) {
    level_ += step_;
    if (--left_ == 0) level_ = target_;
  }
  return now;
}

void GainRamp::addScaled(std::span<const Frame> in, std::span<Frame> out) {
  std::size_t i = 0;
  for (; i < in.size() && gliding(); ++i) {
    const float level = next();
    out[i].left += in[i].left * level;
    out[i].right += in[i].right * level;
  }
  const float level = level_;
  for (; i < in.size(); ++i) {
    out[i].left += in[i].left * level;
    out[i].right += in[i].right * level;
  }
}

}  // namespace nerolith::sound
