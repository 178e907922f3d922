// What holds of editing any bytes as a playlist: the editor against the rules told step by step.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/simulated/simulated_machine.h"
#include "playlist/editor_window.h"
#include "playlist/playlist_text.h"

namespace nerolith::playlist {

/// An editor on a machine in memory with `selected` songs waiting, and a list of lines that every
/// change is made to one song at a time.
class EditedPlaylist {
 public:
  EditedPlaylist(std::string_view bytes, int selected, char separator)
      : machine_(separator),
        path_(machine_.files.currentDirectory() + separator + "list.m3u"),
        editor_({form_, songs_, machine_.bytes, machine_.encoding, separator},
                {[this] { return machine_.files.currentDirectory(); }, [] {}, [] {}}) {
    list1_.setItems({"one.mp3", "two.mp3", "three.mp3"});
    for (int i = 0; i < selected; ++i) list1_.setSelected(i, true);
    const std::string prefix = machine_.files.currentDirectory() + separator;
    for (int i = 0; i < selected; ++i) waiting_.push_back(prefix + list1_.item(i));
    machine_.bytes.put(path_, std::string(bytes));
    lines_ = readPlaylist(machine_.bytes, path_, machine_.encoding, EmptyLines::Kept);
    wasEmpty_ = lines_.empty();
    before_ = bytes;
    editor_.playlistfile(path_);
    if (wasEmpty_) add(0, false);
  }

  /// One change, told by a byte: where, and which of the four.
  void change(unsigned char what) {
    const bool any = form_.List1.count() > 0;
    form_.List1.setListIndex(any ? what / 4 % form_.List1.count() : -1);
    const int at = any ? form_.List1.listIndex() : 0;
    if (what % 4 == 0) editor_.insertBefore(), add(at, false);
    if (what % 4 == 1) editor_.insertAfter(), add(at, true);
    if (what % 4 == 2) editor_.replace(), add(at, true), lines_.erase(lines_.begin() + at);
    if (what % 4 == 3 && any) editor_.remove(), lines_.erase(lines_.begin() + at);
    changed_ = changed_ || what % 4 != 3 || any;
  }

  /// The rule that is broken; nothing when all is well.
  std::optional<std::string> broken() const {
    if (form_.List1.items() != lines_) return "the list is not what the steps lead to";
    const std::string& file = machine_.bytes.at(path_);
    if (!changed_ && !wasEmpty_) {
      if (file != before_) return "opening has changed the file";
    } else if (file != playlistBytes(lines_, machine_.encoding)) {
      return "the file is not what the list shows";
    }
    return std::nullopt;
  }
  bool ended() const { return wasEmpty_; }

 private:
  void add(int at, bool behind) {
    if (lines_.empty()) lines_.push_back("\r\n");
    for (const std::string& song : waiting_) lines_.insert(lines_.begin() + at++ + behind, song);
    if (wasEmpty_) lines_.pop_back();
  }

  platform::simulated::SimulatedMachine machine_;
  std::string path_, before_;
  controls::ListBox list1_;
  controls::TextBox text1_, text2_;
  library::SongList songs_{list1_, text1_, text2_};
  forms::EditorForm form_;
  EditorWindow editor_;
  Lines lines_, waiting_;
  bool wasEmpty_ = false, changed_ = false;
};

/// The rule that these changes to these bytes break; nothing when all is well.
inline std::optional<std::string> brokenEdit(std::string_view bytes, std::string_view changes,
                                             char separator) {
  EditedPlaylist playlist(bytes, static_cast<int>(changes.size() % 4), separator);
  if (auto broken = playlist.broken()) return broken;
  for (const char change : changes) {
    if (playlist.ended()) break;  // it has closed itself
    playlist.change(static_cast<unsigned char>(change));
    if (auto broken = playlist.broken()) return broken;
  }
  return std::nullopt;
}

}  // namespace nerolith::playlist
