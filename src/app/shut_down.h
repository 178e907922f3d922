// Saves the run and carries out what was put off until the close.
#pragma once

#include "app/neighbours.h"
#include "library/folder_browser.h"
#include "settings/stored_settings.h"

namespace nerolith::app {

/// Run once, when the main window is about to go. In this order, each failure skipped: the folder
/// (unless the command line named a file), the playlist, the mode and the loop flag are saved, then
/// the files marked for deletion are deleted, then the icon leaves the notification area.
class ShutDown {
 public:
  ShutDown(settings::StoredSettings& stored, const library::FolderBrowser& browser,
           Neighbours neighbours)
      : stored_(stored), browser_(browser), neighbours_(neighbours) {}

  void run(bool fileGivenOnCommandLine);

 private:
  settings::StoredSettings& stored_;
  const library::FolderBrowser& browser_;
  Neighbours neighbours_;
};

}  // namespace nerolith::app
