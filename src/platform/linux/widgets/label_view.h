// A text of the faceplate.
#pragma once

#include <QLabel>

#include "controls/label.h"
#include "controls/layout.h"

namespace nerolith::widgets {

/// Shows a label's caption, shortened with an ellipsis where the room does not suffice (the whole
/// text is then part of the tooltip). A label without a model shows fixed words. A left click is
/// the label's click. `onGlass` picks the ink.
class LabelView : public QLabel {
 public:
  LabelView(controls::Label& label, controls::Look look, bool onGlass, QWidget* parent);
  LabelView(const QString& words, controls::Look look, bool onGlass, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void dress();
  void refresh();
  QColor ink() const;
  QString shown() const;

  controls::Label* label_ = nullptr;
  controls::Look look_;
  bool onGlass_;
  QString words_;
  bool pressed_ = false;
};

}  // namespace nerolith::widgets
