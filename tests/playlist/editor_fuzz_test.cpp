// The reader's kept corpus through the editor, changed at random: the same changes in every run.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "fuzz/playlist_editor_rules.h"

namespace nerolith::playlist {
namespace {

TEST(PlaylistEditorFuzz, ChangesToTheKeptCorpusBreakNoRule) {
  std::mt19937 random(20261121);
  int files = 0;
  const std::filesystem::path folder = NEROLITH_SOURCE_DIR "/tests/fuzz/corpus/playlist_reader";
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream in(entry.path(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    ++files;
    for (int round = 0; round < 100; ++round) {
      std::string changes;
      for (unsigned left = random() % 12; left > 0; --left)
        changes += static_cast<char>(random() % 256);
      const char separator = round % 2 ? '\\' : '/';
      const auto broken = brokenEdit(bytes, changes, separator);
      ASSERT_FALSE(broken) << *broken << ": " << entry.path() << " "
                           << testing::PrintToString(changes);
    }
  }
  EXPECT_GE(files, 14);
}

}  // namespace
}  // namespace nerolith::playlist
