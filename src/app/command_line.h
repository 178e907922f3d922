// What the command line asks for.
#pragma once

#include <string>
#include <string_view>

namespace nerolith::app {

/// The text of the message box that "?" asks for.
inline constexpr const char* kUsageText = "Velmarion.exe [filename] [1,2,3]";

/// "1" Single, "2" Auto next, "3" Random; Single where the command line names no other.
struct CommandLine {
  std::string fileName;
  std::string modeCode = "1";

  bool asksForUsage() const { return fileName == "?"; }
};

/// The whole command line is one text, split at commas (not at blanks): file name, mode. A first
/// item that is a number greater than 0 and less than 4 is the mode, and there is no file. A mode
/// that is no whole number leaves Single.
CommandLine parseCommandLine(std::string_view text);

/// Whether a file name ends in ".m3u", in capitals or not: such a file is imported.
bool namesPlaylist(std::string_view fileName);

/// The file name cut behind its last separator: folder with the separator at its end (empty when
/// there is none) and the bare name.
struct FolderAndName {
  std::string folder;
  std::string name;
};
FolderAndName splitPath(std::string_view fileName, char separator);

/// `path` as it stands when it begins with a separator or a drive letter; else below `directory`.
std::string absolutePath(std::string_view path, std::string_view directory, char separator);

}  // namespace nerolith::app
