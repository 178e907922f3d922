// The playlist editor, bound to the main window.
#pragma once

#include <functional>

#include "app/neighbours.h"
#include "forms/editor_form.h"
#include "library/folder_browser.h"
#include "platform/machine.h"
#include "playlist/editor_window.h"

namespace nerolith::app {

/// Hosts the editor's window while it lives. While the editor is open the main window is hidden,
/// and comes back with the keyboard when the editor is closed; not when the program ends.
class EditorWork {
 public:
  EditorWork(const platform::Machine& machine, controls::Form& mainWindow, library::SongList& songs,
             const library::FolderBrowser& browser, std::function<void()> addSelection);
  ~EditorWork();
  EditorWork(const EditorWork&) = delete;
  EditorWork& operator=(const EditorWork&) = delete;

  playlist::PlaylistEditor& editor() { return editor_; }
  forms::EditorForm& form() { return form_; }

  /// The main window has been closed: the editor goes with it.
  void end();

 private:
  platform::Machine machine_;
  controls::Form& mainWindow_;
  forms::EditorForm form_;
  playlist::EditorWindow editor_;
  bool ended_ = false;
};

}  // namespace nerolith::app
