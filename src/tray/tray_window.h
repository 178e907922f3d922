// What the host of the tray icon does.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/signal.h"
#include "controls/list_box.h"
#include "forms/form3.h"
#include "platform/notification_icon.h"
#include "tray/tray_functions.h"

namespace nerolith::tray {

/// The main window, as the icon's menu works it.
struct TrayTarget {
  controls::Form& form;
  controls::ListBox& List1;
  std::function<void()> speelvolgendeknop;  // plays the next song
  std::function<void()> closeSettings;      // if that window is open
};

/// Life: load -> the icon comes and goes, its mouse pops up the menu -> unload. Adding an icon
/// loads what is not loaded. User-interface thread; what is handed over outlives it.
class TrayWindow {
 public:
  TrayWindow(forms::Form3& form, platform::NotificationIcon& area, TrayTarget target);
  TrayWindow(const TrayWindow&) = delete;
  TrayWindow& operator=(const TrayWindow&) = delete;

  /// Makes the host without showing it; nothing where that is done.
  void load();
  void unload() { form_.form.close(); }
  bool loaded() const { return loaded_; }

  /// With the main window's icon.
  void addIcon(const std::string& tip);
  void removeIcon();

 private:
  void subscribePanel();
  void subscribeMenu();
  void picTray_MouseMove(float across);
  void maximise();

  template <typename Signal, typename Handler>
  void on(Signal& signal, Handler handler) {
    subscriptions_.push_back(signal.subscribe(std::move(handler)));
  }

  forms::Form3& form_;
  TrayTarget target_;
  Tray_Functions functions_;
  bool loaded_ = false;
  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::tray
