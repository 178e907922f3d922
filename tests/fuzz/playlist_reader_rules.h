// What holds of reading and rewriting any bytes as a playlist.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/simulated/simulated_encoding.h"
#include "playlist/playlist_text.h"

namespace nerolith::playlist {

inline std::vector<std::string> readInBlocks(std::string_view bytes, std::size_t block,
                                             EmptyLines emptyLines, char separator) {
  const platform::simulated::SimulatedEncoding encoding(separator);
  PlaylistReader reader(encoding, emptyLines);
  for (std::size_t done = 0; done < bytes.size(); done += block)
    reader.take(bytes.substr(done, block));
  return reader.finish();
}

/// The rule that these bytes break, on a machine with this separator; nothing when all is well.
inline std::optional<std::string> brokenRule(std::string_view bytes, char separator) {
  using Entries = std::vector<std::string>;
  const Entries kept = readInBlocks(bytes, bytes.size() + 1, EmptyLines::Kept, separator);
  for (const std::size_t block : {1, 2, 3, 7, 64})
    if (readInBlocks(bytes, block, EmptyLines::Kept, separator) != kept)
      return "blocks of " + std::to_string(block) + " bytes make a difference";

  Entries filled = kept;
  std::erase_if(filled, [](const std::string& entry) { return entry.empty(); });
  if (readInBlocks(bytes, 64, EmptyLines::Skipped, separator) != filled)
    return "skipping empty lines skips something else";
  if (std::any_of(kept.begin(), kept.end(), [](auto& entry) { return entry.starts_with('#'); }))
    return "a comment became an entry";

  const platform::simulated::SimulatedEncoding encoding(separator);
  const std::string rewritten = playlistBytes(kept, encoding);
  if (readInBlocks(rewritten, 64, EmptyLines::Kept, separator) != kept)
    return "an entry is another one after a rewrite";
  if (playlistBytes(readInBlocks(rewritten, 64, EmptyLines::Kept, separator), encoding) !=
      rewritten)
    return "a second rewrite differs from the first";
  return std::nullopt;
}

}  // namespace nerolith::playlist
