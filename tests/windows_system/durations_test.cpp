// A file's duration read ahead is the one that a graph of it tells.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/windows/com_apartment.h"
#include "platform/windows/directshow_graphs.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

constexpr double kLongAgo = 45000;  // a day in 2023

class Durations : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!graphs.soundTrouble().empty()) GTEST_SKIP() << graphs.soundTrouble();
  }
  /// A file that could not be read may be held for a while: a thread that was given up has it.
  void addFile(const std::string& name, const std::string& bytes) {
    for (int i = 0; i < 1000; ++i, Sleep(10)) {
      try {
        return scratch.addFile(name, bytes);
      } catch (const std::runtime_error&) {
      }
    }
    throw std::runtime_error("no file " + name);
  }
  std::string tone(const std::string& name, double seconds) {
    addFile(name, toneFile(seconds));
    scratch.setModified(name, kLongAgo);
    return scratch.path(name);
  }
  std::vector<double> all(const std::vector<std::string>& paths) {
    std::vector<double> told;
    const auto reader = graphs.readDurations(paths);
    const auto until = Clock::now() + 60s;
    while (told.size() < paths.size() && Clock::now() < until)
      for (const double seconds : reader->take()) told.push_back(seconds);
    return told;
  }

  ComApartment apartment;
  ScratchFolder scratch;
  DirectShowGraphs graphs;
};

TEST_F(Durations, AreThoseThatGraphsTellInOrder) {
  std::vector<std::string> paths;
  std::vector<double> told;
  for (int i = 0; i < 12; ++i) {
    paths.push_back(tone("tone " + std::to_string(i) + ".wav", 0.5 + 0.25 * (i % 5)));
    const auto graph = graphs.createFilterGraph();
    graph->renderFile(paths.back());
    told.push_back(graph->duration());
  }
  EXPECT_EQ(all(paths), told);
}

TEST_F(Durations, WhatCannotBeRenderedFailsInItsTurn) {
  scratch.addFile("text.wma", "This is no music.");
  for (const std::string& name : {std::string("text.wma"), std::string("missing.mp3")}) {
    const auto reader = graphs.readDurations({tone("a.wav", 1), scratch.path(name)});
    std::size_t done = 0;
    try {
      for (int i = 0; i < 3000; ++i) done += reader->take().size();
      ADD_FAILURE() << name;
    } catch (const platform::Failure& failure) {
      EXPECT_NE(std::string(failure.what()).find(scratch.path(name)), std::string::npos);
      EXPECT_EQ(done, 1U);
    }
  }
}

TEST_F(Durations, AnUnchangedFileIsNotOpenedAgainAndAChangedOneIs) {
  const std::string path = tone("tone.wav", 2);
  EXPECT_NEAR(all({path})[0], 2, 0.1);
  // Bytes that are no music, as many and of the same time: only a file not opened has a length.
  addFile("tone.wav", std::string(toneFile(2).size(), 'x'));
  scratch.setModified("tone.wav", kLongAgo);
  EXPECT_NEAR(all({path})[0], 2, 0.1);
  scratch.setModified("tone.wav", kLongAgo + 1);
  EXPECT_THROW(all({path}), platform::Failure);
  EXPECT_NEAR(all({tone("tone.wav", 3)})[0], 3, 0.1);
}

TEST_F(Durations, AThousandKnownFilesTakeNoTime) {
  std::vector<std::string> paths;
  for (int i = 0; i < 10; ++i) paths.push_back(tone(std::to_string(i) + ".wav", 1));
  all(paths);
  for (int i = 10; i < 1000; ++i) paths.push_back(paths[static_cast<std::size_t>(i % 10)]);
  const auto began = Clock::now();
  EXPECT_EQ(all(paths).size(), 1000U);
  const auto spent = std::chrono::duration<double, std::milli>(Clock::now() - began).count();
  RecordProperty("Milliseconds", std::to_string(spent));
  std::printf("    1,000 known files: %.2f ms\n", spent);
  EXPECT_LT(spent, 1000) << "opening them takes ten times as long and more";
}

TEST_F(Durations, ACountThatIsDroppedHoldsNoFileOpen) {
  std::vector<std::string> paths;
  for (int i = 0; i < 30; ++i) paths.push_back(tone(std::to_string(i) + ".wav", 1));
  auto reader = graphs.readDurations(paths);
  while (reader->take().empty()) {
  }
  reader.reset();
  for (const std::string& path : paths)
    EXPECT_TRUE(DeleteFileW(systemPath(path).c_str())) << path << " " << GetLastError();
}

}  // namespace
}  // namespace nerolith::windows
