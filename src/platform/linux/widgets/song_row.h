// How one entry of the song list is drawn.
#pragma once

#include <QStyledItemDelegate>

#include "platform/linux/widgets/song_list_model.h"

namespace nerolith::widgets {

/// Played entries are dimmed, recent ones carry a star, the playing one a triangle; long names end
/// in an ellipsis. The signs are drawn as shapes, so that no further font is loaded for them.
class SongRow : public QStyledItemDelegate {
 public:
  SongRow(controls::ListBox& list, SongListModel& model, QWidget* view);

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 private:
  controls::ListBox& list_;
  SongListModel& model_;
  QWidget& view_;
  QFont plain_;
  QFont playing_;
};

}  // namespace nerolith::widgets
