// Which view shows which control.
#pragma once

#include <memory>

#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// nullptr where nothing is placed.
std::unique_ptr<ControlView> makeView(FormGround& ground, const controls::PlacedControl& control,
                                      controls::Look look, bool onGlass);

}  // namespace nerolith::windows_forms
