#include "platform/linux/widgets/drive_combo.h"

#include <QAbstractItemView>
#include <QMouseEvent>
#include <QPainter>
#include <QProxyStyle>
#include <QStyledItemDelegate>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr int kArrowRoom = 26;
constexpr int kDriveRow = 26;

/// The toolkit's own style lays the list over the box, as if the box had turned into it.
class BelowTheBox : public QProxyStyle {
 public:
  BelowTheBox() : QProxyStyle(QStringLiteral("fusion")) {}
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override {
    if (hint == SH_ComboBox_Popup) return 0;
    return QProxyStyle::styleHint(hint, option, widget, answer);
  }
};

class DriveRow : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {90, std::max(kDriveRow, option.fontMetrics.height() + 8)};
  }
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const bool current = option.state & QStyle::State_Selected;
    painter->fillRect(option.rect, current ? theme::kSelection : theme::kWell);
    painter->setPen(current ? theme::kSelectionInk : theme::kInk);
    painter->setFont(option.font);
    const QRect words = option.rect.adjusted(9, 0, -6, 0);
    painter->drawText(
        words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        option.fontMetrics.elidedText(index.data().toString(), Qt::ElideRight, words.width()));
  }
};

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
  const controls::EchoGuard::Hold hold(echo_);
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
  if (count() > 1 && event->position().x() >= width() - kArrowRoom) {
    focusByPress_ = false;
    QComboBox::mousePressEvent(event);
    return;
  }
  if (event->button() == Qt::LeftButton && !std::exchange(focusByPress_, false))
    quietly([this] { drives_.gotFocus.raise(); });
}

void DriveCombo::showPopup() {
  if (count() < 2) return;
  // Made for the first use: the start has no time for a style of its own.
  if (!std::exchange(dropsBelow_, true)) {
    auto* style = new BelowTheBox;
    style->setParent(this);
    setStyle(style);
    setItemDelegate(new DriveRow(this));
    view()->setFont(font());
  }
  QComboBox::showPopup();
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
  const bool dropped = dropsBelow_ && view()->isVisible();
  if (hasFocus() || dropped) theme::paintFocus(painter, rect());
}

}  // namespace nerolith::widgets
