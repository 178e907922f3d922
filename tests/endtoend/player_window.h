// The real program, driven from outside as a person would.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "endtoend/child_process.h"
#include "endtoend/private_desktop.h"

namespace nerolith::endtoend {

/// Where a window lies on the screen, in pixels.
struct Place {
  int x = 0, y = 0, width = 0, height = 0;
};

class PlayerWindow {
 public:
  /// Starts the program; `arguments` is its command line. Does not wait for its window.
  explicit PlayerWindow(const PrivateDesktop& desktop, std::vector<std::string> arguments = {},
                        const std::filesystem::path& folder = {});
  ~PlayerWindow();
  PlayerWindow(const PlayerWindow&) = delete;
  PlayerWindow& operator=(const PlayerWindow&) = delete;

  /// Waits until the main window is on the screen and has the focus; false when it never is.
  bool waitForWindow(double longest = 20);
  /// Whether a window with this text in its title is on the screen within the time.
  bool waitForTitle(const std::string& text, double longest) const;
  bool showsTitle(const std::string& text) const;
  /// Windows on the screen whose title matches this extended regular expression.
  int countTitles(const std::string& pattern) const;
  /// A message in front of the main window: both are called by the player's name.
  bool waitForMessage(double longest) const;
  bool waitForMessageGone(double longest) const;
  bool showsMainWindow() const;
  /// All that is on the screen, menus too.
  int windowsOnScreen() const;
  /// Waits until a window with this text in its title has the keyboard.
  bool waitForFocus(const std::string& text, double longest) const;

  /// Types a path into the file dialog of that title and chooses it; false when the dialog does not
  /// come or does not go.
  bool chooseFile(const std::string& title, const std::string& path) const;

  /// Opens the menu and goes through it by these keys; false when no window of that title comes and
  /// has the keyboard.
  bool openFromMenu(const std::vector<std::string>& keys, const std::string& title) const;

  /// One key, as xdotool names it: "alt+n", "Down", "space".
  void key(const std::string& name) const;
  /// A click into the main window, relative to its upper left corner.
  void click(int x, int y, int button = 1) const;
  void doubleClick(int x, int y) const;
  /// Turns the mouse wheel there for about a second.
  void turnWheel(int x, int y, bool down) const;
  void dragFromTo(int fromX, int fromY, int toX, int toY) const;
  void moveMouse(int x, int y) const;
  Place place() const;
  /// Closes the main window as the window manager does for Alt+F4.
  void close() const;

  bool running() { return program_->running(); }
  std::optional<int> waitForEnd(double longest);
  ChildProcess& program() { return *program_; }
  /// What the program wrote to its outputs so far.
  std::string output() const { return contentsOf(log_); }

 private:
  std::string printed(std::vector<std::string> words) const;
  std::string tool(std::vector<std::string> words) const;
  std::vector<std::string> windowsTitled(const std::string& pattern) const;

  const PrivateDesktop& desktop_;
  std::filesystem::path log_;
  std::unique_ptr<ChildProcess> program_;
  std::string window_;
};

}  // namespace nerolith::endtoend
