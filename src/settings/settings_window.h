// What the settings window does.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/signal.h"
#include "controls/menu.h"
#include "forms/settings_form.h"
#include "settings/live_settings.h"
#include "settings/stored_settings.h"

namespace nerolith::settings {

/// Opened from the main window's menu, it shows the live settings each time it comes to the front
/// and changes them as the user types: the player follows at once. "Save Settings" stores them all
/// and closes; Esc and the window's own close button close and store nothing. Only the switch for
/// deletion marks is stored at once, and read from the store.
///
/// A text counts as its leading number, 0 where it has none, whole numbers held to 16 bits. Mix
/// length and lead are taken over, in line with each other (mix_limits.h), when their box loses the
/// keyboard or Enter is typed in it; a text that was still being typed at the close is dropped.
///
/// User-interface thread; what is handed over outlives it.
class SettingsWindow {
 public:
  /// `folder` gives the folder that is stored as the last one shown.
  SettingsWindow(forms::SettingsForm& form, controls::MenuItem& form2aan, LiveSettings& live,
                 StoredSettings& stored, std::function<std::string()> folder);
  SettingsWindow(const SettingsWindow&) = delete;
  SettingsWindow& operator=(const SettingsWindow&) = delete;

  /// Shows the window; where it is open already, brings it to the front.
  void open();
  /// Closes it without storing anything; nothing while it is closed.
  void closeIfOpen();
  bool isOpen() const { return form_.form.visible(); }

 private:
  void subscribeWindow();
  void subscribeMix();
  void subscribeLiveValues();

  void fill();
  void showLiveValues();
  void leaveLength();
  void leaveLead();
  void markingClicked();
  void save();

  template <typename Signal, typename Handler>
  void on(Signal& signal, Handler handler) {
    subscriptions_.push_back(signal.subscribe(std::move(handler)));
  }

  forms::SettingsForm& form_;
  LiveSettings& live_;
  StoredSettings& stored_;
  std::function<std::string()> folder_;
  /// The controls are being set by the program: nothing that they raise is the user's doing.
  bool filling_ = false;
  std::vector<base::Subscription> subscriptions_;
};

}  // namespace nerolith::settings
