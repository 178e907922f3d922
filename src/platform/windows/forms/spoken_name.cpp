#include "platform/windows/forms/spoken_name.h"

#include <initguid.h>
#include <oleacc.h>

namespace nerolith::windows_forms {
namespace {

MSAAPROPID propertyOf(Spoken kind) {
  return kind == Spoken::Name ? PROPID_ACC_NAME : PROPID_ACC_DESCRIPTION;
}

DWORD changeOf(Spoken kind) {
  return kind == Spoken::Name ? EVENT_OBJECT_NAMECHANGE : EVENT_OBJECT_DESCRIPTIONCHANGE;
}

}  // namespace

std::wstring spokenWords(const std::wstring& name, const std::wstring& shown) {
  if (name.empty() || shown.empty()) return name.empty() ? shown : name;
  return name + L" " + shown;
}

SpokenName::~SpokenName() {
  if (!service_) return;
  const MSAAPROPID which = propertyOf(kind_);
  service_->ClearHwndProps(window_, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &which, 1);
  service_->Release();
}

void SpokenName::askForService() {
  if (asked_) return;
  asked_ = true;
  void* service = nullptr;
  if (SUCCEEDED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                 IID_IAccPropServices, &service)))
    service_ = static_cast<IAccPropServices*>(service);
}

void SpokenName::tell(HWND window, const std::wstring& words) {
  if (!window || (window == window_ && words == words_)) return;
  window_ = window;
  words_ = words;
  askForService();
  if (!service_) return;
  service_->SetHwndPropStr(window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                           propertyOf(kind_), words.c_str());
  NotifyWinEvent(changeOf(kind_), window, OBJID_CLIENT, CHILDID_SELF);
}

}  // namespace nerolith::windows_forms
