// A deck on DirectShow.
#pragma once

#include <memory>
#include <string>

#include "base/patient_caller.h"
#include "platform/filter_graph.h"

namespace nerolith::windows {

/// Each file gets a filter graph of the system's own (FilgraphManager), made with it: an object
/// that failed to render may hold half a chain and is thrown away. Files are opened on another
/// thread, so that one on a dead network share costs the player five seconds and no more.
///
/// Only the sound is played; a film's window stays hidden. COM has to be in use on the thread that
/// calls (see com_apartment.h) for as long as the graph lives.
class DirectShowGraph : public platform::FilterGraph {
 public:
  /// `opener` outlives the graph.
  explicit DirectShowGraph(base::PatientCaller& opener);

  /// What `duration` of a graph with this file tells, in seconds, or the failure to render it.
  /// Makes a graph and destroys it, all on the calling thread, which need not have heard of COM.
  static double durationOf(const std::string& path);

  ~DirectShowGraph() override;

  void renderFile(const std::string& path) override;
  void run() override;
  void pause() override;
  void stop() override;
  double duration() const override;
  double currentPosition() const override;
  void setCurrentPosition(double seconds) override;
  std::int32_t volume() const override;
  void setVolume(std::int32_t hundredthsOfDecibel) override;

 private:
  struct Rendered;

  /// Fails when nothing was rendered.
  const Rendered& rendered() const;

  base::PatientCaller& opener_;
  std::unique_ptr<Rendered> rendered_;
};

}  // namespace nerolith::windows
