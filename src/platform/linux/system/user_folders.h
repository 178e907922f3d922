// The player's own folders in the user's home.
#pragma once

#include <string>

namespace nerolith::system {

/// $HOME, or what the user database says; "/" when neither knows. No separator at its end.
std::string homeFolder();
/// $XDG_CONFIG_HOME/velmarion, by default ~/.config/velmarion. It may not exist.
std::string configFolder();
/// $XDG_DATA_HOME/velmarion, by default ~/.local/share/velmarion. It may not exist.
std::string dataFolder();

}  // namespace nerolith::system
