// How loud a deck is set.
#pragma once

#include "controls/progress_bar.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// A slim bar, amber below half.
class LevelBar : public ControlView {
 public:
  LevelBar(FormGround& ground, controls::ProgressBar& bar);
  Extent extent() const override;

 protected:
  void refresh() override;
  void paint(Canvas& canvas) override;

 private:
  controls::ProgressBar& bar_;
};

}  // namespace nerolith::windows_forms
