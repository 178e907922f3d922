// Files dragged over a window from the desktop.
#pragma once

#include <QObject>
#include <string>
#include <vector>

#include "controls/form.h"

class QDropEvent;
class QMimeData;
class QWidget;

namespace nerolith::widgets {

/// The full paths of what is dragged, byte for byte, in order; none when something in it is no file
/// of this machine.
std::vector<std::string> draggedFiles(const QMimeData& data);

/// Asks the form whether it takes what is dragged over its window, shows the answer at the mouse,
/// and hands over what is dropped once the drag is over: the program it comes from waits for that.
/// Files are never taken as moved, which would make their owner delete them. Ends with the window.
class FileDrop : public QObject {
 public:
  FileDrop(QWidget& window, controls::Form& form);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void answer(QDropEvent& event) const;
  void dropped(QDropEvent& event);

  controls::Form& form_;
  std::vector<std::string> files_;
  bool taken_ = false;
};

}  // namespace nerolith::widgets
