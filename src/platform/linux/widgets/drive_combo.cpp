#include "platform/linux/widgets/drive_combo.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr int kArrowRoom = 26;

}  // namespace

DriveCombo::DriveCombo(controls::DriveListBox& drives, QWidget* parent)
    : QComboBox(parent), drives_(drives) {
  setFont(theme::fontFor(controls::Look::Plain));
  setAttribute(Qt::WA_Hover);
  setFocusPolicy(Qt::StrongFocus);
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  connect(this, &QComboBox::currentIndexChanged, this, [this](int row) {
    if (!echo_.held()) quietly([this, row] { choose(row); });
  });
  new ControlBinding(*this, drives, [this] { refresh(); });
}

void DriveCombo::refresh() {
  const EchoGuard::Hold hold(echo_);
  if (shown_ != drives_.drives()) {
    shown_ = drives_.drives();
    clear();
    for (const controls::DriveEntry& drive : shown_) addItem(QString::fromStdString(drive.label));
  }
  int current = -1;
  for (std::size_t i = 0; i < shown_.size(); ++i)
    if (shown_[i].root == drives_.drive()) current = static_cast<int>(i);
  setCurrentIndex(current);
  update();
}

void DriveCombo::choose(int row) {
  if (row >= 0 && row < static_cast<int>(shown_.size()))
    drives_.setDrive(std::string(shown_[static_cast<std::size_t>(row)].root));
}

void DriveCombo::mousePressEvent(QMouseEvent* event) {
  if (event->position().x() >= width() - kArrowRoom) {
    focusByPress_ = false;
    QComboBox::mousePressEvent(event);
    return;
  }
  if (event->button() == Qt::LeftButton && !std::exchange(focusByPress_, false))
    quietly([this] { drives_.gotFocus.raise(); });
}

void DriveCombo::focusInEvent(QFocusEvent* event) {
  focusByPress_ = event->reason() == Qt::MouseFocusReason;
  QComboBox::focusInEvent(event);
}

void DriveCombo::wheelEvent(QWheelEvent* event) {
  // Rolling past must not change the drive, and with it the whole list.
  event->ignore();
}

void DriveCombo::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  theme::paintRecess(painter, rect(), theme::kWell, theme::kWell);
  painter.setFont(font());
  painter.setPen(isEnabled() ? theme::kInk : theme::kFaintInk);
  const QRect words = rect().adjusted(10, 0, -kArrowRoom, 0);
  painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   fontMetrics().elidedText(currentText(), Qt::ElideRight, words.width()));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(underMouse() ? theme::kInk : theme::kDimInk, 1.6, Qt::SolidLine, Qt::RoundCap,
                      Qt::RoundJoin));
  const QPointF tip(width() - kArrowRoom / 2.0, height() / 2.0 + 2);
  painter.drawPolyline(QPolygonF({tip + QPointF(-4, -4), tip, tip + QPointF(4, -4)}));
  if (hasFocus()) theme::paintFocus(painter, rect());
}

}  // namespace nerolith::widgets
