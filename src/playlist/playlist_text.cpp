#include "playlist/playlist_text.h"

#include <utility>

#include "base/failure.h"
#include "base/trimmed.h"
#include "playlist/path_address.h"

namespace nerolith::playlist {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

void PlaylistReader::take(std::string_view block) {
  bytes_ += block.size();
  if (bytes_ > kMostBytes) throw base::Failure("This file is too long for a playlist.");
  if (block.empty()) return;
  if (std::exchange(afterReturn_, false) && block.starts_with('\n')) block.remove_prefix(1);
  for (;;) {
    const std::size_t end = block.find_first_of("\r\n");
    if (end == std::string_view::npos) break;
    endLine(block.substr(0, end));
    const bool isReturn = block[end] == '\r';
    block.remove_prefix(end + 1);
    if (!isReturn) continue;
    afterReturn_ = block.empty();
    if (block.starts_with('\n')) block.remove_prefix(1);
  }
  begun_ += block;
}

std::vector<std::string> PlaylistReader::finish() {
  if (!begun_.empty()) endLine({});
  return std::move(entries_);
}

void PlaylistReader::endLine(std::string_view rest) {
  if (begun_.empty()) return addLine(rest);
  begun_ += rest;
  addLine(begun_);
  begun_.clear();
}

void PlaylistReader::addLine(std::string_view line) {
  const bool marked = std::exchange(firstLine_, false) && line.starts_with(kByteOrderMark);
  if (marked) line.remove_prefix(kByteOrderMark.size());
  line = base::trimmed(line);
  if (line.starts_with('#')) return;
  if (line.empty() && emptyLines_ == EmptyLines::Skipped) return;
  entries_.push_back(pathOfLine(encoding_.textOf(line)));
}

std::vector<std::string> readPlaylist(const platform::ByteFiles& files, const std::string& path,
                                      const platform::TextEncoding& encoding,
                                      EmptyLines emptyLines) {
  PlaylistReader reader(encoding, emptyLines);
  files.read(path, [&reader](std::string_view block) { reader.take(block); });
  return reader.finish();
}

std::string playlistBytes(const std::vector<std::string>& lines,
                          const platform::TextEncoding& encoding) {
  std::string bytes;
  for (const std::string& line : lines) bytes.append(encoding.bytesOf(lineOfPath(line))) += "\r\n";
  // A name that begins as the mark does would lose its beginning to it.
  if (bytes.starts_with(kByteOrderMark)) bytes.insert(0, kByteOrderMark);
  return bytes;
}

}  // namespace nerolith::playlist
