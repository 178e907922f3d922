#include "platform/linux/widgets/song_list_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/slim_scroll_bar.h"
#include "platform/linux/widgets/song_list_model.h"
#include "platform/linux/widgets/song_row.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

SongListView::SongListView(controls::ListBox& list, QWidget* parent)
    : QListView(parent), list_(list), model_(new SongListModel(list, this)) {
  setFrameShape(QFrame::NoFrame);
  setUniformItemSizes(true);
  setSelectionMode(NoSelection);
  setEditTriggers(NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  setVerticalScrollBar(new SlimScrollBar(this));
  setMinimumHeight(4 * theme::kRowHeight);
  setViewportMargins(1, 4, 0, 4);
  setItemDelegate(new SongRow(list, *model_, this));
  setModel(model_);
  setTabKeyNavigation(false);
  verticalScrollBar()->setSingleStep(theme::kRowHeight);
  auto* binding = new ControlBinding(*this, list, [this] { viewport()->update(); });
  binding->watchMouse(*viewport());
  subscriptions_.push_back(
      list_.itemsChanged.subscribe([this] { quietly([this] { followItems(); }); }));
  subscriptions_.push_back(
      list_.selectionChanged.subscribe([this] { quietly([this] { followSelection(); }); }));
  subscriptions_.push_back(list_.marksChanged.subscribe([this] { viewport()->update(); }));
  followSelection();
}

void SongListView::followItems() {
  const controls::EchoGuard::Hold hold(echo_);
  model_->reload();
  verticalScrollBar()->setSingleStep(theme::kRowHeight);
}

void SongListView::followSelection() {
  const controls::EchoGuard::Hold hold(echo_);
  const int row = list_.listIndex();
  if (row != currentIndex().row()) {
    setCurrentIndex(row < 0 ? QModelIndex() : model_->index(row));
    if (row >= 0) scrollTo(model_->index(row));
  }
  viewport()->update();
}

int SongListView::rowAt(const QPoint& place, bool nearest) const {
  const QModelIndex index =
      indexAt(QPoint(std::clamp(place.x(), 1, viewport()->width() - 2),
                     nearest ? std::clamp(place.y(), 0, viewport()->height() - 1) : place.y()));
  if (index.isValid() || !nearest) return index.row();
  return place.y() <= 0 ? 0 : list_.count() - 1;
}

int SongListView::rowsInSight() const {
  return std::max(1, viewport()->height() / std::max(1, sizeHintForRow(0)) - 1);
}

void SongListView::selectRange(int from, int to) {
  const controls::ListBox::Walk walk(list_);
  list_.deselectAll();
  const auto [first, last] = std::minmax(from, to);
  for (int row = std::max(first, 0); row <= last && row < list_.count(); ++row)
    list_.setSelected(row, true);
}

void SongListView::toggle(int row) { list_.setSelected(row, !list_.selected(row)); }

void SongListView::reach(int row, Qt::KeyboardModifiers modifiers) {
  if (row < 0 || row >= list_.count()) return;
  if (modifiers & Qt::ShiftModifier) {
    selectRange(std::clamp(anchor_, 0, list_.count() - 1), row);
  } else if (!(modifiers & Qt::ControlModifier)) {
    anchor_ = row;
    selectRange(row, row);
  }
  list_.userMoveTo(row);
}

bool SongListView::moveByKey(QKeyEvent* event) {
  const int last = list_.count() - 1;
  const int now = list_.listIndex();
  int row = 0;
  switch (event->key()) {
    case Qt::Key_Up:
      row = now - 1;
      break;
    case Qt::Key_Down:
      row = now + 1;
      break;
    case Qt::Key_PageUp:
      row = now - rowsInSight();
      break;
    case Qt::Key_PageDown:
      row = now + rowsInSight();
      break;
    case Qt::Key_Home:
      break;
    case Qt::Key_End:
      row = last;
      break;
    default:
      return false;
  }
  if (last >= 0) reach(std::clamp(row, 0, last), event->modifiers());
  return true;
}

void SongListView::keyPressEvent(QKeyEvent* event) {
  quietly([this, event] {
    const bool control = event->modifiers() & Qt::ControlModifier;
    // Alt with a letter is the window's: it must not move the selection that it is to work on.
    const bool command = control || (event->modifiers() & (Qt::AltModifier | Qt::MetaModifier));
    const int now = list_.listIndex();
    if (moveByKey(event)) return;
    if (event->matches(QKeySequence::SelectAll)) {
      list_.selectAll();
    } else if (event->key() == Qt::Key_Space && control) {
      if (now >= 0) toggle(anchor_ = now);
    } else if (!event->text().isEmpty() && !command && event->text().at(0).isPrint()) {
      const QChar typed = event->text().at(0);
      list_.keyPress.raise(typed.unicode());
      if (typed != QLatin1Char(' ')) keyboardSearch(event->text());
      const int found = currentIndex().row();
      if (found >= 0 && found != list_.listIndex()) reach(found, Qt::NoModifier);
    } else {
      event->ignore();
    }
  });
}

void SongListView::mousePressEvent(QMouseEvent* event) {
  event->accept();
  pressedRow_ = rowAt(event->position().toPoint(), false);
  if (event->button() != Qt::LeftButton) return;
  quietly([this, event] {
    const int row = pressedRow_;
    if (row < 0) {
      if (!event->modifiers()) list_.deselectAll();
      return;
    }
    const bool control = event->modifiers() & Qt::ControlModifier;
    if (control && !(event->modifiers() & Qt::ShiftModifier)) toggle(anchor_ = row);
    sweeping_ = !control;
    reach(row, event->modifiers());
  });
}

void SongListView::mouseMoveEvent(QMouseEvent* event) {
  if (!sweeping_ || !(event->buttons() & Qt::LeftButton)) return;
  quietly([this, event] {
    const int row = rowAt(event->position().toPoint(), true);
    if (row >= 0 && row != list_.listIndex()) reach(row, Qt::ShiftModifier);
  });
}

void SongListView::mouseReleaseEvent(QMouseEvent* event) {
  event->accept();
  sweeping_ = false;
  quietly([this, event] { letGo(*event); });
}

void SongListView::letGo(const QMouseEvent& event) {
  const int row = rowAt(event.position().toPoint(), false);
  if (std::exchange(pressedRow_, kNowhere) != row) return;
  if (!viewport()->rect().contains(event.position().toPoint())) return;
  if (event.button() == Qt::LeftButton) list_.userClickRow(row, controls::MouseButton::Left);
  if (event.button() == Qt::RightButton) list_.userClickRow(row, controls::MouseButton::Right);
}

void SongListView::mouseDoubleClickEvent(QMouseEvent* event) {
  event->accept();
  sweeping_ = false;
  pressedRow_ = kNowhere;
  if (event->button() != Qt::LeftButton) return;
  quietly([this, event] { list_.userActivate(rowAt(event->position().toPoint(), false)); });
}

void SongListView::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), theme::kWell);
    if (list_.count() == 0 && !list_.emptyHint().empty()) {
      painter.setFont(theme::fontFor(controls::Look::SongList));
      painter.setPen(theme::kFaintInk);
      painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap,
                       QString::fromStdString(list_.emptyHint()));
    }
  }
  QListView::paintEvent(event);
}

bool SongListView::event(QEvent* event) {
  if (event->type() == QEvent::Paint) {
    QPainter painter(this);
    theme::paintRecess(painter, rect(), theme::kWell, theme::kWell);
    return true;
  }
  return QListView::event(event);
}

void SongListView::focusInEvent(QFocusEvent* event) {
  // The toolkit would make the first row current; only the player and the user do that.
  QAbstractScrollArea::focusInEvent(event);  // NOLINT(bugprone-parent-virtual-call)
  viewport()->update();
}

void SongListView::focusOutEvent(QFocusEvent* event) {
  QAbstractScrollArea::focusOutEvent(event);  // NOLINT(bugprone-parent-virtual-call)
  viewport()->update();
}

}  // namespace nerolith::widgets
