// The playlist editor's window, as data.
#pragma once

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/menu.h"

namespace nerolith::forms {

/// Controls keep the names that the player's rules know them by. Captions and layout are set when
/// it is made; what they do is subscribed by the playlist editor.
struct EditorForm {
  EditorForm();
  EditorForm(const EditorForm&) = delete;
  EditorForm& operator=(const EditorForm&) = delete;

  controls::Form form_4;

  controls::Label Label1;            // what to do
  controls::ListBox List1;           // the lines of the file
  controls::CommandButton Command1;  // on to a further playlist file
  controls::CommandButton closeButton;
  controls::Label waiting;    // how many songs wait to be added
  controls::Label lineCount;  // how many lines the file has
  controls::Label lineWord;   // "lines", or "line" where it has one
  controls::Label notice;     // why the file could not be written

  controls::MenuItem menu;  // pops up at the clicked entry
  controls::MenuItem mnuBefore{"Add files before this file"};
  controls::MenuItem mnuAfter{"Add files after this file"};
  controls::MenuItem mnuReplace{"Replace file"};
  controls::MenuItem mnuRemove{"Remove from list"};

 private:
  base::Subscription listCounted_;
};

}  // namespace nerolith::forms
