// The text of playlist files (M3U): one path on each line.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/byte_files.h"
#include "platform/text_encoding.h"

namespace nerolith::playlist {

/// What becomes of lines that are empty but for blanks.
enum class EmptyLines { Skipped, Kept };

/// Takes a playlist file's bytes block by block, and gives its entries in order: each line without
/// the blanks at its ends, lines that then begin with "#" (headers, titles, comments) left out,
/// every other one as it stands; a relative path is not resolved. Lines end with CR LF, LF or CR,
/// the last one at the end of the file, too. A byte-order mark of UTF-8 in front is no part of the
/// first line. Any bytes are taken.
class PlaylistReader {
 public:
  /// More than this is no playlist, but some other file under its name.
  static constexpr std::size_t kMostBytes = std::size_t{1} << 29;

  explicit PlaylistReader(const platform::TextEncoding& encoding,
                          EmptyLines emptyLines = EmptyLines::Skipped)
      : encoding_(encoding), emptyLines_(emptyLines) {}

  /// Fails (base::Failure) once there are more than `kMostBytes`.
  void take(std::string_view block);
  /// The entries; once, after the last block.
  std::vector<std::string> finish();

 private:
  void endLine(std::string_view rest);
  void addLine(std::string_view line);

  const platform::TextEncoding& encoding_;
  EmptyLines emptyLines_;
  std::vector<std::string> entries_;
  std::string begun_;  // of a line that the next block goes on with
  std::size_t bytes_ = 0;
  bool firstLine_ = true;
  bool afterReturn_ = false;  // the last block ended with CR: a LF belongs to it
};

/// The entries of a file. Fails as reading does.
std::vector<std::string> readPlaylist(const platform::ByteFiles& files, const std::string& path,
                                      const platform::TextEncoding& encoding,
                                      EmptyLines emptyLines = EmptyLines::Skipped);

/// The bytes of a playlist file with these lines: each ends with CR LF, there is no header.
///
/// A path that one line cannot hold (on Linux a name may have a line break in it, or a blank at its
/// end) is written as a "file://" address; the reader takes exactly such addresses back as paths,
/// and leaves those of other programs as they stand.
std::string playlistBytes(const std::vector<std::string>& lines,
                          const platform::TextEncoding& encoding);

}  // namespace nerolith::playlist
