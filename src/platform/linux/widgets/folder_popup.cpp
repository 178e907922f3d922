#include "platform/linux/widgets/folder_popup.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyledItemDelegate>
#include <algorithm>

#include "platform/linux/widgets/control_binding.h"
#include "platform/linux/widgets/quietly.h"
#include "platform/linux/widgets/slim_scroll_bar.h"
#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr int kStep = 14;
constexpr int kRow = 24;
constexpr int kRim = 6;
constexpr int kShadow = 7;  // room around the frame
constexpr QColor kGround{0x1c, 0x21, 0x26};
constexpr int kDeepest = 12;  // steps that are drawn further in

char separatorOf(const std::string& path) {
  return path.find('\\') != std::string::npos ? '\\' : '/';
}

std::string lastName(const std::string& path) {
  const std::size_t end = path.find_last_not_of("/\\");
  if (end == std::string::npos) return path;
  const std::size_t cut = path.find_last_of("/\\", end);
  return cut == std::string::npos ? path : path.substr(cut + 1, end - cut);
}

void paintFolder(QPainter& painter, const QPointF& at, bool open) {
  QPainterPath shape;
  shape.addRoundedRect(QRectF(at.x(), at.y() - 4, 14, 9), 1.5, 1.5);
  shape.addRoundedRect(QRectF(at.x(), at.y() - 6, 6, 5), 1.5, 1.5);
  painter.setPen(Qt::NoPen);
  painter.setBrush(open ? theme::kAmber : QColor(0x8a, 0x78, 0x4c));
  shape.setFillRule(Qt::WindingFill);
  painter.drawPath(shape);
}

}  // namespace

class FolderPopup::Rows : public QAbstractListModel {
 public:
  Rows(controls::DirListBox& folders, QObject* parent)
      : QAbstractListModel(parent), folders_(folders) {}

  int steps() const { return static_cast<int>(folders_.ancestors().size()); }
  bool isStep(int row) const { return row < steps(); }
  int depth(int row) const { return std::min(isStep(row) ? row : steps(), kDeepest); }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : rows_;
  }

  QVariant data(const QModelIndex& index, int role) const override {
    if (!index.isValid() || index.row() >= count()) return {};
    if (role == Qt::DisplayRole || role == Qt::AccessibleTextRole) {
      const auto row = static_cast<std::size_t>(index.row());
      const auto& steps = folders_.ancestors();
      return QString::fromStdString(row < steps.size() ? lastName(steps[row])
                                                       : folders_.folders()[row - steps.size()]);
    }
    return {};
  }

  std::string path(int row) const {
    const auto& steps = folders_.ancestors();
    const auto place = static_cast<std::size_t>(row);
    if (place < steps.size()) return steps[place];
    std::string path = folders_.path();
    const char separator = separatorOf(path);
    if (path.empty() || path.back() != separator) path += separator;
    return path + folders_.folders()[place - steps.size()];
  }

  void reload() {
    beginResetModel();
    rows_ = count();
    endResetModel();
  }

 private:
  int count() const { return steps() + static_cast<int>(folders_.folders().size()); }

  controls::DirListBox& folders_;
  int rows_ = 0;
};

class FolderPopup::Row : public QStyledItemDelegate {
 public:
  Row(Rows& rows, QWidget* view) : QStyledItemDelegate(view), rows_(rows), view_(*view) {}

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {100, std::max(kRow, option.fontMetrics.height() + 6)};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    const QRect area = option.rect;
    const bool current = option.state & QStyle::State_Selected;
    if (current)
      painter->fillRect(area, theme::kSelection);
    else if (option.state & QStyle::State_MouseOver)
      painter->fillRect(area, QColor(255, 255, 255, 14));
    painter->setRenderHint(QPainter::Antialiasing);
    const int left = area.left() + 10 + rows_.depth(index.row()) * kStep;
    paintFolder(*painter, {static_cast<qreal>(left), area.center().y() + 1.0},
                rows_.isStep(index.row()));
    painter->setFont(option.font);
    painter->setPen(current ? theme::kSelectionInk : theme::kInk);
    const QRect words(left + 21, area.top(), area.right() - left - 29, area.height());
    painter->drawText(words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                      option.fontMetrics.elidedText(index.data().toString().simplified(),
                                                    Qt::ElideMiddle, words.width()));
    if (current && view_.hasFocus())
      theme::paintFocus(*painter, QRectF(area).adjusted(1, 0, -1, 0), 4);
  }

 private:
  Rows& rows_;
  QWidget& view_;
};

FolderPopup::FolderPopup(controls::DirListBox& folders, QWidget* parent)
    : QListView(parent), folders_(folders), rows_(new Rows(folders, this)) {
  setFont(theme::fontFor(controls::Look::SongList));
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setLineWidth(kShadow);
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollMode(ScrollPerPixel);
  setVerticalScrollBar(new SlimScrollBar(this));
  setViewportMargins(2, kRim, 2, kRim);
  viewport()->setAutoFillBackground(false);
  setItemDelegate(new Row(*rows_, this));
  setModel(rows_);
  viewport()->setAttribute(Qt::WA_Hover);
  auto* binding = new ControlBinding(*this, folders, [this] { refresh(); });
  binding->watchMouse(*viewport());
}

QString FolderPopup::nameAt(int row) const { return rows_->index(row).data().toString(); }
std::string FolderPopup::pathAt(int row) const { return rows_->path(row); }
int FolderPopup::rows() const { return rows_->rowCount(); }

QSize FolderPopup::sizeHint() const {
  return {420, rows() * std::max(kRow, sizeHintForRow(0)) + 2 * (kRim + kShadow)};
}

bool FolderPopup::event(QEvent* event) {
  if (event->type() == QEvent::Paint) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(kShadow, kShadow, -kShadow, -kShadow);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 22));
    for (int spread = 1; spread < kShadow; ++spread)
      painter.drawRoundedRect(frame.adjusted(-spread, 1 - spread, spread, spread + 1),
                              theme::kRound + spread, theme::kRound + spread);
    painter.setPen(QColor(0x4a, 0x55, 0x60));
    painter.setBrush(kGround);
    painter.drawRoundedRect(frame.adjusted(0.5, 0.5, -0.5, -0.5), theme::kRound, theme::kRound);
    return true;
  }
  return QListView::event(event);
}

void FolderPopup::refresh() {
  rows_->reload();
  verticalScrollBar()->setSingleStep(kRow);
  updateGeometry();
  const int here = rows_->steps() - 1;
  if (here >= 0) {
    setCurrentIndex(rows_->index(here));
    scrollTo(rows_->index(std::max(0, here - 2)), PositionAtTop);
  }
}

void FolderPopup::open(const QModelIndex& index) {
  if (!index.isValid()) return;
  quietly([this, row = index.row()] { folders_.userOpen(rows_->path(row)); });
}

void FolderPopup::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      quietly([this] { folders_.setVisible(false); });
      break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      open(currentIndex());
      break;
    case Qt::Key_Space:
      quietly([this] { folders_.userClick(); });
      break;
    default:
      QListView::keyPressEvent(event);
  }
}

void FolderPopup::mouseReleaseEvent(QMouseEvent* event) {
  const bool left = event->button() == Qt::LeftButton;
  QListView::mouseReleaseEvent(event);
  if (left && indexAt(event->position().toPoint()).isValid())
    quietly([this] { folders_.userClick(); });
}

void FolderPopup::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) open(indexAt(event->position().toPoint()));
}

void FolderPopup::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), kGround);
  }
  QListView::paintEvent(event);
}

}  // namespace nerolith::widgets
