#include "recording/limit_boxes.h"

#include "recording/recording_limits.h"

namespace nerolith::recording {
namespace {

enum Box { kMegabytes = 0, kMinutes = 1 };

}  // namespace

LimitBoxes::LimitBoxes(forms::RecordingForm& form) : form_(form) {
  for (std::size_t i = 0; i < form_.Text1.size(); ++i)
    subscriptions_[i] = form_.Text1[i].change.subscribe([this, i] { Text1_Change(i); });
}

void LimitBoxes::Text1_Change(std::size_t index) {
  if (updatingLimits_) return;
  updatingLimits_ = true;
  controls::TextBox& changed = form_.Text1[index];
  changed.setText(limitText(changed.text()));
  if (index == kMegabytes)
    form_.Text1[kMinutes].setText(minutesOfMegabytes(changed.text()));
  else
    form_.Text1[kMegabytes].setText(megabytesOfMinutes(changed.text()));
  updatingLimits_ = false;
}

void LimitBoxes::showArmed(bool armed) {
  for (controls::TextBox& box : form_.Text1)
    box.setBackColour(armed ? forms::kLimitArmed : forms::kLimitIdle);
}

bool LimitBoxes::reached(float fadeLength, std::int32_t fileBytes) const {
  return limitReached(form_.Text1[kMegabytes].text(), fadeLength, fileBytes);
}

}  // namespace nerolith::recording
