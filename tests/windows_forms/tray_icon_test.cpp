// The icon in the notification area of the shell that runs here, which is Wine's own in the tests.
#include <windows.h>

#include <gtest/gtest.h>
#include <shellapi.h>

#include "contracts/notification_icon_contract.h"
#include "forms/form3.h"
#include "platform/windows/forms/task_bar_watch.h"
#include "platform/windows/shell_notification_icon.h"
#include "windows_forms/shown_form.h"
#include "windows_forms/window_picture.h"

namespace nerolith::windows_forms {
namespace {

class TrayRig {
 public:
  TrayRig()
      : door(
            [this](controls::PictureBox& picture) -> HWND {
              return reachable ? shown.host.windowOf(picture) : nullptr;
            },
            [this](const controls::Form& form) { return shown.host.iconOf(form); },
            [this] {
              return !taskBarGone && windows::ShellNotificationIcon::systemTaskBarThere();
            }) {
    shown.host.add(tray.form);
    tray.form.load();
    shown.settle();
  }
  ~TrayRig() { shown.host.remove(tray.form); }

  platform::NotificationIcon& icon() { return door; }
  platform::NotifyRecord record() {
    platform::NotifyRecord record{.size = 88,
                                  .window = &tray.picTray,
                                  .id = 100,
                                  .flags = 7,
                                  .callbackMessage = 512,
                                  .icon = &shown.form.form};
    std::string("Nerolith").copy(record.tip.data(), record.tip.size() - 1);
    return record;
  }
  HWND picture() { return shown.host.windowOf(tray.picTray); }
  void mouse(int message) { PostMessageW(picture(), WM_MOUSEMOVE, 100, message); }
  void settle() { shown.settle(); }

  /// As the shell tells all windows after its start.
  void taskBarIsMadeAnew() {
    SendMessageW(watch.handle(), RegisterWindowMessageW(L"TaskbarCreated"), 0, 0);
  }

  /// Whether the shell knows the icon: it changes none that it does not.
  bool shellKnowsIt() {
    NOTIFYICONDATAA data{};
    data.cbSize = NOTIFYICONDATAA_V1_SIZE;
    data.hWnd = picture();
    data.uID = 100;
    return Shell_NotifyIconA(NIM_MODIFY, &data) != FALSE;
  }
  void shellForgetsIt() {
    NOTIFYICONDATAA data{};
    data.cbSize = NOTIFYICONDATAA_V1_SIZE;
    data.hWnd = picture();
    data.uID = 100;
    Shell_NotifyIconA(NIM_DELETE, &data);
  }

