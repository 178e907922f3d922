// The tray icon, bound to the main window.
#pragma once

#include <memory>
#include <string>

#include "app/neighbours.h"
#include "forms/form3.h"
#include "forms/main_form.h"
#include "platform/machine.h"
#include "player/player.h"
#include "settings/settings_window.h"
#include "tray/tray_window.h"

namespace nerolith::app {

/// Hosts Form3, hidden. The icon is added once the program is idle: on the way to
/// the desktop's area there may be processes that have to be started first, and the window comes up
/// meanwhile. It counts as present only while something shows it.
class TrayWork final : public NotificationIcon {
 public:
  /// Player and settings window need not be made yet.
  TrayWork(const platform::Machine& machine, forms::MainForm& mainForm, player::Player& player,
           settings::SettingsWindow& settings);
  ~TrayWork() override;
  TrayWork(const TrayWork&) = delete;
  TrayWork& operator=(const TrayWork&) = delete;

  /// At the program's start: Form3 is there from now on, whether an icon comes or not.
  void load();
  void add(const std::string& tip) override;
  void remove() override;
  bool present() const override { return machine_.icon.shown(); }

  /// The main window has been closed: Form3 goes with it, and no icon is added any more.
  void end();

  forms::Form3& form() { return form_; }

 private:
  void addNow(const std::string& tip);

  platform::Machine machine_;
  forms::Form3 form_;
  tray::TrayWindow window_;
  base::Subscription shownChanged_;
  bool addWaits_ = false;
  bool added_ = false;
  bool ended_ = false;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace nerolith::app
