#include "library/total_playtime.h"

#include <cstdlib>

#include "base/failure.h"
#include "base/failure_policy.h"
#include "base/rounding.h"

namespace nerolith::library {
namespace {

constexpr long long kMinute = 60, kHour = 3600, kDay = 86400;

long long wholeSeconds(double seconds) {
  return static_cast<long long>(base::roundHalfEven(seconds));
}

std::string twoDigits(long long number) {
  std::string digits = std::to_string(std::llabs(number));
  if (digits.size() < 2) digits.insert(0, "0");
  return number < 0 ? "-" + digits : digits;
}

}  // namespace

std::string playtimeText(double seconds) {
  const long long days = wholeSeconds(seconds) / kDay;
  double rest = seconds - static_cast<double>(days * kDay);
  const long long hours = wholeSeconds(rest) / kHour;
  rest -= static_cast<double>(hours * kHour);
  const long long minutes = wholeSeconds(rest) / kMinute;
  rest -= static_cast<double>(minutes * kMinute);

  std::string text;
  if (days > 0) text += std::to_string(days) + ":";
  if (hours > 0) text += twoDigits(hours) + ":";
  return text + twoDigits(minutes) + ":" + twoDigits(wholeSeconds(rest));
}

/// The state of a count while it runs; what happens in between must not leave it behind.
struct TotalPlaytime::Counting {
  explicit Counting(TotalPlaytime& owner) : owner(owner) {
    owner.counting_ = owner.songs_.held = true;
    owner.cancelled_ = false;
    owner.form_.Label4.setEnabled(true);
    owner.form_.Label4.setCaption("Counting");
  }
  ~Counting() {
    owner.counting_ = owner.songs_.held = false;
    owner.form_.Label4.setCaption("00:00");
  }
  TotalPlaytime& owner;
};

TotalPlaytime::TotalPlaytime(forms::MainForm& form, SongList& songs,
                             const settings::LiveSettings& live,
                             platform::FilterGraphFactory& graphs, platform::EventQueue& events)
    : form_(form), songs_(songs), live_(live), graphs_(graphs), events_(events) {
  keyDown_ = form.form.keyDown.subscribe([this](controls::KeyPress press) {
    if (press.key == controls::Key::Escape) cancel();
  });
  unload_ = form.form.unload.subscribe([this] { cancel(); });
}

void TotalPlaytime::count() {
  if (counting_) return;
  double total = 0;
  const bool counted = base::endQuietly([&] {
    const Counting counting(*this);
    total = sumOf(selectedPaths());
    if (!base::isSet(live_.loop)) total += double{live_.mixLead};
  });
  if (counted && !cancelled_) form_.Label4.setCaption(playtimeText(total));
}

std::vector<std::string> TotalPlaytime::selectedPaths() {
  if (songs_.mode() == ListMode::Playlist) songs_.text2().setText("");
  const controls::ListBox::Walk hidden(songs_.list1());
  std::vector<std::string> paths;
  for (int i = 0; i < songs_.list1().count(); ++i)
    if (songs_.list1().selected(i)) paths.push_back(songs_.pathOf(songs_.list1().item(i)));
  return paths;
}

double TotalPlaytime::sumOf(const std::vector<std::string>& paths) {
  double total = 0;
  for (const std::string& path : paths) {
    events_.runWaitingEvents();
    if (cancelled_) break;
    total += durationOf(path);
    if (live_.modeCode != "1") total -= double{live_.mixLead};
  }
  return total;
}

// The graph goes at once: a file that is marked for deletion must not be held open at the close.
double TotalPlaytime::durationOf(const std::string& path) {
  const auto graph = graphs_.createFilterGraph();
  graph->renderFile(path);
  return graph->duration();
}

}  // namespace nerolith::library
