#include "platform/linux/widgets/lamp.h"

#include <QPainter>

#include "controls/lamp_words.h"
#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

/// Room around the bulb that its light falls on.
constexpr int kHalo = 4;
constexpr int kBetween = 7;

}  // namespace

LampView::LampView(controls::Label& label, QWidget* parent) : QWidget(parent), label_(label) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  new ControlBinding(*this, label, [this] {
    setAccessibleDescription(QLatin1String(controls::lampColour(label_.backColour())));
    update();
  });
}

QSize LampView::sizeHint() const {
  return {theme::kLampSize + 2 * kHalo, theme::kLampSize + 2 * kHalo};
}

void LampView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  theme::paintLamp(painter, QRectF(rect()).center(), theme::kLampSize,
                   toQColor(label_.backColour()));
}

LampSwitchView::LampSwitchView(const controls::LampSwitch& parts, QWidget* parent)
    : QCheckBox(parent), parts_(parts) {
  setFont(theme::fontFor(controls::Look::LampText));
  // By Tab, not by the mouse: after a click the space bar is the song list's, as before.
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  connect(this, &QCheckBox::clicked, this,
          [this] { quietly([this] { parts_.words->userClick(); }); });
  auto* binding = new ControlBinding(*this, *parts_.words, [this] { refresh(); });
  binding->follow(*parts_.lamp);
}

void LampSwitchView::refresh() {
  const QString caption = QString::fromStdString(parts_.words->caption());
  if (text() != caption) setText(caption);
  setChecked(controls::lampLit(parts_.lamp->backColour()));
  setAccessibleDescription(QLatin1String(controls::lampState(parts_.lamp->backColour())));
  update();
}

QSize LampSwitchView::sizeHint() const {
  const int words = fontMetrics().horizontalAdvance(text());
  return {2 * kHalo + theme::kLampSize + kBetween + words, theme::kLampSize + 2 * kHalo};
}

void LampSwitchView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const qreal radius = theme::kLampSize / 2.0;
  theme::paintLamp(painter, {kHalo + radius, height() / 2.0}, theme::kLampSize,
                   toQColor(parts_.lamp->backColour()));
  const QRect words = rect().adjusted(kHalo + theme::kLampSize + kBetween, 0, 0, 0);
  painter.setFont(font());
  painter.setPen(!isEnabled()   ? theme::kGlassDimInk
                 : underMouse() ? QColor(Qt::white)
                                : theme::kGlassInk);
  painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter, text());
  if (hasFocus()) theme::paintFocus(painter, rect());
}

}  // namespace nerolith::widgets
