// The host of the tray icon, as data.
#pragma once

#include "controls/buttons.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/menu.h"
#include "controls/picture_box.h"

namespace nerolith::forms {

/// A window that stays hidden: its picture box hears the icon's mouse, and its menu is the icon's.
/// The rest is a small panel to try the icon out. Controls keep the names that the player's rules
/// know them by.
struct Form3 {
  Form3();
  Form3(const Form3&) = delete;
  Form3& operator=(const Form3&) = delete;

  controls::Form form;

  controls::Label Label1;
  controls::Label lblMessage;  // whether the icon was added or deleted from here
  controls::PictureBox picTray;
  controls::CommandButton cmdAdd, cmdDelete, cmdClose;

  controls::MenuItem mnuFile{"&File"};  // in no menu bar: only popped up
  controls::MenuItem mnuPlayNext{"Play Next"};
  controls::MenuItem mnuMessage{"Maximize"};
  controls::MenuItem mnuSep{"-"};
  controls::MenuItem mnuExit{"E&xit"};
};

}  // namespace nerolith::forms
