// The player's own folders: the user's, and the one that came with the program.
#pragma once

#include <string>

namespace nerolith::system {

/// $HOME, or what the user database says; "/" when neither knows. No separator at its end.
std::string homeFolder();
/// $XDG_CONFIG_HOME/velmarion, by default ~/.config/velmarion. It may not exist.
std::string configFolder();
/// $XDG_DATA_HOME/velmarion, by default ~/.local/share/velmarion. It may not exist.
std::string dataFolder();

/// Where that lies which came with a program in `programFolder` (a skin): beside it, or in
/// ../share/velmarion once it was installed in a folder `bin`.
std::string companionsFolder(const std::string& programFolder);

}  // namespace nerolith::system
