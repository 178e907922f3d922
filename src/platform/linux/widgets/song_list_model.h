// The list box as the toolkit's lists want it.
#pragma once

#include <QAbstractListModel>
#include <vector>

#include "controls/list_box.h"

namespace nerolith::widgets {

/// Keeps no entry: every text is fetched from the list box when it is drawn. The number of rows is
/// the one of the last reset, so that a view never asks beyond what it was told of.
class SongListModel : public QAbstractListModel {
 public:
  SongListModel(controls::ListBox& list, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  /// The text; for screen readers also whether it is selected, playing, played or recent.
  QVariant data(const QModelIndex& index, int role) const override;

  controls::RowMarks marksOf(int row) const;
  /// Entries came or went.
  void reload();

 private:
  controls::ListBox& list_;
  int rows_ = 0;
};

}  // namespace nerolith::widgets
