// Which view shows which control.
#pragma once

#include <memory>

#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// nullptr where nothing is placed.
std::unique_ptr<ControlView> makeView(FormGround& ground, const controls::PlacedControl& control,
                                      controls::Look look, bool onGlass);

/// What tells one placed control from another.
const void* identityOf(const controls::PlacedControl& control);

}  // namespace nerolith::windows_forms
