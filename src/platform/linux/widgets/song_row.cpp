#include "platform/linux/widgets/song_row.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>
#include <algorithm>

#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr int kSigns = 34;  // room left of the text
constexpr QPointF kSignAt{20, 0};

QPainterPath star(const QPointF& centre) {
  QPolygonF points;
  for (int i = 0; i < 10; ++i) {
    const qreal radius = i % 2 == 0 ? 6.2 : 2.6;
    const qreal angle = qDegreesToRadians(-90.0 + 36.0 * i);
    points << centre + QPointF(radius * qCos(angle), radius * qSin(angle));
  }
  QPainterPath path;
  path.addPolygon(points);
  path.closeSubpath();
  return path;
}

QPainterPath triangle(const QPointF& centre) {
  QPainterPath path;
  path.addPolygon(QPolygonF({centre + QPointF(-3.5, -5), centre + QPointF(5, 0),
                             centre + QPointF(-3.5, 5), centre + QPointF(-3.5, -5)}));
  return path;
}

QColor inkOf(const controls::RowMarks& marks, bool selected, bool enabled) {
  if (!enabled) return theme::kFaintInk;
  if (marks.playing) return theme::kPlaying;
  if (marks.played) return selected ? QColor(0xa3, 0xb4, 0xc0) : theme::kFaintInk;
  return selected ? theme::kSelectionInk : theme::kInk;
}

}  // namespace

SongRow::SongRow(controls::ListBox& list, SongListModel& model, QWidget* view)
    : QStyledItemDelegate(view),
      list_(list),
      model_(model),
      view_(*view),
      plain_(theme::fontFor(controls::Look::SongList)),
      playing_(plain_) {
  playing_.setWeight(QFont::Bold);
}

QSize SongRow::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
  return {100, std::max(theme::kRowHeight, QFontMetrics(plain_).height() + 6)};
}

void SongRow::paint(QPainter* painter, const QStyleOptionViewItem& option,
                    const QModelIndex& index) const {
  const int row = index.row();
  if (row >= list_.count()) return;
  const controls::RowMarks marks = model_.marksOf(row);
  const bool selected = list_.selected(row);
  const QRect area = option.rect;
  if (selected) painter->fillRect(area, theme::kSelection);
  painter->setRenderHint(QPainter::Antialiasing);
  const QPointF signAt = QPointF(area.left(), QRectF(area).center().y()) + kSignAt;
  if (marks.playing)
    painter->fillPath(triangle(signAt), QColor(0x3f, 0xe0, 0x7c));
  else if (marks.recent)
    painter->fillPath(star(signAt), theme::kAmber);
  const QFont& font = marks.playing ? playing_ : plain_;
  painter->setFont(font);
  painter->setPen(inkOf(marks, selected, view_.isEnabled()));
  const QRect words = area.adjusted(kSigns, 0, -10, 0);
  const QString name = QString::fromStdString(list_.item(row)).simplified();
  painter->drawText(words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                    QFontMetrics(font).elidedText(name, Qt::ElideMiddle, words.width()));
  if (row == list_.listIndex()) {
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(view_.hasFocus() ? theme::kFocus : QColor(0x4a, 0x55, 0x5f), 1));
    painter->drawRoundedRect(QRectF(area).adjusted(2.5, 0.5, -2.5, -0.5), 3, 3);
  }
}

}  // namespace nerolith::widgets
