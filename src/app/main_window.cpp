#include "app/main_window.h"

#include "base/failure_policy.h"

namespace nerolith::app {

using base::goOn;

MainWindow::MainWindow(forms::MainForm& form, forms::MainMenu& menu, Neighbours neighbours,
                       std::function<void()> startSelected)
    : form_(form), menu_(menu), neighbours_(neighbours), startSelected_(std::move(startSelected)) {
  subscribeWindow();
  subscribeFaces();
  subscribeListAndMenu();
}

void MainWindow::subscribeWindow() {
  on(form_.form.activate, [this] { activated(); });
  on(form_.form.keyDown, [this](controls::KeyPress press) { keyDown(press); });
  on(form_.Label5[0].click, [this] { form_.form.close(); });
  on(form_.Label5[1].click, [this] { hide(); });
  on(form_.form.changed, [this] { hiddenByUser_ &= !form_.form.visible(); });
  on(neighbours_.icon.lost, [this] { iconLost(); });
}

void MainWindow::subscribeFaces() {
  for (std::size_t face = 0; face < form_.Label8.size(); ++face) {
    controls::Label& label = form_.Label8[face];
    on(label.mouseDown, [this, face](controls::MouseButton) { facePressed(face, true); });
    on(label.mouseUp, [this, face](controls::MouseButton) { facePressed(face, false); });
    on(label.click, [this, face] { goOn([this, face] { faceClicked(face); }); });
  }
}

void MainWindow::subscribeListAndMenu() {
  on(form_.List1.keyPress, [this](int character) {
    if (character == static_cast<int>(controls::Key::Space)) startSelected_();
  });
  on(form_.Command7.click, [this] { popUpMenu(); });
  on(form_.List1.mouseDown, [this](controls::MouseButton button) {
    if (button != controls::MouseButton::Right) return;
    popUpMenu();
    // The menu has taken the mouse: the button's release never reaches the list.
    form_.List1.mouseUp.raise(button);
  });
}

void MainWindow::activated() {
  goOn([this] { form_.List1.setFocus(); });
  goOn([this] { form_.Dir1.setVisible(false); });
  goOn([this] { neighbours_.icon.add("Nerolith"); });
}

void MainWindow::keyDown(const controls::KeyPress& press) {
  using controls::Key;
  using controls::letterKey;
  goOn([&] {
    if (press.key == Key::Delete) neighbours_.selection.removeSelected();
    if (press.key == Key::Enter) form_.List1.setFocus();
    if (press.key == Key::Menu) popUpMenu();
    if (!press.alt) return;
    if (press.key == letterKey('U')) neighbours_.playlists.updatePlaylist();
    if (press.key == letterKey('Q')) neighbours_.playlists.quickAdd();
    if (press.key == letterKey('A')) neighbours_.playlists.addSelection();
    if (press.key == letterKey('I')) neighbours_.playlists.importPlaylist();
    if (press.key == letterKey('C')) neighbours_.playlists.clearPlaylist();
  });
}

void MainWindow::facePressed(std::size_t face, bool down) {
  if (face < form_.Label10.size())
    form_.Label10[face].setBackColour(down ? controls::kRed : controls::kGrey);
}

void MainWindow::faceClicked(std::size_t face) {
  switch (face) {
    case 0:
      return playFaceClicked();
    case 1:
      return form_.Command3.userClick();
    case 2:
      return form_.Command4.userClick();
    case 3:
      return form_.Command2.userClick();
    case 4:
      return form_.Command5.userClick();
    default:
      return form_.Command7.userClick();
  }
}

void MainWindow::playFaceClicked() {
  if (form_.List1.listIndex() == -1 && form_.List1.count() > 0) form_.List1.setListIndex(0);
  startSelected_();
}

// A hidden window that nothing can bring back would be lost to its user.
void MainWindow::hide() {
  if (!neighbours_.icon.present()) return form_.form.minimise();
  form_.form.setVisible(false);
  hiddenByUser_ = true;
}

void MainWindow::iconLost() {
  if (hiddenByUser_) form_.form.setVisible(true);
}

void MainWindow::popUpMenu() {
  if (menu_.showWhatWorks()) form_.form.popUpMenu(menu_.menu);
}

}  // namespace nerolith::app
