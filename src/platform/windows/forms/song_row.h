// How one entry of the song list is drawn.
#pragma once

#include "controls/list_box.h"
#include "platform/windows/forms/theme.h"

namespace nerolith::windows_forms {

struct SongRow {
  const std::string& text;
  controls::RowMarks marks;
  bool selected = false;
  bool current = false;
  bool enabled = true;
  bool focused = false;  // the list has the keyboard
};

/// Fills the whole canvas: played entries are dimmed, recent ones carry a star, the playing one a
/// triangle; long names are shortened in the middle.
void paintSongRow(Canvas& canvas, const Theme& theme, const SongRow& row);

}  // namespace nerolith::windows_forms
