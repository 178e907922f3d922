#include "platform/linux/widgets/message_dialog.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPainter>

#include "platform/linux/widgets/plain_buttons.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

using platform::Answer;
using platform::MessageButtons;
using platform::MessageIcon;

constexpr int kSign = 36;
/// What comes in one go is wrapped early; a text that was set in lines keeps to them.
constexpr int kWidestText = 420;
constexpr int kWidestLines = 820;

/// What kind of message it is, for the eye: an exclamation mark or an "i" on a disc.
class Sign : public QWidget {
 public:
  Sign(MessageIcon kind, QWidget* parent) : QWidget(parent), kind_(kind) {
    setFixedSize(kSign, kSign);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const bool critical = kind_ == MessageIcon::Critical;
    const QColor colour = critical ? QColor(0xe5, 0x4b, 0x40) : theme::kFocus;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle(kSign / 2.0, kSign / 2.0);
    QColor ground = colour;
    ground.setAlpha(46);
    painter.setBrush(ground);
    painter.setPen(QPen(colour, 2));
    painter.drawEllipse(middle, kSign / 2.0 - 2, kSign / 2.0 - 2);
    painter.setPen(QPen(colour, 3.4, Qt::SolidLine, Qt::RoundCap));
    const qreal dot = critical ? 8 : -8;
    painter.drawLine(middle + QPointF(0, critical ? -9 : -1),
                     middle + QPointF(0, critical ? 2 : 9));
    painter.drawPoint(middle + QPointF(0, dot));
  }

 private:
  MessageIcon kind_;
};

QLabel* textOf(const platform::Message& message, QWidget* parent) {
  auto* words = new QLabel(QString::fromStdString(message.text), parent);
  words->setTextFormat(Qt::PlainText);
  words->setFont(theme::fontFor(controls::Look::SongList));
  const bool inLines = message.text.find('\n') != std::string::npos;
  const int widest = inLines ? kWidestLines : kWidestText;
  if (words->sizeHint().width() > widest) {
    words->setWordWrap(true);
    words->setFixedWidth(widest);
  }
  return words;
}

}  // namespace

MessageDialog::MessageDialog(const platform::Message& message, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                          Qt::WindowCloseButtonHint),
      answer_(message.buttons == MessageButtons::Ok ? Answer::Ok : Answer::No) {
  setWindowTitle(QStringLiteral("Nerolith"));
  setPalette(theme::palette());
  setAccessibleName(windowTitle());
  setAccessibleDescription(QString::fromStdString(message.text));
  auto* top = new QHBoxLayout;
  top->setSpacing(14);
  if (message.icon != MessageIcon::None)
    top->addWidget(new Sign(message.icon, this), 0, Qt::AlignTop);
  top->addWidget(textOf(message, this), 1, Qt::AlignVCenter);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(8);
  buttons->addStretch(1);
  if (message.buttons == MessageButtons::Ok) {
    buttons->addWidget(addButton(QStringLiteral("OK"), Answer::Ok, true));
  } else {
    const bool no = message.preset == Answer::No;
    buttons->addWidget(addButton(QStringLiteral("&Yes"), Answer::Yes, !no));
    buttons->addWidget(addButton(QStringLiteral("&No"), Answer::No, no));
  }
  auto* all = new QVBoxLayout(this);
  all->setContentsMargins(20, 18, 20, 16);
  all->setSpacing(18);
  all->addLayout(top);
  all->addLayout(buttons);
  all->setSizeConstraint(QLayout::SetFixedSize);
  setMinimumWidth(260);
}

QAbstractButton* MessageDialog::addButton(const QString& caption, Answer answer, bool preset) {
  auto* button = new PlainKey(caption, this);
  button->setAutoDefault(true);
  button->setDefault(preset);
  if (preset) button->setFocus();
  connect(button, &QPushButton::clicked, this, [this, answer] {
    answer_ = answer;
    accept();
  });
  return button;
}

void MessageDialog::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  theme::paintPanel(painter, rect(), height());
}

}  // namespace nerolith::widgets
