#include "platform/linux/widgets/qt_event_queue.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTest>
#include <QTimer>

namespace nerolith::widgets {
namespace {

TEST(EventQueue, CallsThatWaitRunWhileTheFirstHasAMessageBoxOpen) {
  QtEventQueue queue;
  bool second = false;
  bool seenInside = false;
  queue.post([&] {
    QEventLoop box;
    QTimer::singleShot(5000, &box, &QEventLoop::quit);
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &box, [&] {
      if (second) box.quit();
    });
    poll.start(1);
    box.exec();
    seenInside = second;
  });
  queue.post([&] { second = true; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return second; }, 10000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return seenInside; }, 100));
}

}  // namespace
}  // namespace nerolith::widgets
