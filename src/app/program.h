// The player as a whole: makes the parts, joins them, starts and ends them.
#pragma once

#include <string>
#include <vector>

#include "app/editor_work.h"
#include "app/list_work.h"
#include "app/main_window.h"
#include "app/neighbours.h"
#include "app/player_for_recording.h"
#include "app/playlist_work.h"
#include "app/remote_control.h"
#include "app/shut_down.h"
#include "app/start_up.h"
#include "app/stay_awake.h"
#include "app/tray_work.h"
#include "forms/main_form.h"
#include "forms/main_menu.h"
#include "forms/settings_form.h"
#include "library/folder_browser.h"
#include "library/recent_scan.h"
#include "library/song_list.h"
#include "platform/first_instance.h"
#include "platform/machine.h"
#include "player/player.h"
#include "player/recording_link.h"
#include "recording/recording_section.h"
#include "settings/settings_window.h"
#include "settings/stored_settings.h"

namespace nerolith::app {

/// Parts that stand in for the program's own; tests hand over ones that write down what was asked.
struct StandIns {
  PlaylistActions* playlists = nullptr;
  NotificationIcon* icon = nullptr;
  player::RecordingLink* recording = nullptr;
};

/// Made once per run, on the user-interface thread; all that it is handed outlives it.
/// start -> the user works -> the main form's unload saves the run and ends the event queue.
class Program {
 public:
  explicit Program(const platform::Machine& machine, const StandIns& standIns = {});
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Restores the last run and shows the window; what makes sound follows once the window is up.
  void start(const std::string& commandLine);

  /// A later start of the program ended in favour of this one: comes to the front and does what
  /// that one was asked for.
  void takeOver(const platform::StartRequest& later);
  /// Shows the window that the user works in, in front of all others.
  void comeForward();

  forms::MainForm& mainForm() { return form_; }
  forms::EditorForm& editorForm() { return editor_.form(); }
  forms::SettingsForm& settingsForm() { return settingsForm_; }
  forms::Form3& trayForm() { return tray_.form(); }
  library::SongList& songs() { return songs_; }
  player::Player& player() { return player_; }
  recording::RecordingSection& recordingSection() { return recording_; }

 private:
  void unload();
  void takeDroppedFiles();
  void dropped(const std::vector<std::string>& paths);

  Neighbours neighbours();

  platform::Machine machine_;
  StandIns standIns_;
  forms::MainForm form_;
  forms::MainMenu menu_;
  settings::LiveSettings live_;
  settings::StoredSettings stored_;
  library::SongList songs_;
  library::FolderBrowser browser_;
  library::RecentScan recentScan_;
  PlayerForRecording playing_;
  recording::RecordingSection recording_;
  player::Player player_;
  EditorWork editor_;
  PlaylistWork playlists_;
  TrayWork tray_;
  ListWork listWork_;
  forms::SettingsForm settingsForm_;
  settings::SettingsWindow settingsWindow_;
  MainWindow mainWindow_;
  StartUp startUp_;
  ShutDown shutDown_;
  RemoteControl remote_;
  StayAwake awake_;
  base::Subscription unload_;
  base::Subscription drops_;
  base::Subscription record_;
  bool ended_ = false;
};

}  // namespace nerolith::app
