// Brings the last run back and carries out what the command line asks for.
#pragma once

#include <string>

#include "app/command_line.h"
#include "app/neighbours.h"
#include "forms/main_form.h"
#include "library/folder_browser.h"
#include "library/song_list.h"
#include "platform/first_instance.h"
#include "platform/machine.h"
#include "player/player.h"
#include "settings/stored_settings.h"

namespace nerolith::app {

/// What start-up works on; everything outlives it.
struct StartUpParts {
  forms::MainForm& window;
  settings::LiveSettings& live;
  settings::StoredSettings& stored;
  library::SongList& songs;
  library::FolderBrowser& browser;
  player::Player& player;
  Neighbours neighbours;
};

/// Runs in two pieces: `load` before the window is shown, `begin` once it is up, so that neither a
/// sound card nor a decoder is touched before the user sees the program. Each step that fails is
/// skipped and the next one runs.
class StartUp {
 public:
  StartUp(const platform::Machine& machine, const StartUpParts& parts)
      : machine_(machine), parts_(parts) {}

  /// Skin, version, settings with their defaults, last folder, play mode, stirred random numbers.
  void load();

  /// The command line, if it is not empty; else the last playlist and, unless the mode is Single,
  /// the first song.
  void begin(const std::string& commandLine);

  /// A later start of the program handed over what it was asked for: as `begin` with its command
  /// line, but that relative names, bare ones too, count from the folder of that start. An empty
  /// command line asks for nothing.
  void beginAgain(const platform::StartRequest& later);

  /// Opens a file, folder or playlist by its whole path, in the mode that is set, and plays a song.
  /// Its folder is remembered at close like any that the user chose.
  void open(const std::string& path);

  /// The command line named a file; the folder is then not remembered at close.
  bool fileGiven() const { return fileGiven_; }

 private:
  void showSkin();
  void showVersion();
  void restoreFolder();
  void tickMode(const std::string& modeCode);
  void stirRandomNumbers();

  CommandLine read(const std::string& commandLine, const std::string& directory) const;
  void follow(const CommandLine& line);
  std::string wholePath(const std::string& fileName, const std::string& directory) const;
  void openFolderOf(const std::string& fileName);
  bool playNamedSong();
  void startWithoutSong();
  void reopenLastPlaylist();

  platform::Machine machine_;
  StartUpParts parts_;
  std::string startDirectory_;
  bool settingsAbsent_ = false;
  bool fileGiven_ = false;
};

}  // namespace nerolith::app
