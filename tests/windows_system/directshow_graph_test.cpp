#include "platform/windows/directshow_graph.h"

#include <dshow.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <memory>
#include <random>
#include <vector>

#include "platform/failure.h"
#include "platform/windows/com_apartment.h"
#include "platform/windows/directshow_graphs.h"
#include "platform/windows/handles.h"
#include "windows_system/card_recording.h"
#include "windows_system/scratch_folder.h"
#include "windows_system/tone_file.h"

namespace nerolith::windows {
namespace {

class DirectShow : public ::testing::Test {
 protected:
  using Graph = std::unique_ptr<platform::FilterGraph>;

  void SetUp() override {
    if (!graphs.soundTrouble().empty()) GTEST_SKIP() << graphs.soundTrouble();
  }
  Graph rendered(const std::string& name) {
    Graph graph = graphs.createFilterGraph();
    graph->renderFile(scratch.path(name));
    return graph;
  }
  Graph tone(double seconds = 5) {
    const std::string name = "tone " + std::to_string(++files) + ".wav";
    scratch.addFile(name, toneFile(seconds));
    return rendered(name);
  }

  ComApartment apartment;
  ScratchFolder scratch;
  DirectShowGraphs graphs;
  int files = 0;
};

TEST_F(DirectShow, FilesWithOddNamesCanBePlayed) {
  const std::string part(100, 'p');
  for (const std::string& name :
       {std::string("two  blanks & more.wav"), std::string("\xE2\x98\x83 \xC3\xA9t\xC3\xA9.wav"),
        std::string("no extension"), std::string("wrong.mp3"), std::string("con.wav"),
        std::string("folder. /ends in dots.wav.."), part + '/' + part + '/' + part + "/far.wav"}) {
    scratch.addFile(name, toneFile(1));
    EXPECT_NEAR(rendered(name)->duration(), 1, 0.1) << name;
  }
}

TEST_F(DirectShow, WhatIsNoSoundIsAFailureThatNamesIt) {
  scratch.addFile("empty.mp3");
  scratch.addFile("text.wma", "This is no music.");
  scratch.addFile("header only.wav", toneFile(1).substr(0, 20));
  scratch.addFile("no samples.wav", toneFile(0));
  scratch.addFolder("folder.mp3");
  for (const char* name : {"empty.mp3", "text.wma", "header only.wav", "no samples.wav",
                           "folder.mp3", "missing.mp3", "missing/a.mp3", "*.mp3"}) {
    const Graph graph = graphs.createFilterGraph();
    try {
      graph->renderFile(scratch.path(name));
      ADD_FAILURE() << name;
    } catch (const platform::Failure& failure) {
      EXPECT_NE(std::string(failure.what()).find(scratch.path(name)), std::string::npos);
      EXPECT_NE(failure.code(), 0) << name;
    }
    EXPECT_THROW(graph->run(), platform::Failure) << name;
    EXPECT_EQ(graph->currentPosition(), 0) << name;
  }
  for (const char* path : {"", "relative.mp3", R"(\\.\COM1)", "http://127.0.0.1:9/a.mp3"})
    EXPECT_THROW(graphs.createFilterGraph()->renderFile(path), platform::Failure) << path;
}

TEST_F(DirectShow, AFileThatIsGarbageFailsOrHasALength) {
  std::mt19937 random(7);
  for (const char* name : {"a.mp3", "b.wav", "c.wma", "d.mid", "e.aif"}) {
    std::string bytes(20000, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    scratch.addFile(name, bytes);
    try {
      const Graph graph = rendered(name);
      EXPECT_GT(graph->duration(), 0) << name;
      graph->run();
      EXPECT_LE(graph->currentPosition(), graph->duration()) << name;
    } catch (const platform::Failure& failure) {
      EXPECT_NE(failure.code(), 0) << name;
    }
  }
}

TEST_F(DirectShow, AFileCutShortPlaysWhatThereIs) {
  const std::string whole = toneFile(4);
  scratch.addFile("cut.wav", whole.substr(0, whole.size() / 2));
  const Graph graph = rendered("cut.wav");
  graph->run();
  EXPECT_GT(graph->duration(), 0);
}

TEST_F(DirectShow, ARenderThatFailsReplacesWhatWasThere) {
  const Graph graph = tone();
  EXPECT_THROW(graph->renderFile(scratch.path("missing.mp3")), platform::Failure);
  EXPECT_THROW(static_cast<void>(graph->duration()), platform::Failure);
}

TEST_F(DirectShow, APositionThatIsNoNumberIsAFailure) {
  const Graph graph = tone();
  EXPECT_THROW(graph->setCurrentPosition(std::nan("")), platform::Failure);
  EXPECT_THROW(graph->setCurrentPosition(INFINITY), platform::Failure);
}

TEST_F(DirectShow, ARunningGraphIsHeardAndOneThatIsGoneIsNot) {
  Graph graph = tone();
  CardRecording recording(4);
  Sleep(500);
  graph->run();
  Sleep(1500);
  graph.reset();
  Sleep(1200);
  const auto heard = recording.take();
  const double start = firstSound(heard);
  RecordProperty("FirstSoundAfterMs", static_cast<int>((start - 0.5) * 1000));
  EXPECT_GT(start, 0.3);
  EXPECT_LT(start, 1.5);
  EXPECT_GT(peakBetween(heard, start + 0.1, start + 0.6), 0.1);
  EXPECT_LT(peakBetween(heard, 2.7, 3.1), 0.003);
}

TEST_F(DirectShow, TheVolumeIsHeard) {
  const Graph graph = tone(8);
  graph->setVolume(-2000);
  graph->run();
  const auto peak = [] {
    Sleep(1000);  // what is under way passes
    CardRecording recording(1);
    Sleep(800);
    return peakBetween(recording.take(), 0, 1);
  };
  const double low = peak();
  graph->setVolume(0);
  const double full = peak();
  RecordProperty("LowPartPerMillion", static_cast<int>(low * 1e6));
  RecordProperty("FullPartPerMillion", static_cast<int>(full * 1e6));
  EXPECT_NEAR(20 * std::log10(full / low), 20, 1);
}

/// How many handles the process holds. New ones fill the gaps first, so that the highest of many
/// tells it (the system's own count is not kept everywhere).
int heldHandles() {
  constexpr int kMany = 500;
  std::vector<SystemHandle> events;
  std::uintptr_t highest = 0;
  for (int i = 0; i < kMany; ++i) {
    events.emplace_back(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    highest = std::max(highest, reinterpret_cast<std::uintptr_t>(events.back().get()));
  }
  return static_cast<int>(highest / 4) - kMany;
}

/// How many handles the process holds more after so many starts than before.
template <typename Start>
int handlesLeftBy(int starts, Start start) {
  for (int i = 0; i < 5; ++i) start();  // what is loaded once
  const int before = heldHandles();
  for (int i = 0; i < starts; ++i) start();
  return heldHandles() - before;
}

/// The same start with the system's objects alone: Wine forgets handles of its own in it.
void startBare(const std::wstring& path) {
  ComPointer<IGraphBuilder> builder;
  ComPointer<IMediaControl> control;
  ASSERT_EQ(CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER, IID_IGraphBuilder,
                             builder.outVoid()),
            S_OK);
  ASSERT_EQ(builder->QueryInterface(IID_IMediaControl, control.outVoid()), S_OK);
  const BasicText name(SysAllocString(path.c_str()));
  ASSERT_EQ(control->RenderFile(name.get()), S_OK);
  control->Run();
  control->Stop();
}

TEST_F(DirectShow, StartsOfSongsLeaveNothingBehind) {
  constexpr int kStarts = 40;
  scratch.addFile("tone.wav", toneFile(1));
  const int bare =
      handlesLeftBy(kStarts, [this] { startBare(wideText(scratch.path("tone.wav"))); });
  const int ours = handlesLeftBy(kStarts, [this] { rendered("tone.wav")->run(); });
  RecordProperty("HandlesOfTheSystem", bare);
  RecordProperty("HandlesOfOurs", ours);
  EXPECT_LT(ours, bare + kStarts / 2);
}

}  // namespace
}  // namespace nerolith::windows
