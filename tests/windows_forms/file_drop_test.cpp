#include "platform/windows/forms/file_drop.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <ole2.h>
#include <shlobj.h>

#include "base/failure.h"
#include "windows_forms/shown_form.h"

namespace nerolith::windows_forms {
namespace {

/// What the desktop offers while these files are dragged; ends with its scope.
class DraggedFiles : public IDataObject {
 public:
  explicit DraggedFiles(std::vector<std::wstring> paths) : paths_(std::move(paths)) {}
  virtual ~DraggedFiles() = default;

  HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* medium) override {
    if (format->cfFormat != CF_HDROP) return DV_E_FORMATETC;
    std::wstring names;
    for (const std::wstring& path : paths_) (names += path) += L'\0';
    names += L'\0';
    const std::size_t bytes = names.size() * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
    auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    CopyMemory(drop + 1, names.data(), bytes);
    GlobalUnlock(memory);
    *medium = {};
    medium->tymed = TYMED_HGLOBAL;
    medium->hGlobal = memory;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** found) override {
    *found = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

 private:
  std::vector<std::wstring> paths_;
};

struct OleThread {
  OleThread() { OleInitialize(nullptr); }
  ~OleThread() { OleUninitialize(); }
};

struct FileDropTest : testing::Test {
  FileDropTest() {
    shown.form.form.takesFiles = [](const std::vector<std::string>& paths) {
      return paths.size() == 1 && paths[0].ends_with(".m3u");
    };
    drops = shown.form.form.filesDropped.subscribe(
        [this](const std::vector<std::string>& paths) { dropped.push_back(paths); });
  }
  /// The target that the system found for the window, as its own drags do.
  IDropTarget& target() const {
    return *static_cast<IDropTarget*>(GetPropW(shown.window(), L"OleDropTargetInterface"));
  }
  DWORD drag(DraggedFiles& files, DWORD offered = DROPEFFECT_COPY | DROPEFFECT_MOVE) const {
    DWORD effect = offered;
    target().DragEnter(&files, MK_LBUTTON, {50, 50}, &effect);
    DWORD over = offered;
    target().DragOver(MK_LBUTTON, {51, 50}, &over);
    EXPECT_EQ(over, effect);
    return effect;
  }
  DWORD drop(DraggedFiles& files, DWORD offered = DROPEFFECT_COPY | DROPEFFECT_MOVE) const {
    DWORD effect = offered;
    target().Drop(&files, 0, {51, 50}, &effect);
    return effect;
  }

  OleThread ole;
  ShownForm shown;
  std::vector<std::vector<std::string>> dropped;
  base::Subscription drops;
};

TEST_F(FileDropTest, WhatTheFormTakesIsHandedOverOnceTheDragIsOver) {
  DraggedFiles files({L"C:\\Music\\\u00e9vening \u97f3.m3u"});
  EXPECT_EQ(drag(files), DWORD{DROPEFFECT_COPY});
  EXPECT_EQ(drop(files), DWORD{DROPEFFECT_COPY});
  EXPECT_TRUE(dropped.empty());
  shown.settle();
  EXPECT_EQ(
      dropped,
      (std::vector<std::vector<std::string>>{{"C:\\Music\\\xC3\xA9vening \xE9\x9F\xB3.m3u"}}));
}

TEST_F(FileDropTest, WhatTheFormRefusesIsRefusedAtTheMouse) {
  DraggedFiles picture({L"C:\\Music\\cover.png"});
  EXPECT_EQ(drag(picture), DWORD{DROPEFFECT_NONE});
  EXPECT_EQ(drop(picture), DWORD{DROPEFFECT_NONE});
  DraggedFiles two({L"C:\\a.m3u", L"C:\\b.m3u"});
  EXPECT_EQ(drag(two), DWORD{DROPEFFECT_NONE});
  shown.settle();
  EXPECT_TRUE(dropped.empty());
}

TEST_F(FileDropTest, AFileIsNeverTakenAsMoved) {
  DraggedFiles files({L"C:\\a.m3u"});
  EXPECT_EQ(drag(files, DROPEFFECT_MOVE), DWORD{DROPEFFECT_NONE});
  EXPECT_EQ(drag(files, DROPEFFECT_MOVE | DROPEFFECT_LINK), DWORD{DROPEFFECT_LINK});
}

TEST_F(FileDropTest, WhatLeftTheWindowIsNotDroppedOnIt) {
  DraggedFiles files({L"C:\\a.m3u"});
  EXPECT_EQ(drag(files), DWORD{DROPEFFECT_COPY});
  target().DragLeave();
  EXPECT_EQ(drop(files), DWORD{DROPEFFECT_NONE});
  shown.settle();
  EXPECT_TRUE(dropped.empty());
}

TEST_F(FileDropTest, AFailureWhileAskingIsARefusal) {
  shown.form.form.takesFiles = [](const std::vector<std::string>&) -> bool {
    throw base::Failure("the disk does not answer");
  };
  DraggedFiles files({L"C:\\a.m3u"});
  EXPECT_EQ(drag(files), DWORD{DROPEFFECT_NONE});
}

}  // namespace
}  // namespace nerolith::windows_forms
