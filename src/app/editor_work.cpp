#include "app/editor_work.h"

#include <utility>

namespace nerolith::app {

EditorWork::EditorWork(const platform::Machine& machine, controls::Form& mainWindow,
                       library::SongList& songs, const library::FolderBrowser& browser,
                       std::function<void()> addSelection)
    : machine_(machine),
      mainWindow_(mainWindow),
      editor_({form_, songs, machine.bytes, machine.encoding, machine.files.separator()},
              {[&browser] { return browser.folder(); },
               [this] {
                 if (ended_) return;
                 mainWindow_.setVisible(true);
                 mainWindow_.bringForward();
               },
               std::move(addSelection)}) {
  machine_.windows.add(form_.form_4);
}

EditorWork::~EditorWork() { machine_.windows.remove(form_.form_4); }

void EditorWork::end() {
  ended_ = true;
  if (form_.form_4.visible()) form_.form_4.close();
}

}  // namespace nerolith::app
