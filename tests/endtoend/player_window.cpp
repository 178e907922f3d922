#include "endtoend/player_window.h"

#include <sstream>
#include <string_view>

#include "endtoend/shipped_program.h"
#include "endtoend/wait_until.h"

namespace nerolith::endtoend {
namespace {

constexpr const char* kMainTitle = "^Nerolith$";

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);)
    if (!line.empty()) lines.push_back(line);
  return lines;
}

/// A text as the expression that matches just it.
std::string literally(const std::string& text) {
  std::string pattern;
  for (const char sign : text) {
    if (std::string_view(".*+?^$()[]{}|\\").find(sign) != std::string_view::npos) pattern += '\\';
    pattern += sign;
  }
  return pattern;
}

}  // namespace

PlayerWindow::PlayerWindow(const PrivateDesktop& desktop, std::vector<std::string> arguments,
                           const std::filesystem::path& folder)
    : desktop_(desktop), log_(desktop.scratch() / "player.log") {
  std::filesystem::remove(log_);
  Command command = startOf(desktop, std::move(arguments));
  command.words.insert(command.words.begin(), desktop.launcher.begin(), desktop.launcher.end());
  command.log = log_;
  if (!folder.empty()) command.folder = folder;
  program_ = std::make_unique<ChildProcess>(command);
}

PlayerWindow::~PlayerWindow() {
  program_.reset();
  endLeftovers(desktop_);
}

std::string PlayerWindow::printed(std::vector<std::string> words) const {
  const ScratchFolder scratch;
  Command command = desktop_.command(std::move(words));
  command.log = scratch.path() / "output";
  runToEnd(command);
  return contentsOf(command.log);
}

std::string PlayerWindow::tool(std::vector<std::string> words) const {
  words.insert(words.begin(), "xdotool");
  return printed(std::move(words));
}

std::vector<std::string> PlayerWindow::windowsTitled(const std::string& pattern) const {
  std::vector<std::string> windows = linesOf(tool({"search", "--onlyvisible", "--name", pattern}));
  // Beside their numbers it prints what it complains about.
  std::erase_if(windows, [](const std::string& line) {
    return line.find_first_not_of("0123456789") != std::string::npos;
  });
  return windows;
}

bool PlayerWindow::waitForWindow(double longest) {
  const bool found = waitUntil(longest, [&] {
    const auto windows = windowsTitled(kMainTitle);
    if (!windows.empty()) window_ = windows.front();
    return !windows.empty() || !running();
  });
  if (!found || window_.empty()) return false;
  // Or a message is in front of it already.
  const auto focused = [&] {
    return tool({"getwindowfocus"}) == window_ + "\n" || countTitles(".") > 1;
  };
  if (waitUntil(3, focused)) return true;
  // A window manager on a busy machine may have missed it: a person would click on the window.
  tool({"windowactivate", window_});
  return waitUntil(longest, focused);
}

bool PlayerWindow::waitForTitle(const std::string& text, double longest) const {
  return waitUntil(longest, [&] { return showsTitle(text); });
}

bool PlayerWindow::showsTitle(const std::string& text) const {
  return countTitles(literally(text)) > 0;
}

int PlayerWindow::countTitles(const std::string& pattern) const {
  return static_cast<int>(windowsTitled(pattern).size());
}

bool PlayerWindow::waitForMessage(double longest) const {
  return waitUntil(longest, [&] { return countTitles(kMainTitle) == 2; });
}

bool PlayerWindow::waitForMessageGone(double longest) const {
  return waitUntil(longest, [&] { return countTitles(kMainTitle) == 1; });
}

bool PlayerWindow::showsMainWindow() const { return countTitles(kMainTitle) > 0; }

int PlayerWindow::windowsOnScreen() const {
  return static_cast<int>(linesOf(tool({"search", "--onlyvisible", "--class", "."})).size());
}

bool PlayerWindow::openFromMenu(const std::vector<std::string>& keys,
                                const std::string& title) const {
  const int before = windowsOnScreen();
  key("alt+o");
  if (!waitUntil(10, [&] { return windowsOnScreen() > before; })) return false;
  for (const std::string& name : keys) key(name);
  return waitForFocus(title, 10);
}

bool PlayerWindow::waitForFocus(const std::string& text, double longest) const {
  return waitUntil(longest, [&] {
    return tool({"getwindowfocus", "getwindowname"}).find(text) != std::string::npos;
  });
}

bool PlayerWindow::chooseFile(const std::string& title, const std::string& path) const {
  if (!waitForTitle(title, 10)) return false;
  // It gets the keyboard a while after it is seen.
  if (!waitForFocus(title, 10)) return false;
  // Each round begins anew: a dialog that still reads its folder may swallow what is typed.
  for (int round = 0; round < 5 && showsTitle(title); ++round) {
    tool({"key", "--clearmodifiers", "ctrl+a"});
    tool({"type", "--delay", "12", path});
    tool({"key", "--clearmodifiers", "Return"});
    waitUntil(2, [&] { return !showsTitle(title); });
  }
  return !showsTitle(title);
}

void PlayerWindow::key(const std::string& name) const { tool({"key", "--clearmodifiers", name}); }

void PlayerWindow::click(int x, int y, int button) const {
  tool({"mousemove", "--window", window_, std::to_string(x), std::to_string(y), "click",
        std::to_string(button)});
}

void PlayerWindow::doubleClick(int x, int y) const {
  tool({"mousemove", "--window", window_, std::to_string(x), std::to_string(y), "click", "--repeat",
        "2", "--delay", "60", "1"});
}

void PlayerWindow::turnWheel(int x, int y, bool down) const {
  tool({"mousemove", "--window", window_, std::to_string(x), std::to_string(y), "click", "--repeat",
        "10", "--delay", "100", down ? "5" : "4"});
}

void PlayerWindow::dragFromTo(int fromX, int fromY, int toX, int toY) const {
  const auto text = [](int number) { return std::to_string(number); };
  tool({"mousemove",
        "--window",
        window_,
        text(fromX),
        text(fromY),
        "mousedown",
        "1",
        "sleep",
        "0.05",
        "mousemove",
        "--window",
        window_,
        text((fromX + toX) / 2),
        text((fromY + toY) / 2),
        "sleep",
        "0.05",
        "mousemove",
        "--window",
        window_,
        text(toX),
        text(toY),
        "sleep",
        "0.05",
        "mouseup",
        "1"});
}

void PlayerWindow::moveMouse(int x, int y) const {
  tool({"mousemove", "--window", window_, std::to_string(x), std::to_string(y)});
}

Place PlayerWindow::place() const {
  // Not xdotool's own answer: that counts the window's frame twice.
  const std::string told = printed({"xwininfo", "-id", window_});
  const auto number = [&](const std::string& name) {
    const auto found = told.find(name + ":");
    return found == told.npos ? 0 : std::atoi(told.c_str() + found + name.size() + 1);
  };
  return {number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"),
          number("Height")};
}

void PlayerWindow::close() const {
  tool({"windowfocus", "--sync", window_, "key", "--clearmodifiers", "alt+F4"});
}

std::optional<int> PlayerWindow::waitForEnd(double longest) {
  return program_->wait(std::chrono::milliseconds(static_cast<int>(longest * 1000)));
}

}  // namespace nerolith::endtoend
