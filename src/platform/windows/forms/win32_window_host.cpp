#include "platform/windows/forms/win32_window_host.h"

#include <commctrl.h>

#include <utility>
#include <vector>

#include "platform/windows/forms/form_timer.h"
#include "platform/windows/forms/quietly.h"

namespace nerolith::windows_forms {

struct Win32WindowHost::Hosted {
  Hosted(const Win32WindowHost& host, controls::Form& form) : host(host), form(form) {
    for (controls::Timer* timer : form.timers())
      timers.push_back(std::make_unique<FormTimer>(*timer));
    shown = form.changed.subscribe([this] {
      if (this->form.visible()) quietly([this] { makeWindow(); });
    });
    loaded = form.loadRequested.subscribe([this] { quietly([this] { makeWindow(); }); });
    if (form.visible()) makeWindow();
  }

  void makeWindow() {
    if (window) return;
    const FormWindow* owner = form.owner() ? host.windowOf(*form.owner()) : nullptr;
    window = std::make_unique<FormWindow>(form, owner ? owner->handle() : nullptr);
    window->setListener(listener);
    window->followForm();
  }

  const Win32WindowHost& host;
  controls::Form& form;
  FormWindow::Listener listener;
  std::unique_ptr<FormWindow> window;
  std::vector<std::unique_ptr<FormTimer>> timers;
  base::Subscription shown, loaded;
};

Win32WindowHost::Win32WindowHost(Win32EventQueue& events) : events_(events) {
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES |
                                                         ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
  events_.setFilter([this](const MSG& message) { return takesMessage(message); });
}

Win32WindowHost::~Win32WindowHost() { events_.setFilter({}); }

void Win32WindowHost::add(controls::Form& form) {
  forms_[&form] = std::make_unique<Hosted>(*this, form);
}

void Win32WindowHost::remove(controls::Form& form) { forms_.erase(&form); }

void Win32WindowHost::listen(const controls::Form& form, FormWindow::Listener listener) {
  Hosted& hosted = *forms_.at(&form);
  hosted.listener = std::move(listener);
  if (hosted.window) hosted.window->setListener(hosted.listener);
}

FormWindow* Win32WindowHost::windowOf(const controls::Form& form) const {
  const auto found = forms_.find(&form);
  return found == forms_.end() ? nullptr : found->second->window.get();
}

HWND Win32WindowHost::windowOf(controls::PictureBox& picture) const {
  for (const auto& [form, hosted] : forms_)
    if (const HWND found = hosted->window ? hosted->window->windowOf(&picture) : nullptr)
      return found;
  return nullptr;
}

HICON Win32WindowHost::iconOf(const controls::Form& form) const {
  const FormWindow* window = windowOf(form);
  if (!window) return nullptr;
  const ULONG_PTR small = GetClassLongPtrW(window->handle(), GCLP_HICONSM);
  return reinterpret_cast<HICON>(small ? small : GetClassLongPtrW(window->handle(), GCLP_HICON));
}

bool Win32WindowHost::takesMessage(const MSG& message) {
  for (const auto& [form, hosted] : forms_)
    if (hosted->window && hosted->window->takesMessage(message)) return true;
  return false;
}

}  // namespace nerolith::windows_forms
