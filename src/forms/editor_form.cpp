#include "forms/editor_form.h"

namespace nerolith::forms {
namespace {

using controls::Box;
using controls::column;
using controls::leaf;
using controls::Look;
using controls::row;
using controls::space;

Box head(EditorForm& f) {
  return row({leaf(&f.Label1), space(), leaf(&f.waiting, Look::Dim)}).spaced(8, 0);
}

Box foot(EditorForm& f) {
  return row({leaf(&f.lineCount, Look::Figure), leaf(&f.lineWord, Look::Dim),
              leaf(&f.notice, Look::Notice).stretched(1), leaf(&f.Command1), leaf(&f.closeButton)})
      .spaced(8, 0);
}

void setCaptions(EditorForm& f) {
  f.form_4.setCaption("Add files to playlist");
  f.Label1.setCaption("Click on a file to add the file(s)");
  f.Command1.setCaption("Next M3U");
  f.closeButton.setCaption("&Close");
  f.lineCount.setCaption("0");
  f.lineWord.setCaption("lines");
  f.List1.setAccessibleName("Songs of the playlist");
  f.lineCount.setAccessibleName("Line count");
  f.notice.setAccessibleName("Trouble with the playlist");
  f.List1.setEmptyHint("No songs in this playlist");
  f.Command1.setToolTip("Add the same files to a further playlist");
}

}  // namespace

EditorForm::EditorForm() {
  setCaptions(*this);
  menu.setItems({&mnuBefore, &mnuAfter, &mnuReplace, &mnuRemove});
  List1.setSelecting(controls::ListBox::Selecting::One);
  listCounted_ = List1.itemsChanged.subscribe([this] {
    lineCount.setCaption(std::to_string(List1.count()));
    lineWord.setCaption(List1.count() == 1 ? "line" : "lines");
  });
  form_4.setVisible(false);
  form_4.setLayout(column({head(*this), leaf(&List1).stretched(1), foot(*this)}).spaced(10, 14));
}

}  // namespace nerolith::forms
