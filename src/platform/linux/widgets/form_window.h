// One form as a window.
#pragma once

#include <QImage>
#include <QPointer>
#include <QWidget>
#include <vector>

#include "controls/form.h"

namespace nerolith::widgets {

/// Built with the form's layout when it is made, which shows nothing yet; afterwards follows the
/// form: shown, hidden, brought forward, entitled, and painted with its picture or the theme's
/// panel. The form hears of keys before the focused control does, of the mouse moving over the
/// window (except over the controls that an overlay belongs to), of activation and of closing.
/// With an owner, it opens over the owner's middle and stays in front of it.
class FormWindow : public QWidget {
 public:
  explicit FormWindow(controls::Form& form, const QWidget* owner = nullptr);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Floating {
    controls::Overlay overlay;
    QWidget* widget;
    QWidget* anchor;
  };

  void build();
  void watch(QWidget& widget);
  void subscribe();
  void followForm();
  void show(bool visible);
  void moveOverOwner();
  void placeBesideOwner();
  void takePicture();
  void bringForward();
  QPoint placeOfFocus() const;
  void popUp(const controls::MenuItem& menu);
  void placeOverlays();
  void hideOverlays();
  QRect roomBelow(const QWidget& anchor) const;
  void tellKey(QObject* watched, QEvent* event);
  bool ownsOverlay(const QObject* watched) const;

  controls::Form& form_;
  QPointer<const QWidget> owner_;
  QRect besidePlace_;  // of the owner, when this window was put at its side
  std::vector<Floating> floating_;
  std::vector<base::Subscription> subscriptions_;
  QImage picture_;  // looks at the form's pixels
  bool lastInputWasKey_ = false;
  bool iconDrawn_ = false;
};

}  // namespace nerolith::widgets
