// Any bytes as a playlist file. `./build fuzz` runs it on the kept corpus.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "playlist_reader_rules.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const char separator : {'\\', '/'}) {
    const auto broken = nerolith::playlist::brokenRule(bytes, separator);
    if (!broken) continue;
    std::fprintf(stderr, "%s\n", broken->c_str());
    std::abort();
  }
  return 0;
}