  ShownForm shown;
  forms::Form3 tray;
  bool reachable = true;  // else the shell takes no icon
  bool taskBarGone = false;
  windows::ShellNotificationIcon door;
  const TaskBarWatch watch{[this] { door.taskBarCreated(); }, [this] { door.look(); }};
};

TEST(TrayIcon, TheHiddenFormsPictureBoxHasAWindowOnceTheFormIsLoaded) {
  TrayRig rig;
  EXPECT_TRUE(IsWindow(rig.picture()));
  EXPECT_FALSE(IsWindowVisible(rig.picture()));
}

TEST(TrayIcon, TheShellKnowsItFromAddingToDeleting) {
  TrayRig rig;
  EXPECT_FALSE(rig.shellKnowsIt());
  rig.door.notify(platform::NotifyMessage::Add, rig.record());
  EXPECT_TRUE(rig.shellKnowsIt());
  rig.door.notify(platform::NotifyMessage::Delete, rig.record());
  EXPECT_FALSE(rig.shellKnowsIt());
}

TEST(TrayIcon, APictureBoxWithoutAWindowGetsNone) {
  TrayRig rig;
  controls::PictureBox nowhere;
  platform::NotifyRecord record = rig.record();
  record.window = &nowhere;
  EXPECT_FALSE(rig.door.notify(platform::NotifyMessage::Add, record));
  EXPECT_FALSE(rig.door.shown());
}

TEST(TrayIcon, IsAddedOnceMoreWhenTheTaskBarIsMadeAnew) {
  TrayRig rig;
  int told = 0;
  const auto hearing = rig.door.shownChanged.subscribe([&told] { ++told; });
  rig.taskBarIsMadeAnew();
  EXPECT_FALSE(rig.shellKnowsIt()) << "nobody wanted it yet";
  EXPECT_EQ(told, 0);
  rig.door.notify(platform::NotifyMessage::Add, rig.record());
  rig.shellForgetsIt();
  ASSERT_FALSE(rig.shellKnowsIt());
  rig.taskBarIsMadeAnew();
  EXPECT_TRUE(rig.shellKnowsIt());
  rig.door.notify(platform::NotifyMessage::Delete, rig.record());
  rig.taskBarIsMadeAnew();
  EXPECT_FALSE(rig.shellKnowsIt()) << "it was deleted";
}

// So it is announced also when nothing but the screen's density has changed.
TEST(TrayIcon, IsStillShownWhenATaskBarThatHasItIsAnnouncedOnceMore) {
  TrayRig rig;
  rig.door.notify(platform::NotifyMessage::Add, rig.record());
  rig.taskBarIsMadeAnew();
  EXPECT_TRUE(rig.door.shown());
  rig.door.notify(platform::NotifyMessage::Delete, rig.record());
}

TEST(TrayIcon, OneThatNoTaskBarTookIsAddedAsSoonAsThereIsOne) {
  TrayRig rig;
  rig.reachable = false;
  EXPECT_FALSE(rig.door.notify(platform::NotifyMessage::Add, rig.record()));
  EXPECT_FALSE(rig.door.shown());
  rig.reachable = true;
  rig.taskBarIsMadeAnew();
  EXPECT_TRUE(rig.door.shown());
  EXPECT_TRUE(rig.shellKnowsIt());
  rig.door.notify(platform::NotifyMessage::Delete, rig.record());
}

TEST(TrayIcon, OneThatTheNewTaskBarRefusesIsNotShown) {
  TrayRig rig;
  rig.door.notify(platform::NotifyMessage::Add, rig.record());
  rig.shellForgetsIt();
  rig.reachable = false;
  rig.taskBarIsMadeAnew();
  EXPECT_FALSE(rig.door.shown());
}

TEST(TrayIcon, ATaskBarThatFallsIsNoticed) {
  TrayRig rig;
  rig.door.notify(platform::NotifyMessage::Add, rig.record());
  int told = 0;
  const auto hearing = rig.door.shownChanged.subscribe([&] { ++told; });
  rig.taskBarGone = true;
  for (int i = 0; i < 500 && told == 0; ++i) {
    rig.settle();
    Sleep(10);
  }
  EXPECT_EQ(told, 1);
  EXPECT_FALSE(rig.door.shown());
  rig.door.look();
  EXPECT_EQ(told, 1) << "told but once";
  rig.taskBarGone = false;
  rig.taskBarIsMadeAnew();
  EXPECT_EQ(told, 2);
  EXPECT_TRUE(rig.door.shown());
  rig.door.notify(platform::NotifyMessage::Delete, rig.record());
}

TEST(TrayIcon, ThePanelShowsItsKeysAndTheMouseOverItsPictureIsToldInTwips) {
  TrayRig rig;
  rig.tray.lblMessage.setCaption("Uninitialized...");
  rig.shown.form.form.setVisible(false);  // it would lie over the panel
  rig.tray.form.setVisible(true);
  rig.settle();
  const HWND panel = rig.shown.host.windowOf(rig.tray.form)->handle();
  for (const wchar_t* words : {L"&Add Icon", L"&Delete Icon", L"&Close"})
    EXPECT_TRUE(IsWindowVisible(FindWindowExW(panel, nullptr, L"BUTTON", words)));
  // Painted, down to the last of its keys, as soon as the screen has followed.
  for (int i = 0; i < 100 && WindowPicture(panel).pixel(60, 140) == 0; ++i) {
    rig.settle();
    Sleep(20);
  }
  EXPECT_NE(WindowPicture(panel).pixel(60, 140), 0u);
  EXPECT_TRUE(WindowPicture(panel).save("tray-panel"));
  float across = 0, down = 0;
  const auto hearing = rig.tray.picTray.mouseMove.subscribe([&](float x, float y) {
    across = x;
    down = y;
  });
  SendMessageW(rig.picture(), WM_MOUSEMOVE, 0, MAKELPARAM(10, 20));
  EXPECT_EQ(across, 150);
  EXPECT_EQ(down, 300);
}

TEST(TrayIcon, TheMenuOfAHiddenFormPopsUpAndItsItemActs) {
  TrayRig rig;
  int clicks = 0;
  const auto hearing = rig.tray.mnuPlayNext.click.subscribe([&] { ++clicks; });
  rig.tray.form.popUpMenu(rig.tray.mnuFile);
  const HWND host = rig.shown.host.windowOf(rig.tray.form)->handle();
  PostMessageW(host, WM_KEYDOWN, VK_DOWN, 1);
  PostMessageW(host, WM_KEYDOWN, VK_RETURN, 1);
  rig.settle();
  EXPECT_EQ(clicks, 1);
  EXPECT_FALSE(IsWindowVisible(host));
}

}  // namespace
}  // namespace nerolith::windows_forms

namespace nerolith::contracts {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Shell, NotificationIconContract, windows_forms::TrayRig);

}  // namespace
}  // namespace nerolith::contracts
