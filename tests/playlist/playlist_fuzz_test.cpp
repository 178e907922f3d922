// The kept corpus of the reader's fuzzer, and what a few thousand changes make of it: the same ones
// in every run, so that a failure comes back.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "fuzz/playlist_reader_rules.h"

namespace nerolith::playlist {
namespace {

constexpr int kRounds = 4000;
constexpr std::string_view kTelling[] = {
    "\r",  "\n",  "\r\n", "#",    " ", "\xEF\xBB\xBF", "\xC3", "\xA9", "file:///",
    "%0A", "%20", "\\\\", "C:\\", "/", "\xED\xA0\x80", "\x80"};

std::vector<std::string> corpus() {
  std::vector<std::filesystem::path> paths;
  const std::filesystem::path folder = NEROLITH_SOURCE_DIR "/tests/fuzz/corpus/playlist_reader";
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  std::vector<std::string> inputs;
  for (const auto& path : paths) {
    std::ifstream in(path, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return inputs;
}

std::string changed(std::string bytes, const std::vector<std::string>& inputs,
                    std::mt19937& random) {
  for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
    const std::size_t at = random() % (bytes.size() + 1);
    switch (random() % 5) {
      case 0:
        bytes.insert(at, kTelling[random() % std::size(kTelling)]);
        break;
      case 1:
        bytes.insert(at, 1, static_cast<char>(random() % 256));
        break;
      case 2:
        bytes.erase(at, 1 + random() % 4);
        break;
      case 3:
        if (at < bytes.size()) bytes[at] = static_cast<char>(random() % 256);
        break;
      default:
        bytes.insert(at, inputs[random() % inputs.size()].substr(0, random() % 40));
    }
  }
  return bytes;
}

void expectRulesHold(const std::string& bytes) {
  for (const char separator : {'\\', '/'}) {
    const auto broken = brokenRule(bytes, separator);
    ASSERT_FALSE(broken) << *broken << " (" << separator << "): " << testing::PrintToString(bytes);
  }
}

TEST(PlaylistReaderFuzz, TheKeptCorpusBreaksNoRule) {
  const auto inputs = corpus();
  ASSERT_GE(inputs.size(), 14u);
  for (const std::string& bytes : inputs) expectRulesHold(bytes);
}

TEST(PlaylistReaderFuzz, NeitherDoThousandsOfChangesToIt) {
  const auto inputs = corpus();
  std::mt19937 random(20261121);
  for (int round = 0; round < kRounds && !testing::Test::HasFatalFailure(); ++round)
    expectRulesHold(changed(inputs[random() % inputs.size()], inputs, random));
}

}  // namespace
}  // namespace nerolith::playlist
