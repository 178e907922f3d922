#include "platform/linux/widgets/plain_buttons.h"

#include <QKeyEvent>
#include <QPainter>
#include <QRadioButton>
#include <algorithm>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr int kTickSize = 16;
constexpr int kTickRoom = kTickSize + 8;
constexpr int kAround = 4;

/// Setting a text anew takes the access key away for a moment.
void setCaption(QAbstractButton& widget, const std::string& caption) {
  const QString text = QString::fromStdString(caption);
  if (widget.text() != text) widget.setText(text);
}

template <typename Widget, typename Model, typename Show>
QWidget* bind(Widget* widget, Model& model, Show show) {
  widget->setFont(theme::fontFor(controls::Look::Plain));
  const auto refresh = [widget, &model, show] {
    setCaption(*widget, model.caption());
    show(*widget);
  };
  QObject::connect(widget, &QAbstractButton::clicked, widget, [&model, refresh] {
    quietly([&model] { model.userClick(); });
    refresh();
  });
  new ControlBinding(*widget, model, refresh);
  return widget;
}

void paintTick(QPainter& painter, const QRectF& box, Qt::CheckState state) {
  if (state == Qt::Unchecked) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(state == Qt::Checked ? theme::kPlaying : theme::kAmber, 2.2, Qt::SolidLine,
                      Qt::RoundCap, Qt::RoundJoin));
  const auto at = [&box](qreal x, qreal y) {
    return QPointF(box.left() + x * box.width(), box.top() + y * box.height());
  };
  if (state == Qt::PartiallyChecked)
    painter.drawLine(at(0.28, 0.5), at(0.72, 0.5));
  else
    painter.drawPolyline(QPolygonF({at(0.24, 0.52), at(0.43, 0.70), at(0.77, 0.28)}));
}

}  // namespace

PlainKey::PlainKey(const QString& caption, QWidget* parent) : QPushButton(caption, parent) {
  setFont(theme::fontFor(controls::Look::Plain));
  setAttribute(Qt::WA_Hover);
}

QSize PlainKey::sizeHint() const {
  const int words = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  return {std::max(92, words + 36), 32};
}

void PlainKey::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
    click();
  else
    QPushButton::keyPressEvent(event);
}

void PlainKey::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const theme::KeyState state = !isEnabled()   ? theme::KeyState::Disabled
                                : isDown()     ? theme::KeyState::Pressed
                                : underMouse() ? theme::KeyState::Hovered
                                               : theme::KeyState::Idle;
  theme::paintKey(painter, rect(), state, isDefault() ? theme::kAccent : QColor());
  painter.setPen(isEnabled() ? theme::kInk : theme::kFaintInk);
  painter.setFont(font());
  painter.drawText(rect().translated(0, isDown() ? 1 : 0), Qt::AlignCenter | Qt::TextShowMnemonic,
                   text());
  if (hasFocus()) theme::paintFocus(painter, rect());
}

TickBox::TickBox(QWidget* parent) : QCheckBox(parent) {
  setFont(theme::fontFor(controls::Look::Plain));
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize TickBox::sizeHint() const {
  const QSize words = fontMetrics().size(Qt::TextShowMnemonic, text());
  return {kTickRoom + words.width() + kAround, 2 * kAround + std::max(kTickSize, words.height())};
}

void TickBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRectF box(0, (height() - kTickSize) / 2.0, kTickSize, kTickSize);
  theme::paintRecess(painter, box, theme::kWell, theme::kWell);
  paintTick(painter, box, checkState());
  const QColor ink = palette().color(QPalette::Active, QPalette::WindowText);
  painter.setPen(!isEnabled() ? theme::kFaintInk : underMouse() ? theme::kSelectionInk : ink);
  painter.setFont(font());
  painter.drawText(rect().adjusted(kTickRoom, 0, 0, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
  if (hasFocus()) theme::paintFocus(painter, box);
}

QWidget* makePushButton(controls::CommandButton& button, QWidget* parent) {
  return bind(new PlainKey({}, parent), button, [](QPushButton&) {});
}

QWidget* makeOptionButton(controls::OptionButton& button, QWidget* parent) {
  return bind(new QRadioButton(parent), button, [&button](QRadioButton& widget) {
    widget.setAutoExclusive(false);
    widget.setChecked(button.value());
  });
}

QWidget* makeCheckBox(controls::CheckBox& box, QWidget* parent) {
  return bind(new TickBox(parent), box, [&box](QCheckBox& widget) {
    widget.setTristate(box.value() == 2);
    widget.setCheckState(box.value() == 2   ? Qt::PartiallyChecked
                         : box.value() == 1 ? Qt::Checked
                                            : Qt::Unchecked);
  });
}

}  // namespace nerolith::widgets
