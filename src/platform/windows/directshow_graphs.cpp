#include "platform/windows/directshow_graphs.h"

#include <windows.h>
// After windows.h, which it needs.
#include <mmsystem.h>

#include <chrono>
#include <cstdlib>
#include <optional>

#include "platform/durations_ahead.h"
#include "platform/windows/directshow_graph.h"
#include "platform/windows/file_path.h"

namespace nerolith::windows {

namespace {

std::int64_t wide(DWORD high, DWORD low) {
  return static_cast<std::int64_t>(std::uint64_t{high} << 32 | low);
}

std::optional<base::FileStamp> stampOfFile(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(literalPath(tidyPath(path, {})).c_str(), GetFileExInfoStandard, &data))
    return std::nullopt;
  return base::FileStamp{
      wide(data.nFileSizeHigh, data.nFileSizeLow),
      wide(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)};
}

/// Times of change are coarse, two seconds on a memory stick: a file that was written just now may
/// be written again without showing it.
bool hasSettled(const base::FileStamp& stamp) {
  constexpr std::int64_t kSecond = 10'000'000;  // in the hundreds of nanoseconds of a file's time
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  return std::llabs(wide(now.dwHighDateTime, now.dwLowDateTime) - stamp.changed) > 3 * kSecond;
}

}  // namespace

std::unique_ptr<platform::FilterGraph> DirectShowGraphs::createFilterGraph() {
  return std::make_unique<DirectShowGraph>(opener_);
}

std::unique_ptr<platform::DurationReader> DirectShowGraphs::readDurations(
    std::vector<std::string> paths) {
  auto measure = [known = known_](const std::string& path, base::JobWatch&) {
    const std::optional<base::FileStamp> stamp = stampOfFile(path);
    if (const auto before = stamp ? known->recall(path, *stamp) : std::nullopt) return *before;
    const double seconds = DirectShowGraph::durationOf(path);
    if (stamp && hasSettled(*stamp)) known->keep(path, *stamp, seconds);
    return seconds;
  };
  return std::make_unique<platform::DurationsAhead>(spare_, std::move(paths), std::move(measure),
                                                    1);
}

std::string DirectShowGraphs::soundTrouble() const {
  if (waveOutGetNumDevs() > 0) return {};
  return "Windows has no sound output; connect or enable one and start the song again.";
}

}  // namespace nerolith::windows
