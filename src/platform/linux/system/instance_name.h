// What the runs of one user on one desktop have in common.
#pragma once

#include <string>
#include <string_view>

namespace nerolith::system {

/// A file name for the desktop that a window would come up on, from the environment's
/// WAYLAND_DISPLAY and DISPLAY: a user who is logged in twice has a player on each. The screens of
/// one display are one desktop (":0.1" is ":0").
std::string instanceName(std::string_view waylandDisplay, std::string_view display);

}  // namespace nerolith::system
