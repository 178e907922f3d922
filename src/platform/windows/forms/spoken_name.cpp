#include "platform/windows/forms/spoken_name.h"

#include <initguid.h>
#include <oleacc.h>

namespace nerolith::windows_forms {
namespace {

// Made once and kept: the system takes the names back with the windows in any case.
IAccPropServices* service() {
  static IAccPropServices* const made = [] {
    void* service = nullptr;
    const HRESULT result = CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                            IID_IAccPropServices, &service);
    return SUCCEEDED(result) ? static_cast<IAccPropServices*>(service) : nullptr;
  }();
  return made;
}

}  // namespace

std::wstring spokenWords(const std::wstring& name, const std::wstring& shown) {
  if (name.empty() || shown.empty()) return name.empty() ? shown : name;
  return name + L" " + shown;
}

SpokenName::~SpokenName() {
  if (!window_ || !service()) return;
  MSAAPROPID which = PROPID_ACC_NAME;
  service()->ClearHwndProps(window_, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &which, 1);
}

void SpokenName::tell(HWND window, const std::wstring& words) {
  if (!window || (window == window_ && words == words_)) return;
  window_ = window;
  words_ = words;
  if (!service()) return;
  service()->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                            words.c_str());
  NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window, OBJID_CLIENT, CHILDID_SELF);
}

}  // namespace nerolith::windows_forms
