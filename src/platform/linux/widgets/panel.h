// A box that is seen.
#pragma once

#include <QWidget>

#include "controls/layout.h"

namespace nerolith::widgets {

/// Dark glass, a recess, a plate, or nothing but a fixed size around what lies in it.
class Panel : public QWidget {
 public:
  Panel(controls::Look look, QWidget* parent) : QWidget(parent), look_(look) {}

  /// Whether this piece of it shows nothing but what `paintPlain` paints.
  bool isPlainAt(const QRect& area) const;
  void paintPlain(QPainter& painter, const QRect& area) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool recessed() const { return look_ == controls::Look::Glass || look_ == controls::Look::Well; }
  QColor top() const;
  QColor bottom() const;

  controls::Look look_;
};

}  // namespace nerolith::widgets
