#include "endtoend/section_window.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "endtoend/picture.h"
#include "endtoend/shipped_program.h"
#include "endtoend/stage.h"
#include "endtoend/wait_until.h"
#include "endtoend/window_places.h"

namespace nerolith::endtoend {
namespace {

constexpr const char* kTitle = "Nerolith recording section";
constexpr const char* kDialog = "Select Filename to record to";

}  // namespace

SectionWindow::SectionWindow(const PrivateDesktop& desktop, const PlayerWindow& player)
    : desktop_(desktop), player_(player) {
  // The last but one of the menu's entries.
  for (const char* name : {"alt+o", "Up", "Up", "Return"}) {
    player.key(name);
    pauseFor(0.2);
  }
  if (!player.waitForTitle(kTitle, 10)) throw std::runtime_error("no recording section comes up");
  pauseFor(0.5);
}

void SectionWindow::tool(std::vector<std::string> words) const {
  words.insert(words.begin(), "xdotool");
  runToEnd(desktop_.command(std::move(words)));
}

bool SectionWindow::active() const {
  const ScratchFolder scratch;
  Command ask = desktop_.command({"xdotool", "getactivewindow", "getwindowname"});
  ask.log = scratch.path() / "answer";
  // It fails while no window is active: the window that was is just going.
  return runToEnd(ask) == 0 && contentsOf(ask.log).find(kTitle) != std::string::npos;
}

std::string SectionWindow::front() const {
  const ScratchFolder scratch;
  Command ask =
      desktop_.command({"xdotool", "getactivewindow", "getwindowname", "getwindowgeometry"});
  ask.log = scratch.path() / "answer";
  runToEnd(ask);
  return contentsOf(ask.log) + "of " + std::to_string(player_.countTitles(".")) + " windows";
}

void SectionWindow::click(int x, int y) const {
  const std::vector<std::string> window = {"search", "--onlyvisible", "--name", kTitle};
  const auto onIt = [&](std::vector<std::string> words) {
    words.insert(words.begin(), window.begin(), window.end());
    tool(std::move(words));
  };
  // A window manager on a busy machine may miss the first time.
  for (int turn = 0; turn < 3 && !active(); ++turn) {
    onIt({"windowactivate"});
    waitUntil(4, [&] { return active(); });
  }
  if (!active())
    throw std::runtime_error("the recording section does not come to the front: " + front());
  onIt({"mousemove", "--window", "%1", std::to_string(x), std::to_string(y), "click", "1"});
}

void SectionWindow::chooseFile(const std::filesystem::path& file) const {
  click(places::kSectionX, places::kChooseY);
  if (!player_.waitForTitle(kDialog, 10)) throw std::runtime_error("no dialog for the file");
  pauseFor(0.5);
  tool({"key", "--clearmodifiers", "ctrl+a"});
  tool({"type", "--delay", "20", toldAs(file)});
  pauseFor(0.3);
  player_.key("Return");
  for (int i = 0; player_.showsTitle(kDialog); ++i) {
    if (i == 100) throw std::runtime_error("the dialog for the file does not go");
    pauseFor(0.1);
  }
  // The window manager has to hand the focus back first, as slow as the machine may be.
  pauseFor(1);
}

void SectionWindow::limitTo(const std::string& megabytes) const {
  click(places::kMegabytesX, places::kMegabytesY);
  tool({"key", "--clearmodifiers", "ctrl+a"});
  tool({"type", "--delay", "50", megabytes});
}

void SectionWindow::start() const { click(places::kSectionX, places::kRecordY); }
void SectionWindow::fadeOutAndStop() const { click(places::kSectionX, places::kFadeStopY); }
void SectionWindow::exit() const { click(places::kExitX, places::kExitY); }
void SectionWindow::howTo() const { click(places::kSectionX, places::kHowToY); }
void SectionWindow::aboutVolumes() const { click(places::kSectionX, places::kVolumesY); }
void SectionWindow::calibrate() const { click(places::kCalibrateX, places::kCalibrateY); }

double SectionWindow::contrastOf(Place part) const {
  const ScratchFolder scratch;
  const std::string told =
      outputOf(desktop_.command({"xwininfo", "-name", kTitle}), scratch.path());
  const auto number = [&](const std::string& name) {
    const auto found = told.find(name + ":");
    return found == told.npos ? 0 : std::atoi(told.c_str() + found + name.size() + 1);
  };
  part.x += number("Absolute upper-left X");
  part.y += number("Absolute upper-left Y");
  return contrastRatio(grab(desktop_, part));
}

double SectionWindow::noticeContrast() const {
  return contrastOf({places::kSectionNoticeX, places::kSectionNoticeY, places::kSectionNoticeWidth,
                     places::kSectionNoticeHeight});
}

bool SectionWindow::showsLevel() const {
  constexpr double kLit = 3;  // against the gaps between the lamps
  return contrastOf({places::kMeterX, places::kMeterY, places::kMeterWidth, places::kMeterHeight}) >
         kLit;
}

bool SectionWindow::shown() const { return player_.showsTitle(kTitle); }

bool waitForFinishedFile(const std::filesystem::path& file, double longest) {
  // The last of the two sizes is written last.
  constexpr int kDataSize = 40;
  return waitUntil(longest, [&] {
    std::ifstream in(file, std::ios::binary);
    char size[4] = {};
    in.seekg(kDataSize);
    return in.read(size, sizeof size) && std::string(size, sizeof size) != std::string(4, '\0');
  });
}

}  // namespace nerolith::endtoend
