// A recorder on a machine in memory.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>

#include "platform/simulated/simulated_machine.h"
#include "recording/recorder.h"
#include "recording/unfinished_recording.h"
#include "recording/wave_model.h"

namespace nerolith::recording {

using platform::simulated::Door;
using std::chrono::milliseconds;
using std::chrono::seconds;

inline constexpr char kTake[] = "C:\\Takes\\take.wav";

class RecorderRig : public ::testing::Test {
 protected:
  RecorderRig() {
    machine.files.addFolder("C:\\Takes");
    machine.capture.setSound(&model::sampleNumber);
  }

  void start(const std::string& path = kTake) {
    recorder.filename(path);
    recorder.Start_Recording();
  }
  /// As the window does it: a tick every half second.
  void recordFor(milliseconds length) {
    for (auto left = length; left.count() > 0; left -= milliseconds(500)) {
      machine.advance(std::min(left, milliseconds(500)));
      if (left >= milliseconds(500)) recorder.timer_Event500ms();
    }
  }
  const std::string& bytes(const std::string& path = kTake) { return machine.output.bytes(path); }
  /// EXPECT_EQ would print megabytes.
  void expectFile(const std::string& expected, const std::string& path = kTake) {
    const std::string& actual = bytes(path);
    ASSERT_EQ(actual.size(), expected.size());
    const auto differ = std::mismatch(actual.begin(), actual.end(), expected.begin());
    EXPECT_TRUE(differ.first == actual.end()) << "at byte " << differ.first - actual.begin();
  }

  platform::simulated::SimulatedMachine machine;
  UnfinishedRecording unfinished{machine.settings};
  recordsound2file recorder{{machine.capture, machine.output, machine.clock, unfinished}};
};

}  // namespace nerolith::recording
