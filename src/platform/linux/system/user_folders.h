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
/// $XDG_RUNTIME_DIR/velmarion, by default velmarion-UID in the system's temporary folder; made by
/// this call, for this user alone. Empty when there is none that only this user can write to.
std::string runtimeFolder();

/// Where that lies which came with a program in `programFolder` (a skin): beside it, or in
/// ../share/velmarion once it was installed in a folder `bin`.
std::string companionsFolder(const std::string& programFolder);

}  // namespace nerolith::system
