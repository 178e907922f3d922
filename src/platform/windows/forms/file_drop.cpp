#include "platform/windows/forms/file_drop.h"

#include <shellapi.h>

#include <utility>

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {

std::vector<std::string> draggedFiles(IDataObject& data) {
  FORMATETC wanted{CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium{};
  std::vector<std::string> files;
  if (FAILED(data.GetData(&wanted, &medium))) return files;
  const auto drop = static_cast<HDROP>(medium.hGlobal);
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring path(DragQueryFileW(drop, i, nullptr, 0), L'\0');
    DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size()) + 1);
    files.push_back(utf8Of(path));
  }
  ReleaseStgMedium(&medium);
  return files;
}

/// Lives as long as the system or the owner holds it; asks nobody once the owner is gone.
class FileDrop::Target : public IDropTarget {
 public:
  explicit Target(FileDrop& owner) : owner_(&owner) {}
  void leaveOwner() { owner_ = nullptr; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override {
    const bool known = wanted == IID_IUnknown || wanted == IID_IDropTarget;
    *found = known ? static_cast<IDropTarget*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE DragEnter(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
    taken_ = false;
    files_.clear();
    quietly([&] {
      if (data) files_ = draggedFiles(*data);
      taken_ = owner_ && owner_->form_.wouldTake(files_);
    });
    return DragOver(0, {}, effect);
  }
  HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override {
    const DWORD offered = *effect;
    *effect = DROPEFFECT_NONE;
    if (taken_ && (offered & DROPEFFECT_LINK)) *effect = DROPEFFECT_LINK;
    if (taken_ && (offered & DROPEFFECT_COPY)) *effect = DROPEFFECT_COPY;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE DragLeave() override {
    taken_ = false;
    files_.clear();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Drop(IDataObject*, DWORD, POINTL, DWORD* effect) override {
    DragOver(0, {}, effect);
    if (*effect != DROPEFFECT_NONE && owner_) {
      owner_->dropped_ = std::move(files_);
      PostMessageW(owner_->window_, owner_->message_, 0, 0);
    }
    return DragLeave();
  }

 private:
  virtual ~Target() = default;

  FileDrop* owner_;
  std::vector<std::string> files_;
  ULONG references_ = 1;
  bool taken_ = false;
};

FileDrop::FileDrop(HWND window, UINT message, controls::Form& form)
    : window_(window), message_(message), form_(form), target_(new Target(*this)) {
  RegisterDragDrop(window_, target_);
}

FileDrop::~FileDrop() {
  RevokeDragDrop(window_);
  target_->leaveOwner();
  target_->Release();
}

void FileDrop::handOver() {
  const std::vector<std::string> files = std::exchange(dropped_, {});
  if (files.empty()) return;
  form_.bringForward();
  form_.filesDropped.raise(files);
}

}  // namespace nerolith::windows_forms
