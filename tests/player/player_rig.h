// A player in a simulated machine, with a folder of songs.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "base/failure.h"
#include "forms/main_form.h"
#include "library/song_list.h"
#include "platform/simulated/simulated_machine.h"
#include "player/player.h"
#include "settings/live_settings.h"

namespace nerolith::player {

using platform::Answer;
using platform::simulated::Door;
using platform::simulated::SimulatedMachine;
using namespace std::chrono_literals;

/// A recording section of which a test says what it does.
struct ScriptedRecording : RecordingLink {
  bool adjust = false;
  bool writes = false;
  int placed = 0;
  int corrected = 0;
  int stopped = 0;
  int lastSongs = 0;
  std::function<void()> onCorrection;

  bool adjustEnabled() const override { return adjust; }
  bool recording() const override { return writes; }
  void placeBesideMainWindow() override { ++placed; }
  void volumeCorrectionStep() override {
    ++corrected;
    if (onCorrection) onCorrection();
  }
  void stopRecording() override { ++stopped; }
  void stopAfterLastSong() override { ++lastSongs; }
};

struct PlayerRig {
  explicit PlayerRig(float fadeLength = 5, platform::Dialogs* otherDialogs = nullptr)
      : dialogs(otherDialogs ? *otherDialogs : machine.dialogs) {
    live.fadeLength = fadeLength;
    form.HScroll1.setMin(1);
    form.Text2.setText("C:\\m\\");
    machine.windows.add(form.form);
  }
  ~PlayerRig() { machine.windows.remove(form.form); }

  /// "a.mp3", "b.mp3", ...: one song for each length; a length of 0 is a broken file.
  void fill(const std::vector<double>& lengths) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
      std::string name =
          i < 26 ? std::string(1, static_cast<char>('a' + i)) : "s" + std::to_string(i);
      names.push_back(name.append(".mp3"));
      if (lengths[i] > 0)
        machine.files.addFile("C:\\m\\" + names.back(), {.duration = lengths[i]});
      else
        machine.files.addFile("C:\\m\\" + names.back(), {.playable = false});
    }
    songs.refill(std::move(names));
  }
  void fillEqual(int count, double length) {
    fill(std::vector<double>(static_cast<std::size_t>(count), length));
  }

  void start(int position) {
    form.List1.setListIndex(position);
    player.list1_DblClick();
  }
  void single() { form.Option1.setValue(true); }
  void autoNext() { form.Option2.setValue(true); }
  void random() { form.Option3.setValue(true); }
  void loop() { form.Check1.setValue(1); }

  /// Runs what was posted, and what that posts, while no time passes.
  void settle() {
    while (machine.timeline.postedCalls() > 0) machine.advance(0ms);
  }
  void ticks(int count) { machine.advance(count * 100ms); }
  std::string decksTrace() const { return machine.trace({Door::Decks}); }
  const platform::simulated::SimulatedGraph& graph(char letter) const {
    return *machine.decks.graph(letter);
  }
  /// File name that the current deck holds; "" for none.
  std::string currentSong() {
    using platform::simulated::SimulatedGraph;
    const auto& held = *player.decks().current()->graph;
    const auto& path = dynamic_cast<const SimulatedGraph&>(held).path();
    return path.substr(path.rfind('\\') + 1);
  }

  SimulatedMachine machine;
  platform::Dialogs& dialogs;
  forms::MainForm form;
  settings::LiveSettings live;
  library::SongList songs{form.List1, form.Text1, form.Text2};
  ScriptedRecording recording;
  int scans = 0;
  std::function<void()> onScan;
  Player player{
      form, songs, live, recording, {machine.decks, dialogs, machine.events, '\\', [this] {
                                       ++scans;
                                       if (onScan) onScan();
                                     }}};
};

}  // namespace nerolith::player
