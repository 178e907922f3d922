// Runs without a screen unless another platform is asked for by QT_QPA_PLATFORM.
#include <gtest/gtest.h>

#include "platform/linux/widgets/qt_application.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");  // the user's desktop is none of a test's
  const nerolith::widgets::QtApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
