#include "platform/linux/widgets/digital_display.h"

#include <QPaintEvent>
#include <QScreen>

#include "shown_form.h"

namespace nerolith::widgets {
namespace {

/// Where a widget was painted.
struct Painted : QObject {
  explicit Painted(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) area |= static_cast<QPaintEvent*>(event)->rect();
    return false;
  }
  QRect area;
};

class Digits : public ShownForm {
 protected:
  void SetUp() override {
    ShownForm::SetUp();
    time = &widget<DigitalDisplay>("Time");
    form.Label1.setCaption("19:58");
    window->repaint();
    settle();
  }
  void settle() { QTest::qWait(30); }
  /// What is on the screen, painted as it came.
  QImage onScreen() {
    const QPoint corner = time->mapTo(window, QPoint());
    return window->screen()
        ->grabWindow(window->winId(), corner.x(), corner.y(), time->width(), time->height())
        .toImage();
  }
  DigitalDisplay* time = nullptr;
};

TEST_F(Digits, OnlyTheOneThatChangesIsPainted) {
  Painted painted(*time);
  form.Label1.setCaption("19:59");
  settle();
  EXPECT_FALSE(painted.area.isEmpty());
  EXPECT_LT(painted.area.width(), time->width() / 2);
  EXPECT_GT(painted.area.left(), time->width() / 2);
}

TEST_F(Digits, NothingIsPaintedForTheSameText) {
  Painted painted(*time);
  time->setToolTip("left");
  form.Label1.setToolTip("the time left");
  settle();
  EXPECT_TRUE(painted.area.isEmpty());
}

TEST_F(Digits, AllArePaintedInAnotherColour) {
  Painted painted(*time);
  form.Label1.setForeColour(0x0000FF);
  settle();
  EXPECT_EQ(painted.area, time->rect());
}

TEST_F(Digits, PaintedOneByOneTheyLookAsPaintedAtOnce) {
  for (const char* text : {"19:59", "20:00", "-0:07", "1:02:03", "9", "", "00:00"}) {
    form.Label1.setCaption(text);
    settle();
    const QImage piecewise = onScreen();
    window->repaint();
    settle();
    EXPECT_EQ(piecewise, onScreen()) << text;
    EXPECT_FALSE(piecewise.isNull());
  }
}

}  // namespace
}  // namespace nerolith::widgets
