// How loud a deck is set, or how far work has got.
#pragma once

#include "controls/layout.h"
#include "controls/progress_bar.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// A slim bar; a level is amber below half, work that goes on is green from its beginning.
class LevelBar final : public ControlView {
 public:
  LevelBar(FormGround& ground, controls::ProgressBar& bar, controls::Look look);
  Extent extent() const override;

 protected:
  void refresh() override;
  void paint(Canvas& canvas) override;

 private:
  controls::ProgressBar& bar_;
  bool level_;
};

}  // namespace nerolith::windows_forms
