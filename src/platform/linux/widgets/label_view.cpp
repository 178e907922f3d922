#include "platform/linux/widgets/label_view.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

using controls::Look;

LabelView::LabelView(controls::Label& label, Look look, bool onGlass, QWidget* parent)
    : QLabel(parent), label_(&label), look_(look), onGlass_(onGlass) {
  dress();
  new ControlBinding(*this, label, [this] { refresh(); });
}

LabelView::LabelView(const QString& words, Look look, bool onGlass, QWidget* parent)
    : QLabel(parent), look_(look), onGlass_(onGlass), words_(words) {
  dress();
  setAccessibleName(words);
}

void LabelView::dress() {
  setFont(theme::fontFor(look_));
  const bool wide = look_ == Look::Song || look_ == Look::Notice;
  setSizePolicy(wide ? QSizePolicy::Ignored : QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void LabelView::refresh() {
  const QString caption = QString::fromStdString(label_->caption());
  // A screen reader would read the tip in the place of a text that is not there.
  setToolTip(caption.isEmpty() ? QString() : QString::fromStdString(label_->toolTip()));
  const QSize before = sizeHint();
  if (caption != words_) {
    words_ = caption;
    // A screen reader hears the name, and the text itself as what the name stands for.
    if (label_->accessibleName().empty())
      setAccessibleName(caption);
    else
      setAccessibleDescription(caption);
  }
  if (sizeHint() != before) updateGeometry();
  update();
}

QSize LabelView::sizeHint() const {
  const QFontMetrics metrics = fontMetrics();
  return {metrics.horizontalAdvance(shown()) + 2, metrics.height() + 2};
}

QSize LabelView::minimumSizeHint() const {
  const bool elastic = look_ == Look::Song || look_ == Look::Notice || look_ == Look::Title;
  return {elastic ? 0 : sizeHint().width(), sizeHint().height()};
}

QString LabelView::shown() const {
  return font().capitalization() == QFont::AllUppercase ? words_.toUpper() : words_;
}

QColor LabelView::ink() const {
  // The panel may be a picture of the user's: the window knows what can be read on it.
  QColor panelInk = palette().color(QPalette::Active, QPalette::WindowText);
  QColor dimInk = onGlass_ ? theme::kGlassDimInk : panelInk;
  if (!onGlass_) dimInk.setAlphaF(isEnabled() ? 0.68F : 0.5F);
  if (!isEnabled()) return dimInk;
  switch (look_) {
    case Look::Notice:
      return theme::kAmber;
    case Look::Dim:
    case Look::Tag:
      return dimInk;
    default:
      break;
  }
  if (label_ && label_->foreColour() != 0xFFFFFF) return toQColor(label_->foreColour());
  return onGlass_ ? theme::kGlassInk : panelInk;
}

void LabelView::paintEvent(QPaintEvent*) {
  if (words_.isEmpty()) return;
  QPainter painter(this);
  painter.setPen(ink());
  const QString text = fontMetrics().elidedText(shown(), Qt::ElideRight, width());
  painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

bool LabelView::event(QEvent* event) {
  if (event->type() == QEvent::ToolTip) {
    const bool whole = fontMetrics().horizontalAdvance(shown()) <= width();
    QStringList lines;
    if (!whole) lines << words_.toHtmlEscaped();
    if (!words_.isEmpty() && !toolTip().isEmpty()) lines << toolTip().toHtmlEscaped();
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), lines.join(QStringLiteral("<br>")), this);
    return true;
  }
  return QLabel::event(event);
}

void LabelView::mousePressEvent(QMouseEvent* event) {
  pressed_ = label_ && event->button() == Qt::LeftButton;
}

void LabelView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !std::exchange(pressed_, false)) return;
  if (rect().contains(event->position().toPoint())) quietly([this] { label_->userClick(); });
}

}  // namespace nerolith::widgets
