#include "platform/linux/widgets/text_line.h"

#include <QKeyEvent>
#include <QPainter>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/glass_colour.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {

TextLine::TextLine(controls::TextBox& box, controls::Look look, QWidget* parent)
    : QLineEdit(parent), box_(box) {
  setFont(theme::fontFor(controls::Look::Plain));
  setFrame(false);
  setReadOnly(look == controls::Look::Well);
  setAcceptDrops(!isReadOnly());  // else it would keep files from the window that takes them
  setTextMargins(8, 0, 8, 0);
  QPalette clear = palette();
  clear.setColor(QPalette::Base, Qt::transparent);
  setPalette(clear);
  connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
    if (!echo_.held()) quietly([this, &text] { box_.setText(text.toStdString()); });
  });
  new ControlBinding(*this, box, [this] { refresh(); });
}

void TextLine::refresh() {
  const QString text = QString::fromStdString(box_.text());
  const controls::EchoGuard::Hold hold(echo_);
  update();
  // Setting it anew would move the cursor of the user who is typing.
  if (this->text() != text) setText(text);
}

void TextLine::keyPressEvent(QKeyEvent* event) {
  const QString typed = event->text();
  if (!typed.isEmpty()) quietly([&] { box_.keyPress.raise(typed.at(0).unicode()); });
  QLineEdit::keyPressEvent(event);
}

void TextLine::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    const QColor ground = box_.backColour() ? toQColor(*box_.backColour()) : theme::kWell;
    theme::paintRecess(painter, rect(), ground, ground);
    if (hasFocus()) theme::paintFocus(painter, rect());
    if (isReadOnly() && !hasFocus()) {
      painter.setFont(font());
      painter.setPen(isEnabled() ? theme::kInk : theme::kFaintInk);
      const QRect words = rect().adjusted(10, 0, -10, 0);
      painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                       fontMetrics().elidedText(text(), Qt::ElideMiddle, words.width()));
      return;
    }
  }
  QLineEdit::paintEvent(event);
}

}  // namespace nerolith::widgets
