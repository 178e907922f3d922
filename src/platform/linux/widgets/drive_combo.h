// The drive list.
#pragma once

#include <QComboBox>

#include "controls/echo_guard.h"
#include "controls/file_lists.h"

namespace nerolith::widgets {

/// The arrow drops the list of drives down; a press beside it only brings the focus, with which the
/// player shows the folders of the drive; so does the arrow where there is no other drive to go to.
/// A press while the focus is here already brings it again,
/// since the folders hide whenever the mouse leaves them.
class DriveCombo : public QComboBox {
 public:
  DriveCombo(controls::DriveListBox& drives, QWidget* parent);

  QSize sizeHint() const override { return {170, 28}; }
  QSize minimumSizeHint() const override { return {90, 28}; }

  /// Below the box, which stays as it is; nothing where there is nothing to choose.
  void showPopup() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void refresh();
  void choose(int row);

  controls::DriveListBox& drives_;
  std::vector<controls::DriveEntry> shown_;
  controls::EchoGuard echo_;
  bool focusByPress_ = false;
  bool dropsBelow_ = false;
};

}  // namespace nerolith::widgets
