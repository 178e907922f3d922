#include "endtoend/stage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <exception>
#include <iomanip>
#include <iostream>
#include <numeric>
#include <sstream>
#include <stdexcept>
#include <thread>

namespace nerolith::endtoend {
namespace {

/// What the screen shows when something is wrong, for whoever has to find out.
void keepPicture(const PrivateDesktop& desktop) {
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  const std::string name = std::string(test->test_suite_name()) + '.' + test->name() + ".png";
  try {
    desktop.screenshot(std::filesystem::path(NEROLITH_SCREENSHOT_DIR) / "trouble" / name);
  } catch (const std::runtime_error& error) {
    std::cout << error.what() << '\n';
  }
}

}  // namespace

Stage::~Stage() {
  if (std::uncaught_exceptions() > 0) keepPicture(desktop);
}

const std::vector<Song>& Stage::prepare(const std::vector<std::string>& names, double seconds) {
  songs = makeSongs(desktop.music(), names, seconds);
  return songs;
}

Song Stage::prepareClimb(const std::string& name, double seconds) {
  return encode(climbingTone(seconds), 500, desktop.music() / name);
}

void Stage::open(StoredSettings settings, std::vector<std::string> arguments) {
  if (settings.folder.empty()) settings.folder = desktop.music();
  writeSettings(desktop, settings);
  if (!recording) recording = std::make_unique<Recording>(desktop);
  player = std::make_unique<PlayerWindow>(desktop, std::move(arguments));
  if (!player->waitForWindow())
    throw std::runtime_error("the player shows no window: " + player->output());
}

std::optional<int> Stage::close() {
  player->close();
  return player->waitForEnd(5);
}

Complaints Stage::disturbances(const Sound& sound, double from) const {
  Complaints found;
  const auto gaps = controlGaps(sound, from, sound.length() - 0.1);
  if (!gaps.empty()) found.push_back("control tone has gaps at " + describe(gaps));
  for (const auto stall : watch.stalls())
    found.push_back("nothing ran for " + std::to_string(stall.count()) + " ms");
  if (busy.idle() < BusyWatch::kEnough)
    found.push_back(figure("the processors had to spare", busy.idle() * 100, "%"));
  return found;
}

Outcome Stage::outcome(Complaints complaints, std::vector<std::string> figures) const {
  if (!player->running()) complaints.push_back("the player is gone: " + player->output());
  if (!complaints.empty()) keepPicture(desktop);
  return {std::move(complaints), disturbances(recording->sound(), 0.3), std::move(figures)};
}

std::vector<MixedSong> mixed(const std::vector<Song>& songs) {
  std::vector<MixedSong> result;
  for (const Song& song : songs)
    result.push_back({song.file.filename().string(), song.hertz, song.attack, song.length});
  return result;
}

namespace {

// A song that breaks off for less is the same song still; the mixes are where breaks are judged.
constexpr double kBreak = 0.3;

std::vector<Stretch> heard(const Sound& sound, const Song& song) {
  return stretchesAbove(envelopeOf(sound, song.hertz, 0, sound.length()), kToneLevel - 6, kBreak);
}

}  // namespace

std::vector<int> timesHeard(const Sound& sound, const std::vector<Song>& songs) {
  std::vector<int> times;
  for (const Song& song : songs) times.push_back(static_cast<int>(heard(sound, song).size()));
  return times;
}

std::vector<std::size_t> orderHeard(const Sound& sound, const std::vector<Song>& songs) {
  std::vector<std::pair<double, std::size_t>> starts;
  for (std::size_t i = 0; i < songs.size(); ++i) {
    const auto stretches = heard(sound, songs[i]);
    if (!stretches.empty()) starts.emplace_back(stretches.front().from, i);
  }
  std::sort(starts.begin(), starts.end());
  std::vector<std::size_t> order;
  for (const auto& [time, song] : starts) order.push_back(song);
  return order;
}

Climb climbOf(const Sound& sound, double from) {
  Climb climb;
  for (double time = from; time < sound.length(); time += Climb::kStep) {
    const double hertz = strongestFrequencyAt(sound, time);
    climb.position.push_back(hertz > 0 ? positionInClimb(hertz) : -1);
  }
  return climb;
}

std::vector<double> Climb::leaps(double least) const {
  std::vector<double> times;
  double before = -1, when = 0;
  for (std::size_t i = 0; i < position.size(); ++i) {
    if (position[i] < 0) continue;
    const double time = kStep * static_cast<double>(i);
    if (before >= 0 && std::abs(position[i] - before - std::min(time - when, 0.1)) > least)
      times.push_back(time);
    before = position[i];
    when = time;
  }
  return times;
}

double positionBefore(const Sound& sound, double time) {
  return positionInClimb(strongestFrequencyAt(sound, time - 0.06)) + 0.06;
}

double positionAfter(const Sound& sound, double time) {
  return positionInClimb(strongestFrequencyAt(sound, time + 0.06)) - 0.06;
}

std::string figure(const std::string& name, double value, const std::string& unit) {
  std::ostringstream text;
  text << name << ": " << std::fixed << std::setprecision(3) << value << " " << unit;
  return text.str();
}

void pauseFor(double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

}  // namespace nerolith::endtoend
