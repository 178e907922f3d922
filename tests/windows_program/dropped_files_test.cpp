// Files that another program, this one, drags onto the player's window as a file manager does: with
// the shell's own data, by the system's drag and drop.
#include <windows.h>

#include <gtest/gtest.h>
#include <shlobj.h>

#include <atomic>
#include <thread>

#include "windows_program/running_player.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows_program {
namespace {

/// A hand that holds the mouse button until the window below takes the files, or ten seconds long.
class Hand : public IDropSource {
 public:
  virtual ~Hand() = default;
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IDropSource;
    *found = known ? static_cast<IDropSource*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL, DWORD) override {
    if (letGo) return taken ? DRAGDROP_S_DROP : DRAGDROP_S_CANCEL;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD effect) override {
    taken = effect != DROPEFFECT_NONE;
    return DRAGDROP_S_USEDEFAULTCURSORS;
  }

  std::atomic<bool> taken = false, letGo = false;
};

struct DroppedFiles : testing::Test {
  DroppedFiles() {
    OleInitialize(nullptr);
    folder.addFile("a.wav", windows::toneFile(3));
    folder.addFile("b.wav", windows::toneFile(3));
    folder.addFile("best.m3u", folder.path("b.wav") + "\r\n");
  }
  ~DroppedFiles() override { OleUninitialize(); }

  std::wstring here() const { return windows::wideText(folder.path()) + L"\\"; }

  /// What the shell hands out for a file.
  windows::ComPointer<IDataObject> shellData(const std::string& name) const {
    windows::ComPointer<IDataObject> data;
    PIDLIST_ABSOLUTE place = nullptr;
    if (FAILED(SHParseDisplayName(windows::wideText(folder.path(name)).c_str(), nullptr, &place, 0,
                                  nullptr)))
      return data;
    windows::ComPointer<IShellFolder> parent;
    PCUITEMID_CHILD child = nullptr;
    if (SUCCEEDED(SHBindToParent(place, IID_IShellFolder, parent.outVoid(), &child)))
      parent->GetUIObjectOf(nullptr, 1, &child, IID_IDataObject, nullptr, data.outVoid());
    CoTaskMemFree(place);
    return data;
  }
  /// Drags it onto the middle of the list; what became of it there.
  DWORD drag(const RunningPlayer& player, const std::string& name) {
    const auto data = shellData(name);
    if (!data) return 99;
    SetForegroundWindow(player.window());
    RECT list;
    GetWindowRect(player.list(), &list);
    Hand hand;
    const DWORD here = GetCurrentThreadId();
    std::thread mouse([&hand, list, here] {
      SetCursorPos(static_cast<int>(list.left + list.right) / 2,
                   static_cast<int>(list.top + list.bottom) / 2);
      within(10000, [&hand] { return hand.taken.load(); });
      hand.letGo = true;
      // A key that goes up: the drag asks whether it is over.
      PostThreadMessageW(here, WM_KEYUP, VK_CONTROL, 1);
    });
    DWORD effect = DROPEFFECT_NONE;
    DoDragDrop(data.get(), &hand, DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK, &effect);
    mouse.join();
    return effect;
  }

  const FreshSettings settings;
  const windows::ScratchFolder folder;
};

TEST_F(DroppedFiles, APlaylistIsImportedAndAFolderIsOpened) {
  RunningPlayer player(here() + L",1");
  ASSERT_TRUE(within(10000, [&] { return player.songs() == 2; }));
  EXPECT_EQ(drag(player, "best.m3u"), DWORD{DROPEFFECT_COPY});
  EXPECT_TRUE(within(10000, [&] { return player.songs() == 1; })) << player.songs();
  EXPECT_EQ(drag(player, ""), DWORD{DROPEFFECT_COPY});
  EXPECT_TRUE(within(10000, [&] { return player.songs() == 2; })) << player.songs();
  EXPECT_EQ(player.close(), 0u);
  EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.wav", "b.wav", "best.m3u"}));
}

}  // namespace
}  // namespace nerolith::windows_program
