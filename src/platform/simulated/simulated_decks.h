// Scripted decks: files that are a duration and a fate, played on virtual time.
#pragma once

#include <string>
#include <vector>

#include "platform/filter_graph.h"
#include "platform/simulated/doorway.h"
#include "platform/simulated/simulated_files.h"
#include "platform/simulated/timeline.h"

namespace nerolith::platform::simulated {

class SimulatedGraph;

/// Makes graphs that play the files of a `SimulatedFiles`, and names them for the trace. The first
/// two graphs are "A" and "B". A graph made while both names are taken replaces one of the two: it
/// takes the name of the next one to go, or, when it is used before that, the first free letter
/// from "C" on. Graphs may outlive neither this nor the files.
///
/// Trace: "A.render song.mp3" (the file's name without its folder), "A.run", "A.pause", "A.stop",
/// "A.seek 12.5", "A.volume -98", "A.release" when a graph that holds a file is destroyed,
/// "decks.create". Readings: "A.duration", "A.position", "A.volume?".
class SimulatedDecks : public FilterGraphFactory {
 public:
  SimulatedDecks(const SimulatedFiles& files, const Timeline& timeline, Doorway& doorway)
      : files_(files), timeline_(timeline), doorway_(doorway) {}
  SimulatedDecks(const SimulatedDecks&) = delete;
  SimulatedDecks& operator=(const SimulatedDecks&) = delete;

  std::unique_ptr<FilterGraph> createFilterGraph() override;
  std::unique_ptr<DurationReader> readDurations(std::vector<std::string> paths) override;
  std::string soundTrouble() const override { return trouble_; }

  double startDelay() const override { return startDelay_; }

  void setSoundTrouble(std::string text) { trouble_ = std::move(text); }
  /// How long reading the duration of one file takes: until then there is nothing more to be told.
  void setReadingTime(Timeline::Duration time) { readingTime_ = time; }
  /// Told to the player only: positions and what is audible do not follow it.
  void setStartDelay(double seconds) { startDelay_ = seconds; }

  /// The live graph of that name; none: null.
  const SimulatedGraph* graph(char letter) const;
  /// How many graphs are audible right now: running, not at their end, above silence.
  int audibleGraphs() const;

 private:
  friend class SimulatedGraph;

  void nameAtCreation(SimulatedGraph& graph);
  void nameAtFirstUse(const SimulatedGraph& graph) const;
  void forget(const SimulatedGraph& graph);

  const SimulatedFiles& files_;
  const Timeline& timeline_;
  Doorway& doorway_;
  std::vector<SimulatedGraph*> graphs_;  // in order of creation
  std::string trouble_;
  double startDelay_ = 0;
  Timeline::Duration readingTime_{0};
};

/// Beyond what `FilterGraph` says: a graph holds one file for its life, a second `renderFile`
/// fails.
class SimulatedGraph : public FilterGraph {
 public:
  explicit SimulatedGraph(SimulatedDecks& decks) : decks_(decks) {}
  ~SimulatedGraph() override;

  void renderFile(const std::string& path) override;
  void run() override;
  void pause() override;
  void stop() override;
  double duration() const override;
  double currentPosition() const override;
  void setCurrentPosition(double seconds) override;
  std::int32_t volume() const override;
  void setVolume(std::int32_t hundredthsOfDecibel) override;

  // What a test sees, without a door call.
  bool rendered() const { return !path_.empty(); }
  bool running() const { return running_; }
  /// The rendered file; empty: none.
  const std::string& path() const { return path_; }
  double position() const;
  std::int32_t level() const { return volume_; }
  bool audible() const;

 private:
  friend class SimulatedDecks;

  void act(std::string_view verb, std::string_view argument = {}) const;
  void look(std::string_view verb) const;
  void demandFile() const;
  void freeze();

  SimulatedDecks& decks_;
  mutable char letter_ = 0;  // 0: not named yet
  std::string path_;
  SimulatedFile file_;
  double start_ = 0;  // position when it last began to run, or while it does not run
  Timeline::Duration began_{0};
  std::int32_t volume_ = 0;
  bool running_ = false;
};

}  // namespace nerolith::platform::simulated
