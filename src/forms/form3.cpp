#include "forms/form3.h"

namespace nerolith::forms {
namespace {

using controls::Box;
using controls::column;
using controls::leaf;
using controls::Look;
using controls::row;
using controls::space;

constexpr int kIconSide = 48;
constexpr int kKeyWidth = 104;
constexpr int kKeyHeight = 32;

Box state(Form3& f) {
  return row({leaf(&f.picTray).sized(kIconSide, kIconSide),
              column({space(), leaf(&f.Label1, Look::Dim), leaf(&f.lblMessage), space()})
                  .spaced(4, 0)
                  .stretched(1)})
      .spaced(14, 14)
      .with(Look::Group);
}

Box keys(Form3& f) {
  return row({leaf(&f.cmdAdd).sized(kKeyWidth, kKeyHeight),
              leaf(&f.cmdDelete).sized(kKeyWidth, kKeyHeight), space(),
              leaf(&f.cmdClose).sized(kKeyWidth, kKeyHeight)})
      .spaced(10, 0);
}

}  // namespace

Form3::Form3() {
  form.setCaption("Nerolith tray icon");
  Label1.setCaption("Current Task Tray Message");
  cmdAdd.setCaption("&Add Icon");
  cmdDelete.setCaption("&Delete Icon");
  cmdClose.setCaption("&Close");
  lblMessage.setAccessibleName("Current Task Tray Message");
  picTray.setAccessibleName("Tray icon");
  mnuFile.setItems({&mnuPlayNext, &mnuMessage, &mnuSep, &mnuExit});
  form.setVisible(false);
  form.setResizable(false);
  form.setLayout(column({state(*this), keys(*this)}).spaced(12, 14));
}

}  // namespace nerolith::forms
