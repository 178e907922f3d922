// The folder list, which lies over the window while it is visible.
#pragma once

#include <QListView>

#include "controls/file_lists.h"

namespace nerolith::widgets {

/// The way from the root to the folder, each step further in, then the folders in it. A click is
/// the list's click; a double click or Enter opens the entry; Escape hides the list.
class FolderPopup : public QListView {
 public:
  FolderPopup(controls::DirListBox& folders, QWidget* parent);

  /// As high as all its rows together. Its frame is the room of its shadow.
  QSize sizeHint() const override;

  /// What is shown in a row, and the full path that opening it leads to.
  QString nameAt(int row) const;
  std::string pathAt(int row) const;
  int rows() const;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  class Rows;
  class Row;

  void refresh();
  void open(const QModelIndex& index);

  controls::DirListBox& folders_;
  Rows* rows_;
};

}  // namespace nerolith::widgets
