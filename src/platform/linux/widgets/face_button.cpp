#include "platform/linux/widgets/face_button.h"

#include <QPainter>
#include <QShortcutEvent>

#include "controls/lamp_words.h"
#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr qreal kFaceLamp = 8;

theme::KeyState stateOf(const QPushButton& button) {
  if (!button.isEnabled()) return theme::KeyState::Disabled;
  if (button.isDown()) return theme::KeyState::Pressed;
  return button.underMouse() ? theme::KeyState::Hovered : theme::KeyState::Idle;
}

}  // namespace

FaceButtonView::FaceButtonView(const controls::FaceButton& parts, QWidget* parent)
    : QPushButton(parent), parts_(parts) {
  setFont(theme::fontFor(controls::Look::Transport));
  // By Tab, not by the mouse: after a click the space bar is the song list's, as before.
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  connect(this, &QPushButton::clicked, this,
          [this] { quietly([this] { parts_.face->userClick(); }); });
  auto* binding = new ControlBinding(*this, *parts_.face, [this] { refresh(); });
  binding->follow(*parts_.button);
  if (parts_.lamp) binding->follow(*parts_.lamp);
  binding->setGate([this] { return parts_.button->enabled(); });
}

bool FaceButtonView::event(QEvent* event) {
  if (event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
    // The toolkit would show the key pressed for a while and click only then.
    setFocus(Qt::ShortcutFocusReason);
    click();
    return true;
  }
  return QPushButton::event(event);
}

void FaceButtonView::refresh() {
  const QString caption = QString::fromStdString(parts_.button->caption());
  // Setting a text anew takes the access key away for a moment.
  if (text() != caption) setText(caption);
  const std::string& tip =
      parts_.face->toolTip().empty() ? parts_.button->toolTip() : parts_.face->toolTip();
  setToolTip(QString::fromStdString(tip));
  if (parts_.lamp)
    setAccessibleDescription(QLatin1String(controls::lampState(parts_.lamp->backColour())));
  update();
}

QSize FaceButtonView::sizeHint() const {
  const QString caption = QString(text()).remove(QLatin1Char('&'));
  return {fontMetrics().horizontalAdvance(caption) + 28, 46};
}

QSize FaceButtonView::minimumSizeHint() const {
  return {sizeHint().width() - 12, sizeHint().height()};
}

QColor FaceButtonView::lampColour() const {
  const QColor colour = toQColor(parts_.lamp ? parts_.lamp->backColour() : controls::kGrey);
  return isEnabled() || theme::lampLit(colour) ? colour : colour.darker(140);
}

void FaceButtonView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const bool lit = parts_.lamp && theme::lampLit(lampColour());
  theme::paintKey(painter, rect(), stateOf(*this), lit ? lampColour() : QColor());
  QRect words = rect();
  if (parts_.lamp) {
    const qreal lamp = height() * 0.30;
    theme::paintLamp(painter, {width() / 2.0, lamp}, kFaceLamp, lampColour());
    words.setTop(static_cast<int>(lamp + kFaceLamp / 2));
    words.setBottom(rect().bottom() - 3);
  }
  if (isDown()) words.translate(0, 1);
  painter.setPen(isEnabled() ? theme::kInk : QColor(0x74, 0x7d, 0x85));
  painter.setFont(font());
  painter.drawText(words, Qt::AlignCenter | Qt::TextShowMnemonic, text());
  if (hasFocus()) theme::paintFocus(painter, rect());
}

}  // namespace nerolith::widgets
