// How long the selected songs play, with their mixes.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "base/signal.h"
#include "forms/main_form.h"
#include "library/song_list.h"
#include "platform/event_queue.h"
#include "platform/filter_graph.h"
#include "settings/live_settings.h"

namespace nerolith::library {

/// Seconds as "d:hh:mm:ss": days only if there are any, hours likewise (a day and a minute is
/// "1:01:00"), minutes and seconds always; each of these is rounded to the nearest second, ties to
/// even. A sum below zero (songs shorter than their mixes) keeps its sign on each figure.
std::string playtimeText(double seconds);

/// Counts on the user-interface thread and lets waiting events run many times a second, so that the
/// window lives and songs go on mixing meanwhile; the files are read ahead where the platform can.
/// What is counted is what was selected when the count began: neither a mix, nor a removal, nor a
/// visit to another folder changes it. The list's current position is left to the player.
class TotalPlaytime {
 public:
  TotalPlaytime(forms::MainForm& form, SongList& songs, const settings::LiveSettings& live,
                platform::FilterGraphFactory& graphs, platform::EventQueue& events);
  TotalPlaytime(const TotalPlaytime&) = delete;
  TotalPlaytime& operator=(const TotalPlaytime&) = delete;

  /// Shows "Counting" in Label4, then the sum: each song's duration, less the mix lead for each
  /// unless the mode is Single, and the lead once more unless loop is on (in Single mode too).
  /// Leaves "00:00" when a song cannot be read, when the user presses Escape or closes the window.
  /// Meanwhile the list counts as held, and another call does nothing. A count that is not over at
  /// once shows how far it is.
  void count();

 private:
  struct Counting;

  std::vector<std::string> selectedPaths();
  double sumOf(const std::vector<std::string>& paths);
  void showProgress(std::size_t done, std::size_t all);
  void cancel();

  forms::MainForm& form_;
  SongList& songs_;
  const settings::LiveSettings& live_;
  platform::FilterGraphFactory& graphs_;
  platform::EventQueue& events_;
  std::unique_ptr<platform::DurationReader> reader_;  // while it counts
  bool counting_ = false;
  bool cancelled_ = false;
  base::Subscription keyDown_, unload_;
};

}  // namespace nerolith::library
