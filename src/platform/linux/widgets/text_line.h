// A line of text.
#pragma once

#include <QLineEdit>

#include "controls/echo_guard.h"
#include "controls/layout.h"
#include "controls/text_box.h"

namespace nerolith::widgets {

/// In a well the text is shown, can be copied and is shortened in its middle; else it is edited.
class TextLine : public QLineEdit {
 public:
  TextLine(controls::TextBox& box, controls::Look look, QWidget* parent);
  QSize sizeHint() const override { return {160, 28}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void refresh();

  controls::TextBox& box_;
  controls::EchoGuard echo_;
};

}  // namespace nerolith::widgets
