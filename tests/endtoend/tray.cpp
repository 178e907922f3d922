#include "endtoend/tray.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "endtoend/picture.h"
#include "endtoend/stage.h"

namespace nerolith::endtoend {
namespace {

constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr int kIconMiddle = 16;  // of an icon 32 pixels high, the first in its tray
constexpr int kFewPixels = 5;

std::string printedBy(const PrivateDesktop& desktop, std::vector<std::string> words) {
  const ScratchFolder scratch;
  Command command = desktop.command(std::move(words));
  command.log = scratch.path() / "output";
  runToEnd(command);
  return contentsOf(command.log);
}

std::string watcherTells(const PrivateDesktop& desktop, const std::string& property) {
  return printedBy(desktop, {"gdbus", "call", "--session", "--timeout", "2", "--dest", kWatcher,
                             "--object-path", "/StatusNotifierWatcher", "--method",
                             "org.freedesktop.DBus.Properties.Get", kWatcher, property});
}

/// The green of the song that rises, which nothing else in a tray has.
bool showsIcon(const Picture& picture) {
  int green = 0;
  for (std::size_t i = 0; i + 2 < picture.rgb.size(); i += 3)
    if (picture.rgb[i] < 120 && picture.rgb[i + 1] > 150 && picture.rgb[i + 2] < 170) ++green;
  return green >= kFewPixels;
}

}  // namespace

Tray::Tray(const PrivateDesktop& desktop, Kind kind) : desktop_(desktop), kind_(kind) {
  Command start = desktop.command(
      kind == Kind::Items
          ? std::vector<std::string>{"gtk-sni-tray-standalone", "--watcher", "--top", "--beginning",
                                     "--size", "32", "--length", "1 % 4"}
          : std::vector<std::string>{"trayer", "--edge", "top", "--align", "left", "--heighttype",
                                     "pixel", "--height", "32", "--widthtype", "request"});
  start.log = desktop.scratch() / "tray.log";
  program_ = std::make_unique<ChildProcess>(start);
  for (int i = 0; !comesUp(); ++i) {
    if (i == 200) throw std::runtime_error("no tray comes up: " + contentsOf(start.log));
    pauseFor(0.1);
    // The host is sometimes quicker than the watcher of its own process, and gives up.
    if (!program_->running()) program_ = std::make_unique<ChildProcess>(start);
  }
}

bool Tray::comesUp() const {
  if (kind_ == Kind::Items)
    return watcherTells(desktop_, "IsStatusNotifierHostRegistered").find("true") !=
           std::string::npos;
  return !printed({"xdotool", "search", "--class", "trayer"}).empty();
}

std::string Tray::printed(std::vector<std::string> words) const {
  return printedBy(desktop_, std::move(words));
}

std::string Tray::window() const {
  const std::string found = printed({"xdotool", "search", "--onlyvisible", "--class",
                                     kind_ == Kind::Items ? "gtk-sni-tray-standalone" : "trayer"});
  std::string last;
  std::istringstream lines(found);
  for (std::string line; std::getline(lines, line);)
    if (!line.empty() && last.empty()) last = line;
  return last;
}

Place Tray::place() const {
  const std::string told = printed({"xwininfo", "-id", window()});
  const auto number = [&](const std::string& name) {
    const auto found = told.find(name + ":");
    return found == told.npos ? 0 : std::atoi(told.c_str() + found + name.size() + 1);
  };
  return {number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"),
          number("Height")};
}

bool Tray::waitForIcon(double longest) const {
  for (double waited = 0; waited < longest; waited += 0.1) {
    const Place here = window().empty() ? Place{} : place();
    if (here.width > 0 && here.height > 0 && showsIcon(grab(desktop_, here))) return true;
    pauseFor(0.1);
  }
  return false;
}

void Tray::click(int button) const {
  const Place here = place();
  runToEnd(
      desktop_.command({"xdotool", "mousemove", std::to_string(here.x + kIconMiddle),
                        std::to_string(here.y + kIconMiddle), "click", std::to_string(button)}));
}

std::string registeredItems(const PrivateDesktop& desktop) {
  return watcherTells(desktop, "RegisteredStatusNotifierItems");
}

}  // namespace nerolith::endtoend
