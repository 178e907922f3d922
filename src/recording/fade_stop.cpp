#include "recording/fade_stop.h"

#include <utility>

namespace nerolith::recording {
namespace {

constexpr float kAfterwards = 0.5F;
constexpr float kDay = 86400;

}  // namespace

FadeStop::FadeStop(controls::Timer& watch, const platform::Clock& clock,
                   std::function<float()> fadeLength, std::function<void()> over)
    : watch_(watch),
      clock_(clock),
      fadeLength_(std::move(fadeLength)),
      over_(std::move(over)),
      subscription_(watch.tick.subscribe([this] { look(); })) {}

void FadeStop::begin() {
  begun_ = static_cast<float>(clock_.secondsSinceMidnight());
  watch_.setEnabled(true);
}

void FadeStop::cancel() { watch_.setEnabled(false); }

void FadeStop::look() {
  if (!waiting()) return;
  auto now = static_cast<float>(clock_.secondsSinceMidnight());
  // The clock begins again at midnight; a fade does not last until the next one.
  if (now < begun_) now += kDay;
  const float end = begun_ + fadeLength_() + kAfterwards;
  if (now < end) return;
  watch_.setEnabled(false);
  over_();
}

}  // namespace nerolith::recording
