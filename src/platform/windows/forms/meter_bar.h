// The meter of the recording level.
#pragma once

#include "controls/progress_bar.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// A row of small lights, each in the colour of its place on the bar.
class MeterBar final : public ControlView {
 public:
  MeterBar(FormGround& ground, controls::ProgressBar& bar);
  Extent extent() const override;

 protected:
  void refresh() override;
  void paint(Canvas& canvas) override;

 private:
  int lightsOf(int width) const;
  int litOf(int lights) const;

  controls::ProgressBar& bar_;
  int shown_ = -1;  // lights that are lit on the screen
};

}  // namespace nerolith::windows_forms
