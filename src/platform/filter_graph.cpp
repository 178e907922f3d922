#include "platform/filter_graph.h"

#include <cstddef>
#include <utility>

namespace nerolith::platform {
namespace {

/// The plain way: one graph after another.
class GraphByGraph : public DurationReader {
 public:
  GraphByGraph(FilterGraphFactory& graphs, std::vector<std::string> paths)
      : graphs_(graphs), paths_(std::move(paths)) {}

  // The graph goes at once: a file that is marked for deletion must not be held open at the close.
  std::vector<double> take() override {
    if (next_ == paths_.size()) return {};
    const auto graph = graphs_.createFilterGraph();
    graph->renderFile(paths_[next_]);
    const double duration = graph->duration();
    ++next_;
    return {duration};
  }

 private:
  FilterGraphFactory& graphs_;
  std::vector<std::string> paths_;
  std::size_t next_ = 0;
};

}  // namespace

std::unique_ptr<DurationReader> FilterGraphFactory::readDurations(std::vector<std::string> paths) {
  return std::make_unique<GraphByGraph>(*this, std::move(paths));
}

}  // namespace nerolith::platform
