// The system's service for spoken names, played by the test: Wine 8 has none.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <utility>

namespace nerolith::windows_forms {

/// While it lives, whoever asks COM for the service gets this one, which writes down what it was
/// told. To be made before the windows whose names it shall hear.
class SpokenService final : public IAccPropServices, public IClassFactory {
 public:
  SpokenService() {
    OleInitialize(nullptr);
    EXPECT_EQ(CoRegisterClassObject(CLSID_AccPropServices, static_cast<IClassFactory*>(this),
                                    CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &registered_),
              S_OK);
  }
  virtual ~SpokenService() {
    CoRevokeClassObject(registered_);
    OleUninitialize();
  }
  SpokenService(const SpokenService&) = delete;
  SpokenService& operator=(const SpokenService&) = delete;

  /// Empty when nothing is told, or no more.
  std::wstring name(HWND window) const { return told(window, PROPID_ACC_NAME); }
  std::wstring description(HWND window) const { return told(window, PROPID_ACC_DESCRIPTION); }
  bool tellsAnything() const { return !told_.empty(); }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
    *found = nullptr;
    if (wanted == IID_IAccPropServices) *found = static_cast<IAccPropServices*>(this);
    if (wanted == IID_IClassFactory || wanted == IID_IUnknown)
      *found = static_cast<IClassFactory*>(this);
    return *found ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID wanted, void** made) override {
    return QueryInterface(wanted, made);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  HRESULT WINAPI SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID which,
                                LPCWSTR words) override {
    EXPECT_EQ(object, static_cast<DWORD>(OBJID_CLIENT));
    EXPECT_EQ(child, static_cast<DWORD>(CHILDID_SELF));
    EXPECT_TRUE(IsWindow(window));
    told_[{window, which.Data1}] = words;
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND window, DWORD, DWORD, const MSAAPROPID* which,
                                int count) override {
    for (int i = 0; i < count; ++i) told_.erase({window, which[i].Data1});
    return S_OK;
  }

  HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return no(); }
  HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
    return no();
  }
  HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return no(); }
  HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return no(); }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
    return no();
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return no();
  }
  HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return no();
  }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return no(); }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return no(); }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
    return no();
  }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return no(); }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return no(); }
  HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return no();
  }

 private:
  static HRESULT no() {
    ADD_FAILURE() << "told in a way that no test knows";
    return E_NOTIMPL;
  }
  std::wstring told(HWND window, const MSAAPROPID& which) const {
    const auto found = told_.find({window, which.Data1});
    return found == told_.end() ? std::wstring() : found->second;
  }

  DWORD registered_ = 0;
  std::map<std::pair<HWND, unsigned long>, std::wstring> told_;
};

}  // namespace nerolith::windows_forms
