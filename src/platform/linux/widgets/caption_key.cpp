#include "platform/linux/widgets/caption_key.h"

#include <QPainter>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

CaptionKey::CaptionKey(controls::Label& label, QWidget* parent) : QPushButton(parent) {
  setFont(theme::fontFor(controls::Look::CaptionKey));
  setAttribute(Qt::WA_Hover);
  connect(this, &QPushButton::clicked, this,
          [&label] { quietly([&label] { label.userClick(); }); });
  new ControlBinding(*this, label, [this, &label] {
    setText(QString::fromStdString(label.caption()));
    update();
  });
}

void CaptionKey::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (underMouse() || isDown()) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor veil = palette().color(QPalette::WindowText);
    veil.setAlpha(isDown() ? 18 : 32);
    painter.setBrush(veil);
    painter.drawRoundedRect(rect(), theme::kRound, theme::kRound);
  }
  QColor ink = palette().color(QPalette::WindowText);
  const QColor ring = theme::onPanel(theme::kFocus, ink);
  if (!underMouse() && !hasFocus()) ink.setAlphaF(0.7F);
  painter.setPen(ink);
  painter.drawText(rect(), Qt::AlignCenter, text());
  if (hasFocus()) theme::paintFocus(painter, rect(), theme::kRound, ring);
}

}  // namespace nerolith::widgets
