#include "platform/linux/widgets/key_names.h"

#include <QKeyEvent>

namespace nerolith::widgets {
namespace {

controls::Key keyOf(int key) {
  if (key >= Qt::Key_A && key <= Qt::Key_Z)
    return controls::letterKey(static_cast<char>('A' + (key - Qt::Key_A)));
  if (key >= Qt::Key_F1 && key <= Qt::Key_F10)
    return static_cast<controls::Key>(static_cast<int>(controls::Key::F1) + (key - Qt::Key_F1));
  switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return controls::Key::Enter;
    case Qt::Key_Escape:
      return controls::Key::Escape;
    case Qt::Key_Space:
      return controls::Key::Space;
    case Qt::Key_Delete:
      return controls::Key::Delete;
    case Qt::Key_Menu:
      return controls::Key::Menu;
    default:
      return controls::Key::Other;
  }
}

}  // namespace

controls::KeyPress keyPressOf(const QKeyEvent& event) {
  controls::KeyPress press;
  press.key = keyOf(event.key());
  press.shift = event.modifiers() & Qt::ShiftModifier;
  press.control = event.modifiers() & Qt::ControlModifier;
  press.alt = event.modifiers() & Qt::AltModifier;
  return press;
}

}  // namespace nerolith::widgets
