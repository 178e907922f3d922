#include "platform/simulated/simulated_decks.h"

#include <algorithm>
#include <charconv>

#include "platform/failure.h"

namespace nerolith::platform::simulated {
namespace {

constexpr std::int32_t kSilence = -10000;

std::string shortest(double value) {
  char text[32];
  return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

/// Tells one duration after the other, each when its time has come.
class SlowReader : public DurationReader {
 public:
  SlowReader(std::unique_ptr<DurationReader> plain, const Timeline& timeline,
             Timeline::Duration each)
      : plain_(std::move(plain)), timeline_(timeline), each_(each), due_(timeline.now() + each) {}

  std::vector<double> take() override {
    if (timeline_.now() < due_) return {};
    due_ = timeline_.now() + each_;
    return plain_->take();
  }

 private:
  std::unique_ptr<DurationReader> plain_;
  const Timeline& timeline_;
  Timeline::Duration each_;
  Timeline::Duration due_;
};

std::string_view nameOf(std::string_view path) {
  const std::size_t end = path.find_last_of("\\/");
  return end == std::string_view::npos ? path : path.substr(end + 1);
}

}  // namespace

std::unique_ptr<FilterGraph> SimulatedDecks::createFilterGraph() {
  doorway_.act({Door::Decks, "decks", "create"});
  auto graph = std::make_unique<SimulatedGraph>(*this);
  nameAtCreation(*graph);
  graphs_.push_back(graph.get());
  return graph;
}

std::unique_ptr<DurationReader> SimulatedDecks::readDurations(std::vector<std::string> paths) {
  return std::make_unique<SlowReader>(FilterGraphFactory::readDurations(std::move(paths)),
                                      timeline_, readingTime_);
}

const SimulatedGraph* SimulatedDecks::graph(char letter) const {
  for (const SimulatedGraph* graph : graphs_)
    if (graph->letter_ == letter) return graph;
  return nullptr;
}

int SimulatedDecks::audibleGraphs() const {
  return static_cast<int>(std::count_if(graphs_.begin(), graphs_.end(),
                                        [](const SimulatedGraph* g) { return g->audible(); }));
}

void SimulatedDecks::nameAtCreation(SimulatedGraph& graph) {
  for (const char letter : {'A', 'B'}) {
    if (this->graph(letter)) continue;
    graph.letter_ = letter;
    return;
  }
}

void SimulatedDecks::nameAtFirstUse(const SimulatedGraph& graph) const {
  char letter = 'C';
  while (this->graph(letter)) ++letter;
  graph.letter_ = letter;
}

void SimulatedDecks::forget(const SimulatedGraph& graph) {
  std::erase(graphs_, &graph);
  const char freed = graph.letter_;
  if (freed != 'A' && freed != 'B') return;
  for (SimulatedGraph* waiting : graphs_) {
    if (waiting->letter_ != 0) continue;
    waiting->letter_ = freed;
    return;
  }
}

SimulatedGraph::~SimulatedGraph() {
  if (rendered()) {
    const std::string_view who(&letter_, 1);
    decks_.doorway_.note({Door::Decks, who, "release"});
  }
  decks_.forget(*this);
}

void SimulatedGraph::renderFile(const std::string& path) {
  act("render", nameOf(path));
  if (rendered()) decks_.doorway_.refuse("The deck already holds " + path_);
  const SimulatedFile* file = decks_.files_.find(path);
  if (!file) decks_.doorway_.refuse(path + ": no such file");
  if (!file->playable || file->duration <= 0)
    decks_.doorway_.refuse(path + ": holds no sound that can be played");
  path_ = path;
  file_ = *file;
}

void SimulatedGraph::run() {
  act("run");
  demandFile();
  if (!file_.runnable) decks_.doorway_.refuse(path_ + ": cannot be run");
  if (running_) return;
  began_ = decks_.timeline_.now();
  running_ = true;
}

void SimulatedGraph::pause() {
  act("pause");
  demandFile();
  freeze();
}

void SimulatedGraph::stop() {
  act("stop");
  freeze();
}

double SimulatedGraph::duration() const {
  look("duration");
  demandFile();
  return file_.duration;
}

double SimulatedGraph::currentPosition() const {
  look("position");
  return position();
}

void SimulatedGraph::setCurrentPosition(double seconds) {
  act("seek", shortest(seconds));
  demandFile();
  if (!(seconds >= 0 && seconds <= file_.duration))
    decks_.doorway_.refuse("A position outside the file: " + shortest(seconds));
  start_ = seconds;
  began_ = decks_.timeline_.now();
}

std::int32_t SimulatedGraph::volume() const {
  look("volume?");
  demandFile();
  return volume_;
}

void SimulatedGraph::setVolume(std::int32_t hundredthsOfDecibel) {
  act("volume", std::to_string(hundredthsOfDecibel));
  demandFile();
  if (hundredthsOfDecibel < kSilence || hundredthsOfDecibel > 0)
    decks_.doorway_.refuse("A volume outside -10000 to 0: " + std::to_string(hundredthsOfDecibel));
  volume_ = hundredthsOfDecibel;
}

double SimulatedGraph::position() const {
  if (!running_) return start_;
  const std::chrono::duration<double> played = decks_.timeline_.now() - began_;
  return std::min(start_ + played.count(), file_.duration);
}

bool SimulatedGraph::audible() const {
  return running_ && position() < file_.duration && volume_ > kSilence;
}

void SimulatedGraph::act(std::string_view verb, std::string_view argument) const {
  if (letter_ == 0) decks_.nameAtFirstUse(*this);
  decks_.doorway_.act({Door::Decks, {&letter_, 1}, verb, argument});
}

void SimulatedGraph::look(std::string_view verb) const {
  if (letter_ == 0) decks_.nameAtFirstUse(*this);
  decks_.doorway_.look({Door::Decks, {&letter_, 1}, verb});
}

void SimulatedGraph::demandFile() const {
  if (!rendered()) decks_.doorway_.refuse("The deck holds no file");
}

void SimulatedGraph::freeze() {
  start_ = position();
  running_ = false;
}

}  // namespace nerolith::platform::simulated
