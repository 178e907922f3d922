// The two boxes in which a recording's limit is typed, in megabytes or in minutes.
#pragma once

#include <array>
#include <cstdint>

#include "base/signal.h"
#include "forms/recording_form.h"

namespace nerolith::recording {

/// Keeps each box to its number and the other one at what the number comes to. Binds Text1.
class LimitBoxes {
 public:
  explicit LimitBoxes(forms::RecordingForm& form);
  LimitBoxes(const LimitBoxes&) = delete;
  LimitBoxes& operator=(const LimitBoxes&) = delete;

  /// Dark red while a recording is held to them, dark grey otherwise.
  void showArmed(bool armed);
  /// See `limitReached`; only the megabytes count.
  bool reached(float fadeLength, std::int32_t fileBytes) const;

 private:
  void Text1_Change(std::size_t index);

  forms::RecordingForm& form_;
  bool updatingLimits_ = false;
  std::array<base::Subscription, 2> subscriptions_;
};

}  // namespace nerolith::recording
