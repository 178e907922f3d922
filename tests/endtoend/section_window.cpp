#include "endtoend/section_window.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "endtoend/picture.h"
#include "endtoend/shipped_program.h"
#include "endtoend/stage.h"
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

void SectionWindow::click(int x, int y) const {
  tool({"search", "--onlyvisible", "--name", kTitle, "windowactivate", "--sync", "mousemove",
        "--window", "%1", std::to_string(x), std::to_string(y), "click", "1"});
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
  const auto until = std::chrono::steady_clock::now() + std::chrono::duration<double>(longest);
  do {
    std::ifstream in(file, std::ios::binary);
    char size[4] = {};
    in.seekg(4);
    if (in.read(size, sizeof size) && std::string(size, sizeof size) != std::string(4, '\0'))
      return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  } while (std::chrono::steady_clock::now() < until);
  return false;
}

}  // namespace nerolith::endtoend
