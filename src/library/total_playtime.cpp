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

std::string withThousands(std::size_t number) {
  std::string text = std::to_string(number);
  for (std::size_t end = text.size(); end > 3; end -= 3) text.insert(end - 3, ",");
  return text;
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
    owner.reader_.reset();
    owner.counting_ = owner.songs_.held = false;
    owner.form_.playtimeBar.setVisible(false);
    owner.form_.playtimeDone.setVisible(false);
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
  std::size_t done = 0;
  reader_ = graphs_.readDurations(paths);
  while (done < paths.size()) {
    events_.runWaitingEvents();
    if (cancelled_) break;
    for (const double duration : reader_->take()) {
      total += duration;
      if (live_.modeCode != "1") total -= double{live_.mixLead};
      ++done;
    }
    showProgress(done, paths.size());
  }
  return total;
}

// At the close the files marked for deletion go next: none may be open by then.
void TotalPlaytime::cancel() {
  cancelled_ = true;
  reader_.reset();
}

// Not before some of the count is over: a short one would only flicker.
void TotalPlaytime::showProgress(std::size_t done, std::size_t all) {
  if (done == all) return;
  form_.playtimeBar.setValue(100 * static_cast<float>(done) / static_cast<float>(all));
  form_.playtimeDone.setCaption(withThousands(done) + " of " + withThousands(all));
  form_.playtimeBar.setVisible(true);
  form_.playtimeDone.setVisible(true);
}

}  // namespace nerolith::library
