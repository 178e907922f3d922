// A message of the player's and the buttons that answer it.
#pragma once

#include <QDialog>

#include "platform/dialogs.h"

class QAbstractButton;

namespace nerolith::widgets {

/// Shown with exec(); `answer` is then what the user said. Enter presses the preset button or the
/// one with the focus. Escape and closing the window answer No, or OK where that is all there is.
class MessageDialog : public QDialog {
 public:
  MessageDialog(const platform::Message& message, QWidget* parent);

  platform::Answer answer() const { return answer_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QAbstractButton* addButton(const QString& caption, platform::Answer answer, bool preset);

  platform::Answer answer_;
};

}  // namespace nerolith::widgets
