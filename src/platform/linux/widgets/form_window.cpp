#include "platform/linux/widgets/form_window.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QCursor>
#include <QFrame>
#include <QKeyEvent>
#include <QLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "controls/side_place.h"
#include "platform/linux/widgets/file_drop.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/key_names.h"
#include "platform/linux/widgets/layout_builder.h"
#include "platform/linux/widgets/pop_up_menu.h"
#include "platform/linux/widgets/product_icon.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

/// An event that a control did not take comes by again at the widgets around it.
bool isUnderMouse(const QObject* watched, const QEvent* event) {
  const QPoint place = static_cast<const QMouseEvent*>(event)->position().toPoint();
  return static_cast<const QWidget*>(watched)->childAt(place) == nullptr;
}

}  // namespace

FormWindow::FormWindow(controls::Form& form, const QWidget* owner) : form_(form), owner_(owner) {
  if (owner_)
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                   Qt::WindowCloseButtonHint);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setMouseTracking(true);
  build();
  subscribe();
  takePicture();
  followForm();
}

void FormWindow::build() {
  LayoutBuilder builder(*this);
  builder.build(form_.layout());
  for (const controls::Overlay& overlay : form_.overlays())
    if (QWidget* widget = builder.addOverlay(overlay))
      floating_.push_back({overlay, widget, builder.widgetOf(overlay.anchor)});
  new FileDrop(*this, form_);
  watch(*this);
  for (QWidget* child : findChildren<QWidget*>()) watch(*child);
  if (form_.resizable())
    resize(sizeHint());
  else
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void FormWindow::watch(QWidget& widget) {
  widget.installEventFilter(this);
  widget.setMouseTracking(true);
}

void FormWindow::subscribe() {
  subscriptions_.push_back(form_.changed.subscribe([this] { quietly([this] { followForm(); }); }));
  subscriptions_.push_back(
      form_.besideRequested.subscribe([this] { quietly([this] { placeBesideOwner(); }); }));
  subscriptions_.push_back(
      form_.forwardRequested.subscribe([this] { quietly([this] { bringForward(); }); }));
  subscriptions_.push_back(
      form_.minimiseRequested.subscribe([this] { quietly([this] { showMinimized(); }); }));
  subscriptions_.push_back(form_.popUpRequested.subscribe(
      [this](const controls::MenuItem& menu) { quietly([&] { popUp(menu); }); }));
  subscriptions_.push_back(
      form_.focusRequested.subscribe([this] { quietly([this] { bringForward(); }); }));
}

void FormWindow::followForm() {
  setWindowTitle(QString::fromStdString(form_.caption()));
  setEnabled(form_.enabled());
  if (picture_.constBits() != reinterpret_cast<const uchar*>(form_.picture().pixels.data()))
    takePicture();
  if (isVisible() != form_.visible()) show(form_.visible());
}

void FormWindow::show(bool visible) {
  if (visible && owner_) {
    winId();  // makes the system's window, which alone can belong to another
    windowHandle()->setTransientParent(owner_->windowHandle());
    besidePlace_ = {};
    if (form_.besideOwner())
      placeBesideOwner();
    else
      moveOverOwner();
  }
  setVisible(visible);
}

void FormWindow::moveOverOwner() {
  const QPoint middle = owner_->frameGeometry().center();
  move(middle - QPoint(sizeHint().width() / 2, sizeHint().height() / 2));
}

/// Once for each place of the owner: between its moves the user may put this window elsewhere.
void FormWindow::placeBesideOwner() {
  if (!owner_ || !owner_->isVisible() || owner_->isMinimized()) return;
  const QRect owner = owner_->frameGeometry();
  if (owner == besidePlace_) return;
  besidePlace_ = owner;
  // The frame of a window that was not shown yet is not known; it will be one like the owner's.
  const QSize frame = owner.size() - owner_->geometry().size();
  const QSize own = (isVisible() ? size() : sizeHint()) + frame;
  const auto area = [](const QRect& rect) {
    return controls::DesktopArea{rect.left(), rect.top(), rect.right() + 1, rect.bottom() + 1};
  };
  const auto place = controls::placeAtSide(area(owner), own.width(), own.height(),
                                           area(owner_->screen()->availableGeometry()));
  move(place.x, place.y);
}

void FormWindow::takePicture() {
  const controls::Picture& picture = form_.picture();
  picture_ = picture.empty() ? QImage()
                             : QImage(reinterpret_cast<const uchar*>(picture.pixels.data()),
                                      picture.width, picture.height, QImage::Format_RGB32);
  const QColor mean =
      picture_.isNull()
          ? theme::kPanelMiddle
          : QColor(
                picture_.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixel(0, 0));
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, inkFor(mean));
  setPalette(colours);
  update();
}

void FormWindow::bringForward() {
  if (isMinimized()) showNormal();
  raise();
  activateWindow();
}

/// Where a menu that a key opens belongs: below the current entry of a list, else below the
/// control.
QPoint FormWindow::placeOfFocus() const {
  const QWidget* focused = focusWidget();
  const QWidget& here = focused ? *focused : *this;
  const auto* list = dynamic_cast<const QAbstractItemView*>(&here);
  if (!list) return here.mapToGlobal(QPoint(0, here.height()));
  const QRect entry = list->visualRect(list->currentIndex()) & list->viewport()->rect();
  return list->viewport()->mapToGlobal(entry.isEmpty() ? QPoint(32, 8)
                                                       : entry.bottomLeft() + QPoint(32, 0));
}

