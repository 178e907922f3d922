#include "playlist/editor_window.h"

#include <algorithm>
#include <utility>

#include "base/failure_policy.h"
#include "playlist/playlist_text.h"
#include "playlist/selected_songs.h"

namespace nerolith::playlist {
namespace {

std::string waitingText(std::size_t songs) {
  if (songs == 0) return "No files are selected";
  return std::to_string(songs) + (songs == 1 ? " file to add" : " files to add");
}

}  // namespace

EditorWindow::EditorWindow(const EditorParts& parts, EditorLinks links)
    : p_(parts), links_(std::move(links)) {
  subscribe();
}

void EditorWindow::subscribe() {
  forms::EditorForm& form = p_.form;
  on(form.form_4.activate, [this] { activated(); });
  on(form.form_4.unload, [this] { closed(); });
  on(form.form_4.keyDown, [this](const controls::KeyPress& press) { keyDown(press); });
  on(form.List1.rowClick, [this](int row, controls::MouseButton) { rowClicked(row); });
  on(form.mnuBefore.click, [this] { tellTrouble([this] { insertBefore(); }); });
  on(form.mnuAfter.click, [this] { tellTrouble([this] { insertAfter(); }); });
  on(form.mnuReplace.click, [this] { base::endQuietly([this] { replace(); }); });
  on(form.mnuRemove.click, [this] { tellTrouble([this] { remove(); }); });
  on(form.Command1.click, [this] { nextPlaylist(); });
  on(form.closeButton.click, [this] { p_.form.form_4.close(); });
  for (controls::CommandButton* button : {&form.Command1, &form.closeButton}) {
    on(button->gotFocus, [this, button] { focused_ = button; });
    on(button->lostFocus, [this] { focused_ = nullptr; });
  }
}

void EditorWindow::playlistfile(const std::string& path) {
  Lines lines = readPlaylist(p_.bytes, path, p_.encoding, EmptyLines::Kept);
  Lines songs = sameSongs_ ? songs_ : selection();
  const bool empty = lines.empty();
  if (empty) {
    lines = playlist::insertBefore({}, 0, songs, true);
    write(path, lines);
  }
  path_ = path;
  songs_ = std::move(songs);
  fileWasEmpty_ = empty;
  fill(std::move(lines), -1);
  p_.form.waiting.setCaption(waitingText(songs_.size()));
  p_.form.notice.setCaption("");
}

void EditorWindow::show() {
  if (fileWasEmpty_) return p_.form.form_4.close();
  p_.form.form_4.setVisible(true);
  p_.form.form_4.bringForward();
  p_.form.List1.setFocus();
}

void EditorWindow::activated() {
  p_.form.form_4.setCaption(path_);
  if (fileWasEmpty_) p_.form.form_4.close();
}

void EditorWindow::closed() {
  fill({}, -1);
  fileWasEmpty_ = false;
  focused_ = nullptr;
  links_.showMainWindow();
}

/// The same songs for a further file. They stay until the dialog has been answered.
void EditorWindow::nextPlaylist() {
  p_.form.form_4.close();
  sameSongs_ = true;
  base::goOn([this] { links_.addSelection(); });
  sameSongs_ = false;
}

void EditorWindow::keyDown(const controls::KeyPress& press) {
  using controls::Key;
  if (press.alt || press.control) return;
  if (press.key == Key::Escape) return p_.form.form_4.close();
  if (press.key == Key::Menu) popUpMenu();
  // On a button it is the button's own key.
  if (press.key == Key::Enter && !focused_) popUpMenu();
  if (press.key == Key::Delete && p_.form.List1.listIndex() >= 0 && !focused_)
    tellTrouble([this] { remove(); });
}

void EditorWindow::rowClicked(int position) {
  controls::ListBox& list = p_.form.List1;
  if (position < 0 && list.count() > 0) return;
  list.setListIndex(position);
  popUpMenu();
}

/// Without a current entry the operations work on the first one: it is shown to be the one.
void EditorWindow::popUpMenu() {
  forms::EditorForm& form = p_.form;
  const bool any = form.List1.count() > 0;
  if (any && form.List1.listIndex() < 0) form.List1.setListIndex(0);
  form.mnuReplace.setEnabled(any);
  form.mnuRemove.setEnabled(any);
  form.form_4.popUpMenu(form.menu);
}

void EditorWindow::tellTrouble(const std::function<void()>& change) {
  std::string trouble;
  try {
    change();
  } catch (const base::Failure& failure) {
    trouble = failure.what();
  }
  p_.form.notice.setCaption(trouble);
}

void EditorWindow::insertBefore() {
  const int at = position();
  change(playlist::insertBefore(p_.form.List1.items(), at, songs_, fileWasEmpty_), at);
}

void EditorWindow::insertAfter() {
  const int at = position();
  change(playlist::insertAfter(p_.form.List1.items(), at, songs_, fileWasEmpty_), at + 1);
}

void EditorWindow::replace() {
  const int at = position();
  change(replaceLine(p_.form.List1.items(), at, songs_, fileWasEmpty_), at);
}

void EditorWindow::remove() {
  const int at = position();
  change(removeLine(p_.form.List1.items(), at), at);
}

Lines EditorWindow::selection() const {
  return selectedSongs(p_.songs, folderPrefix(p_.songs, links_.folder(), p_.separator));
}

void EditorWindow::write(const std::string& path, const Lines& lines) const {
  p_.bytes.replace(path, playlistBytes(lines, p_.encoding));
}

/// `current`: the first of the new songs, or what follows the line that went. It stays in sight,
/// and the keyboard goes on from there.
void EditorWindow::change(Lines lines, int current) {
  write(path_, lines);
  fill(std::move(lines), current);
}

void EditorWindow::fill(Lines lines, int current) {
  controls::ListBox& list = p_.form.List1;
  const int last = static_cast<int>(lines.size()) - 1;
  const controls::ListBox::Walk hidden(list);
  list.setItems(std::move(lines));
  list.setListIndex(std::min(current, last));
}

}  // namespace nerolith::playlist
