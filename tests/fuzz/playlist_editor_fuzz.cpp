// Any bytes as a playlist file, and any changes to it: the input's first byte tells how many of the
// following ones are changes. `./build fuzz` runs it on the reader's corpus.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "playlist_editor_rules.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (bytes.empty()) return 0;
  const std::size_t count = std::min<std::size_t>(*data % 16, size - 1);
  const std::string_view changes = bytes.substr(1, count);
  for (const char separator : {'\\', '/'}) {
    const auto broken = nerolith::playlist::brokenEdit(bytes.substr(1 + count), changes, separator);
    if (!broken) continue;
    std::fprintf(stderr, "%s\n", broken->c_str());
    std::abort();
  }
  return 0;
}
