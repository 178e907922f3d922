#include "platform/linux/desktop/sleep_inhibitor.h"

#include <gtest/gtest.h>

#include <memory>

#include "linux_desktop/private_bus.h"
#include "linux_desktop/sleep_services.h"

namespace nerolith::desktop {
namespace {

using Why = platform::PowerRequest::Why;

class SleepInhibitorTest : public testing::Test {
 protected:
  SleepInhibitorTest()
      : services(QDBusConnection::connectToBus(QDBusConnection::SystemBus, "services")) {}
  ~SleepInhibitorTest() override { QDBusConnection::disconnectFromBus("services"); }

  // One for all: a process connects to the addresses that it read first.
  static void SetUpTestSuite() { bus = std::make_unique<PrivateBus>(); }
  static void TearDownTestSuite() { bus.reset(); }

  void offer(QObject& service, const char* name, const char* path) {
    ASSERT_TRUE(services.registerObject(path, &service, QDBusConnection::ExportAllSlots));
    ASSERT_TRUE(services.registerService(name));
  }
  void offerLogind() { offer(logind, "org.freedesktop.login1", "/org/freedesktop/login1"); }
  void offerGnome() { offer(gnome, "org.gnome.SessionManager", "/org/gnome/SessionManager"); }

  static inline std::unique_ptr<PrivateBus> bus;
  QDBusConnection services;
  FakeLogind logind;
  FakeGnome gnome;
  FakePowerManagement xfce;
};

TEST_F(SleepInhibitorTest, LogindsLockIsHeldUntilTheRelease) {
  offerLogind();
  SleepInhibitor inhibitor;
  inhibitor.hold(Why::Playing);
  ASSERT_TRUE(waitUntil([&] { return logind.held(); }));
  EXPECT_EQ(logind.asked, QStringList{"sleep:idle, Nerolith, Playing music, block"});
  waitUntil([] { return false; }, 100);
  EXPECT_TRUE(logind.held());
  inhibitor.release();
  EXPECT_TRUE(waitUntil([&] { return !logind.held(); }));
}

TEST_F(SleepInhibitorTest, TheEndOfTheInhibitorIsARelease) {
  offerLogind();
  {
    SleepInhibitor inhibitor;
    inhibitor.hold(Why::Recording);
    ASSERT_TRUE(waitUntil([&] { return logind.held(); }));
  }
  EXPECT_EQ(logind.asked, QStringList{"sleep:idle, Nerolith, Recording, block"});
  EXPECT_TRUE(waitUntil([&] { return !logind.held(); }));
}

TEST_F(SleepInhibitorTest, TheDesktopsAreAskedAndGetTheirNumberBack) {
  offerGnome();
  offer(xfce, "org.freedesktop.PowerManagement", "/org/freedesktop/PowerManagement/Inhibit");
  SleepInhibitor inhibitor;
  inhibitor.hold(Why::Playing);
  ASSERT_TRUE(waitUntil([&] { return gnome.log.size() == 1 && xfce.log.size() == 1; }));
  inhibitor.release();
  ASSERT_TRUE(waitUntil([&] { return gnome.log.size() == 2 && xfce.log.size() == 2; }));
  EXPECT_EQ(gnome.log, (QStringList{"hold velmarion, 0, Playing music, 4", "release 42"}));
  EXPECT_EQ(xfce.log, (QStringList{"hold Nerolith, Playing music", "release 7"}));
}

TEST_F(SleepInhibitorTest, WhatIsGrantedAfterTheReleaseIsGivenBackAtOnce) {
  offerGnome();
  gnome.late = true;
  SleepInhibitor inhibitor;
  inhibitor.hold(Why::Playing);
  ASSERT_TRUE(waitUntil([&] { return gnome.log.size() == 1; }));
  inhibitor.release();
  waitUntil([] { return false; }, 100);
  EXPECT_EQ(gnome.log.size(), 1);
  gnome.answer();
  ASSERT_TRUE(waitUntil([&] { return gnome.log.size() == 2; }));
  EXPECT_EQ(gnome.log.last(), "release 42");
}

TEST_F(SleepInhibitorTest, WithoutAnybodyToAskNothingHappens) {
  SleepInhibitor inhibitor;
  inhibitor.hold(Why::Playing);
  waitUntil([] { return false; }, 100);
  inhibitor.release();
  inhibitor.hold(Why::Recording);
}

}  // namespace
}  // namespace nerolith::desktop
