// The recording level's meter by itself: when it is painted, and on which ground.
#include "platform/linux/widgets/meter_bar.h"

#include <gtest/gtest.h>

#include <QEvent>
#include <QTest>

namespace nerolith::widgets {
namespace {

class Meter : public testing::Test {
 protected:
  void SetUp() override {
    panel.resize(300, 120);
    meter.setGeometry(20, 20, 200, 18);
    panel.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
  }

  controls::ProgressBar bar;
  Panel panel{controls::Look::Glass, nullptr};
  MeterBar meter{bar, &panel};
};

class PaintCount : public QObject {
 public:
  explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
  int paints = 0;

 private:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
  }
};

TEST_F(Meter, LightsOnTheRimArePaintedAtOnceToo) {
  panel.resize(300, 40);
  QCoreApplication::processEvents();
  const PaintCount seen(meter);
  bar.setValue(50);
  EXPECT_EQ(seen.paints, 1) << "before the event loop has its turn";
}

TEST_F(Meter, IsLaidOnTheRimAsSoonAsItsPanelIsTooSmallForIt) {
  EXPECT_TRUE(meter.testAttribute(Qt::WA_OpaquePaintEvent));
  panel.resize(300, 40);
  QCoreApplication::processEvents();
  EXPECT_FALSE(meter.testAttribute(Qt::WA_OpaquePaintEvent));
}

}  // namespace
}  // namespace nerolith::widgets
