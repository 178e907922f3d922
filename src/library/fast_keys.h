// F1 to F10: select songs by the beginning of their names.
#pragma once

#include <string>

#include "base/signal.h"
#include "controls/buttons.h"
#include "controls/form.h"
#include "library/song_list.h"
#include "settings/live_settings.h"

namespace nerolith::library {

/// While Random is chosen, a function key selects every entry whose file name begins with the
/// key's text, ignoring case, instead of what was selected before; with Shift, in addition to it
/// (Shift with F10 is the system's other menu key, and never gets here). A key with an empty text
/// does nothing, nor does one with Alt or Control, which are the system's.
class FastKeys {
 public:
  /// `separator` stands between the folders of a path, '\\' or '/'.
  FastKeys(controls::Form& window, const controls::OptionButton& random, SongList& songs,
           const settings::LiveSettings& live, char separator);
  FastKeys(const FastKeys&) = delete;
  FastKeys& operator=(const FastKeys&) = delete;

 private:
  void pressed(const controls::KeyPress& press);
  void selectNamed(const std::string& beginning, bool adding);

  const controls::OptionButton& random_;
  SongList& songs_;
  const settings::LiveSettings& live_;
  char separator_;
  base::Subscription subscription_;
};

}  // namespace nerolith::library
