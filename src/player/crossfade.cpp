#include "player/crossfade.h"

#include <algorithm>
#include <cmath>

namespace nerolith::player {
namespace {

std::string atLeastTwoDigits(std::int32_t number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

std::int32_t wholeSeconds(double seconds) {
  return static_cast<std::int32_t>(std::clamp(seconds, 0.0, 1e9));
}

}  // namespace

std::string timeText(float seconds) {
  const std::int32_t whole = wholeSeconds(std::floor(seconds));
  return atLeastTwoDigits(whole / 60) + ":" + atLeastTwoDigits(whole % 60);
}

std::string countdownText(double seconds) {
  const std::int32_t whole = wholeSeconds(std::ceil(seconds));
  return std::to_string(whole / 60) + ":" + atLeastTwoDigits(whole % 60);
}

float levelPercent(std::int32_t volume) {
  return std::clamp(static_cast<float>(volume - kReleaseLevel) / 50.0F, 0.0F, 100.0F);
}

}  // namespace nerolith::player