void FormWindow::popUp(const controls::MenuItem& menu) {
  const QPoint place = lastInputWasKey_ ? placeOfFocus() : QCursor::pos();
  makePopUpMenu(menu, this)->popup(place);
}

/// Where an overlay may lie: over whatever comes below its anchor, and no further down.
QRect FormWindow::roomBelow(const QWidget& anchor) const {
  constexpr int kInset = 4;
  const QPoint corner = anchor.mapTo(this, QPoint(0, anchor.height()));
  const QWidget* below = nullptr;
  for (const QWidget* child : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    const bool floats = std::any_of(floating_.begin(), floating_.end(),
                                    [child](const Floating& f) { return f.widget == child; });
    const QRect place = child->geometry();
    if (floats || child->isWindow() || place.top() < corner.y()) continue;
    if (place.left() > corner.x() || place.right() < corner.x()) continue;
    if (!below || place.top() < below->y()) below = child;
  }
  const int right = (below ? below->geometry().right() : width() - 14) - kInset;
  const int bottom = (below ? below->geometry().bottom() : height() - 14) - kInset;
  return {QPoint(corner.x(), corner.y() + 3), QPoint(right, bottom)};
}

void FormWindow::placeOverlays() {
  for (const Floating& floating : floating_) {
    if (!floating.anchor || floating.widget->isHidden()) continue;
    const QRect room = roomBelow(*floating.anchor);
    // What floats may cast a shadow, for which it has a frame.
    const auto* framed = dynamic_cast<const QFrame*>(floating.widget);
    const int shadow = framed ? framed->frameWidth() : 0;
    const int content = floating.widget->sizeHint().height() - 2 * shadow;
    const int height = std::min({floating.overlay.height, content, room.height()});
    const QRect frame(room.topLeft(),
                      QSize(std::min(floating.overlay.width, room.width()), std::max(height, 60)));
    floating.widget->setGeometry(frame.adjusted(-shadow, -shadow, shadow, shadow));
    floating.widget->raise();
  }
}

bool FormWindow::ownsOverlay(const QObject* watched) const {
  return std::any_of(floating_.begin(), floating_.end(), [watched](const Floating& floating) {
    return watched == floating.anchor || watched == floating.widget ||
           watched->parent() == floating.widget;
  });
}

void FormWindow::tellKey(QObject* watched, QEvent* event) {
  // A key that a control did not take comes by again on its way up to the window.
  if (watched != (focusWidget() ? focusWidget() : this)) return;
  const auto& key = *static_cast<QKeyEvent*>(event);
  controls::KeyPress press = keyPressOf(key);
  // The other way to the menu, on keyboards that have no key for it.
  if (press.key == controls::Key::F10 && press.shift) press = {controls::Key::Menu};
  form_.keyDown.raise(press);
  if (key.key() == Qt::Key_Escape) hideOverlays();
}

/// Wherever the focus is: the folders come by themselves, so they must go as easily.
void FormWindow::hideOverlays() {
  for (const Floating& floating : floating_) {
    if (floating.widget->isHidden()) continue;
    if (floating.widget->hasFocus() && floating.anchor)
      floating.anchor->setFocus(Qt::PopupFocusReason);
    if (auto* const* folders = std::get_if<controls::DirListBox*>(&floating.overlay.control))
      (*folders)->setVisible(false);
  }
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  quietly([this, watched, event] {
    switch (event->type()) {
      case QEvent::KeyPress:
        lastInputWasKey_ = true;
        tellKey(watched, event);
        break;
      case QEvent::ShortcutOverride:
        lastInputWasKey_ = true;
        break;
      case QEvent::MouseButtonPress:
        lastInputWasKey_ = false;
        break;
      case QEvent::MouseMove:
        if (isUnderMouse(watched, event) && !ownsOverlay(watched)) form_.mouseMoved.raise();
        break;
      case QEvent::Show:
      case QEvent::LayoutRequest:
        placeOverlays();
        break;
      default:
        break;
    }
  });
  return false;
}

void FormWindow::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow())
    quietly([this] { form_.activate.raise(); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // the form decides; it hides the window when it is done
  quietly([this] { form_.close(); });
}

void FormWindow::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  placeOverlays();
}

void FormWindow::paintEvent(QPaintEvent* event) {
  if (!std::exchange(iconDrawn_, true))
    QTimer::singleShot(0, this, [] { giveProductIcon(); });  // the window is seen first
  QPainter painter(this);
  painter.setClipRect(event->rect());
  if (picture_.isNull()) {
    theme::paintPanel(painter, event->rect(), height());
    return;
  }
  const QSizeF cover = QSizeF(picture_.size()).scaled(size(), Qt::KeepAspectRatioByExpanding);
  const QRectF target(QPointF((width() - cover.width()) / 2, (height() - cover.height()) / 2),
                      cover);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(target, picture_);
}

}  // namespace nerolith::widgets
