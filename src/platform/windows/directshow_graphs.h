// Makes decks on DirectShow.
#pragma once

#include "base/patient_caller.h"
#include "platform/filter_graph.h"

namespace nerolith::windows {

/// Outlives its graphs; COM has to be in use (see com_apartment.h). The output's delay is 0 as far
/// as mixing goes: a running deck's position is as far ahead of what is heard as a fresh deck's.
class DirectShowGraphs : public platform::FilterGraphFactory {
 public:
  std::unique_ptr<platform::FilterGraph> createFilterGraph() override;
  std::string soundTrouble() const override;

 private:
  base::PatientCaller opener_;
};

}  // namespace nerolith::windows
