#include "platform/windows/taskbar_button.h"

#include <gtest/gtest.h>
#include <shobjidl.h>
#include <sstream>

#include "windows_system/heard_commands.h"

namespace nerolith::windows {
namespace {

using platform::PlayState;

/// A taskbar that writes down what it is told; Wine's draws nothing of it.
class ToldTaskbar final : public ITaskbarList3 {
 public:
  std::ostringstream trace;
  int references = 0;
  std::string told() {
    const std::string text = trace.str();
    trace.str("");
    return text;
  }

  HRESULT WINAPI QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
  ULONG WINAPI AddRef() override { return static_cast<ULONG>(++references); }
  ULONG WINAPI Release() override { return static_cast<ULONG>(--references); }
  HRESULT WINAPI HrInit() override {
    trace << "init | ";
    return S_OK;
  }
  HRESULT WINAPI AddTab(HWND) override { return E_NOTIMPL; }
  HRESULT WINAPI DeleteTab(HWND) override { return E_NOTIMPL; }
  HRESULT WINAPI ActivateTab(HWND) override { return E_NOTIMPL; }
  HRESULT WINAPI SetActiveAlt(HWND) override { return E_NOTIMPL; }
  HRESULT WINAPI MarkFullscreenWindow(HWND, WINBOOL) override { return E_NOTIMPL; }
  HRESULT WINAPI SetProgressValue(HWND window, ULONGLONG done, ULONGLONG whole) override {
    trace << "value " << 100.0 * static_cast<double>(done) / static_cast<double>(whole) << "% "
          << place(window);
    return S_OK;
  }
  HRESULT WINAPI SetProgressState(HWND window, TBPFLAG flags) override {
    trace << "state " << static_cast<int>(flags) << ' ' << place(window);
    return S_OK;
  }
  HRESULT WINAPI RegisterTab(HWND, HWND) override { return E_NOTIMPL; }
  HRESULT WINAPI UnregisterTab(HWND) override { return E_NOTIMPL; }
  HRESULT WINAPI SetTabOrder(HWND, HWND) override { return E_NOTIMPL; }
  HRESULT WINAPI SetTabActive(HWND, HWND, DWORD) override { return E_NOTIMPL; }
  HRESULT WINAPI ThumbBarAddButtons(HWND window, UINT count, LPTHUMBBUTTON keys) override {
    return say("add", window, count, keys);
  }
  HRESULT WINAPI ThumbBarUpdateButtons(HWND window, UINT count, LPTHUMBBUTTON keys) override {
    return say("update", window, count, keys);
  }
  HRESULT WINAPI ThumbBarSetImageList(HWND, HIMAGELIST) override { return E_NOTIMPL; }
  HRESULT WINAPI SetOverlayIcon(HWND, HICON, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT WINAPI SetThumbnailTooltip(HWND, LPCWSTR) override { return E_NOTIMPL; }
  HRESULT WINAPI SetThumbnailClip(HWND, RECT*) override { return E_NOTIMPL; }

 private:
  static const char* place(HWND window) {
    return window == GetDesktopWindow() ? "| " : "elsewhere | ";
  }
  HRESULT say(const char* what, HWND window, UINT count, const THUMBBUTTON* keys) {
    trace << what;
    for (UINT i = 0; i < count; ++i) {
      ICONINFO icon{};
      EXPECT_TRUE(GetIconInfo(keys[i].hIcon, &icon)) << i;
      DeleteObject(icon.hbmColor);
      DeleteObject(icon.hbmMask);
      const std::wstring tip = keys[i].szTip;
      trace << ' ' << keys[i].iId << std::string(tip.begin(), tip.end())
            << (keys[i].dwFlags == THBF_ENABLED ? "+" : "-");
    }
    trace << ' ' << place(window);
    return S_OK;
  }
};

struct Taskbar : testing::Test {
  ToldTaskbar taskbar;
  HeardCommands player;
  TaskbarButton button{[this](ComPointer<ITaskbarList3>& found) {
    taskbar.AddRef();
    *found.out() = &taskbar;
  }};
  void made() {
    EXPECT_FALSE(
        button.onMessage(GetDesktopWindow(), RegisterWindowMessageW(L"TaskbarButtonCreated"), 0));
  }
  std::optional<LRESULT> press(WORD key) {
    return button.onMessage(GetDesktopWindow(), WM_COMMAND, MAKEWPARAM(key, THBN_CLICKED));
  }
};

TEST_F(Taskbar, GetsFourKeysOnceTheSystemHasMadeTheButton) {
  button.open(player);
  button.show(playingSong());
  EXPECT_EQ(taskbar.told(), "");
  made();
  EXPECT_EQ(taskbar.told(), "init | add 0Play- 1Pause+ 2Play Next+ 3Stop+ | value 0% | state 2 | ");
}

TEST_F(Taskbar, AButtonThatWasThereBeforeThePlayerIsDressedWhenItOpens) {
  made();
  EXPECT_EQ(taskbar.told(), "");
  button.open(player);
  EXPECT_EQ(taskbar.told(), "init | add 0Play- 1Pause- 2Play Next- 3Stop- | state 0 | ");
}

TEST_F(Taskbar, ShowsHowFarTheSongIs) {
  button.open(player);
  made();
  button.show(playingSong(50));
  taskbar.told();
  button.show(playingSong(50.01));
  EXPECT_EQ(taskbar.told(), "");
  button.show(playingSong(100));
  EXPECT_EQ(taskbar.told(), "value 50% | state 2 | ");
  platform::MediaStatus paused = playingSong(100);
  paused.state = PlayState::Paused;
  button.show(paused);
  EXPECT_EQ(taskbar.told(), "update 0Play+ 1Pause- 2Play Next+ 3Stop+ | value 50% | state 8 | ");
  button.show({});
  EXPECT_EQ(taskbar.told(), "update 0Play- 1Pause- 2Play Next- 3Stop- | state 0 | ");
}

TEST_F(Taskbar, ATaskbarStartedAnewGetsThemAgain) {
  button.open(player);
  button.show(playingSong());
  made();
  taskbar.told();
  made();
  EXPECT_EQ(taskbar.told(), "add 0Play- 1Pause+ 2Play Next+ 3Stop+ | value 0% | state 2 | ");
}

TEST_F(Taskbar, ItsKeysReachThePlayerAndOtherCommandsPassBy) {
  EXPECT_FALSE(press(0));
  button.open(player);
  for (const WORD key : {0, 1, 2, 3}) EXPECT_EQ(press(key), 0);
  EXPECT_FALSE(press(4));
  EXPECT_FALSE(button.onMessage(GetDesktopWindow(), WM_COMMAND, MAKEWPARAM(0, BN_CLICKED)));
  EXPECT_EQ(player.heard, "play pause next stop ");
}

TEST_F(Taskbar, ClosedItShowsNothingMoreAndGivesTheTaskbarBack) {
  button.open(player);
  made();
  button.show(playingSong(50));
  taskbar.told();
  button.close();
  EXPECT_EQ(taskbar.told(), "state 0 | ");
  EXPECT_EQ(taskbar.references, 0);
  EXPECT_FALSE(press(0));
}

TEST(TaskbarButtons, WhereThereIsNoTaskbarNothingFails) {
  HeardCommands player;
  TaskbarButton button([](ComPointer<ITaskbarList3>&) {});
  button.open(player);
  button.onMessage(GetDesktopWindow(), RegisterWindowMessageW(L"TaskbarButtonCreated"), 0);
  button.show(playingSong());
  button.close();
}

TEST(TaskbarButtons, TheSystemsOwnTaskbarTakesThem) {
  OleInitialize(nullptr);
  {
    HeardCommands player;
    TaskbarButton button;
    button.open(player);
    const HWND window = CreateWindowExW(0, L"STATIC", L"x", WS_OVERLAPPEDWINDOW, 0, 0, 99, 99,
                                        nullptr, nullptr, nullptr, nullptr);
    button.onMessage(window, RegisterWindowMessageW(L"TaskbarButtonCreated"), 0);
    button.show(playingSong(20));
    button.close();
    DestroyWindow(window);
  }
  OleUninitialize();
}

}  // namespace
}  // namespace nerolith::windows
