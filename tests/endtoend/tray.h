// A tray on the private desktop, and what a user does there.
#pragma once

#include <memory>
#include <string>

#include "endtoend/child_process.h"
#include "endtoend/player_window.h"
#include "endtoend/private_desktop.h"

namespace nerolith::endtoend {

/// A real tray program, ended with the object.
class Tray {
 public:
  /// Items: a watcher and host of status notifier items, on the desktop's message bus. Embedding: a
  /// tray of the System Tray Protocol.
  enum class Kind { Items, Embedding };

  /// Throws std::runtime_error when it does not come up.
  Tray(const PrivateDesktop& desktop, Kind kind);

  /// Waits until the player's icon is to be seen in it.
  bool waitForIcon(double longest) const;
  /// A click on the icon.
  void click(int button) const;
  /// Gone, as after a crash.
  void kill() { program_->kill(); }

 private:
  bool comesUp() const;
  std::string window() const;
  std::string printed(std::vector<std::string> words) const;
  Place place() const;

  const PrivateDesktop& desktop_;
  Kind kind_;
  std::unique_ptr<ChildProcess> program_;
};

/// Registered status notifier items, as the watcher on the desktop's bus tells them.
std::string registeredItems(const PrivateDesktop& desktop);

}  // namespace nerolith::endtoend
