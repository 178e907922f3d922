// The recording section's window on a simulated machine, beside a player that only takes notes.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/failure.h"
#include "controls/form.h"
#include "platform/simulated/simulated_machine.h"
#include "recording/recording_section.h"

namespace nerolith::recording {

using platform::Answer;
using platform::simulated::Door;
using platform::simulated::SimulatedMachine;
using namespace std::chrono_literals;

/// Writes what it is asked for into the machine's trace: "player.stop", "player.play",
/// "player.fade".
struct NotedPlaying final : Playing {
  explicit NotedPlaying(SimulatedMachine& machine) : machine(machine) {}

  void note(const char* verb) { machine.doorway.note({Door::Events, "player", verb}); }
  void stop() override {
    note("stop");
    if (onStop) onStop();
  }
  void play() override { note("play"); }
  void fadeOutCurrent() override { note("fade"); }
  float fadeLength() const override { return length; }
  bool anyFades() const override { return fades; }
  bool currentFades() const override { return currentFading; }
  std::int16_t startVolume() const override { return -500; }
  std::int32_t volume() const override {
    if (!playing) throw base::Failure("nothing plays");
    return level;
  }
  void setVolume(std::int32_t value) override {
    if (value > 0 || value < -10000) throw base::Failure("out of range");
    level = value;
  }

  SimulatedMachine& machine;
  std::function<void()> onStop;
  float length = 5;
  bool fades = false;
  bool currentFading = false;
  bool playing = true;
  std::int32_t level = -500;
};

class RecordingTest : public testing::Test {
 protected:
  RecordingTest() {
    machine.files.addFolder("C:\\rec");
    // The player's Stop asks the recording section to end, as the transport does.
    playing.onStop = [this] {
      if (section.recording()) section.stopRecording();
    };
    mainForm.setVisible(true);
  }

  void storeAdjust(const std::string& text) {
    machine.settings.set("Nerolith", "Setting", "adjust", text);
  }
  std::string storedAdjust() {
    return machine.settings.stored("Nerolith", "Setting", "adjust").value_or("none");
  }
  void soundOf(std::int16_t level) {
    machine.capture.setSound([level](std::int64_t) { return level; });
  }
  RecordingWindow& window() { return section.window(); }
  forms::RecordingForm& form() { return window().form(); }
  void open() {
    section.open();
    machine.advance(100ms);
    machine.clearTrace();
  }
  /// A recording to C:\rec\a.wav that has begun.
  void record() {
    open();
    machine.dialogs.chooseFile("C:\\rec\\a.wav");
    window().Label2_Click(2);
    machine.clearTrace();
  }
  std::string asked() { return machine.trace({Door::Events, Door::Dialogs, Door::Files}); }
  std::string sound() { return machine.trace({Door::Capture, Door::Tone}); }
  std::string written() { return machine.trace({Door::Output}); }
  static std::string count(const std::string& text, const std::string& word) {
    int found = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
      ++found;
    return std::to_string(found);
  }

  SimulatedMachine machine;
  controls::Form mainForm;
  NotedPlaying playing{machine};
  RecordingSection section{
      {machine.capture, machine.tone, machine.output, machine.files, machine.dialogs, machine.clock,
       machine.settings, machine.bytes, machine.events, machine.windows,
       [this] { return storedAdjust() == "True"; },
       [this](bool on) {
         machine.settings.write("Nerolith", "Setting", "adjust", on ? "True" : "False");
       }},
      playing,
      mainForm};
};

}  // namespace nerolith::recording
