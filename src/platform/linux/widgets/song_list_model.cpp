#include "platform/linux/widgets/song_list_model.h"

#include <QStringList>

#include "platform/linux/widgets/quietly.h"

namespace nerolith::widgets {

SongListModel::SongListModel(controls::ListBox& list, QObject* parent)
    : QAbstractListModel(parent), list_(list), rows_(list.count()) {}

int SongListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rows_;
}

controls::RowMarks SongListModel::marksOf(int row) const {
  controls::RowMarks marks;
  quietly([this, row, &marks] {
    if (list_.rowMarks) marks = list_.rowMarks(row);
  });
  return marks;
}

QVariant SongListModel::data(const QModelIndex& index, int role) const {
  const int row = index.row();
  if (!index.isValid() || row >= list_.count()) return {};
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole || role == Qt::AccessibleTextRole)
    return QString::fromStdString(list_.item(row));
  if (role != Qt::AccessibleDescriptionRole) return {};
  QStringList words;
  const controls::RowMarks marks = marksOf(row);
  if (list_.selected(row)) words << QStringLiteral("selected");
  if (marks.playing) words << QStringLiteral("playing");
  if (marks.played) words << QStringLiteral("played");
  if (marks.recent) words << QStringLiteral("recent");
  return words.join(QStringLiteral(", "));
}

void SongListModel::reload() {
  beginResetModel();
  rows_ = list_.count();
  endResetModel();
}

}  // namespace nerolith::widgets
