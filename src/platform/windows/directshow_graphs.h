// Makes decks on DirectShow.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "base/file_memory.h"
#include "base/patient_caller.h"
#include "base/spare_threads.h"
#include "platform/filter_graph.h"

namespace nerolith::windows {

/// Outlives its graphs; COM has to be in use (see com_apartment.h). The output's delay is 0 as far
/// as mixing goes: a running deck's position is as far ahead of what is heard as a fresh deck's.
///
/// Durations are read ahead by one thread, in the multithreaded apartment as the one that opens
/// files for the decks, and no graph leaves the thread that made it. Not by several: which
/// filters come into a graph is up to what is installed, and not all are made to be built in two
/// graphs at the same moment. The figure is DirectShow's own, so no file is parsed here; one that
/// was measured and is unchanged (size, time) is not opened again. That is asked of the file
/// itself: its folder may learn of a change only when the file is closed, or under its other name.
class DirectShowGraphs : public platform::FilterGraphFactory {
 public:
  std::unique_ptr<platform::FilterGraph> createFilterGraph() override;
  std::unique_ptr<platform::DurationReader> readDurations(std::vector<std::string> paths) override;
  std::string soundTrouble() const override;

 private:
  // The making of a graph cannot be broken off, and the program must not end in the midst of it.
  base::SpareThreads spare_{std::chrono::seconds(3)};
  base::PatientCaller opener_;
  std::shared_ptr<base::FileMemory> known_ = std::make_shared<base::FileMemory>();
};

}  // namespace nerolith::windows
