// The song list.
#pragma once

#include <QListView>

#include "controls/echo_guard.h"
#include "controls/list_box.h"

namespace nerolith::widgets {

class SongListModel;

/// Selection and current position live in the list box alone and are drawn from there, so that
/// selecting 100,000 entries repaints no more than the rows in sight. Click, Ctrl+click,
/// Shift+click, dragging and the arrow keys work as lists do everywhere: plain moves select what
/// they reach, Shift extends from where the last plain move ended, Ctrl moves without selecting.
class SongListView : public QListView {
 public:
  SongListView(controls::ListBox& list, QWidget* parent);

  QSize sizeHint() const override { return {790, 286}; }

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void followItems();
  void followSelection();
  int rowAt(const QPoint& place, bool nearest) const;
  int rowsInSight() const;
  bool moveByKey(QKeyEvent* event);
  void reach(int row, Qt::KeyboardModifiers modifiers);
  void selectRange(int from, int to);
  void toggle(int row);
  void letGo(const QMouseEvent& event);

  static constexpr int kNowhere = -2;

  controls::ListBox& list_;
  SongListModel* model_;
  std::vector<base::Subscription> subscriptions_;
  controls::EchoGuard echo_;
  int anchor_ = 0;
  int pressedRow_ = kNowhere;  // where the button went down that is to be let go there
  bool sweeping_ = false;
};

}  // namespace nerolith::widgets
