// How a form's controls are arranged, declared once and followed by every renderer.
#pragma once

#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "controls/buttons.h"
#include "controls/file_lists.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/picture_box.h"
#include "controls/progress_bar.h"
#include "controls/scroll_bar.h"
#include "controls/text_box.h"

namespace nerolith::controls {

/// How a placed thing looks; the renderer's theme knows what each means.
enum class Look {
  Plain,       // text on the panel
  Dim,         // text of lesser weight
  Title,       // the product's name in the caption strip
  CaptionKey,  // a small button of the caption strip (hide, close)
  Glass,       // panel: dark glass of the display
  Group,       // panel: a plate for controls that belong together
  Well,        // panel: a recess in the faceplate; a text box in one is shown, not edited
  Digital,     // the large time
  Song,        // the name of the song that plays
  Lamp,        // a round lamp in the label's back colour
  LampText,    // a clickable text beside a lamp
  Transport,   // a large push button with a lamp
  SongList,    // the list of songs
  Figure,      // a number of the foot strip
  Tag,         // a word in small, widely set capitals
  Notice,      // a warning
  Key,         // a push button whose caption is a label's
  Meter,       // a bar of the recording level, in the colours of its indicator
  Progress,    // a bar for work that goes on
};

/// A push button of the faceplate: `face` gives and receives clicks and mouse presses, `button`
/// gives caption, access key and enabled state, `lamp` (may be none) glows in it.
struct FaceButton {
  Label* face = nullptr;
  CommandButton* button = nullptr;
  Label* lamp = nullptr;
};

/// A switch of the display: `words` gives the text and receives clicks, on the lamp too; `lamp`
/// shows whether it is on.
struct LampSwitch {
  Label* lamp = nullptr;
  Label* words = nullptr;
};

using PlacedControl = std::variant<std::monostate, Label*, CommandButton*, OptionButton*, CheckBox*,
                                   TextBox*, ListBox*, ScrollBar*, ProgressBar*, DriveListBox*,
                                   DirListBox*, PictureBox*, FaceButton, LampSwitch>;

/// What tells one placed control from another; nullptr where nothing is placed.
inline const void* identityOf(const PlacedControl& control) {
  return std::visit(
      [](const auto& placed) -> const void* {
        using Placed = std::decay_t<decltype(placed)>;
        if constexpr (std::is_same_v<Placed, std::monostate>)
          return nullptr;
        else if constexpr (std::is_same_v<Placed, FaceButton>)
          return placed.face;
        else if constexpr (std::is_same_v<Placed, LampSwitch>)
          return placed.words;
        else
          return placed;
      },
      control);
}

/// A box of boxes. Lengths are in pixels at 96 dots per inch; renderers scale them. The order of
/// the declaration is the tab order.
struct Box {
  enum class Kind { Row, Column, Leaf, Space };

  Kind kind = Kind::Leaf;
  Look look = Look::Plain;
  PlacedControl control;
  std::vector<Box> children;
  int stretch = 0;  // share of the room that is left over
  int width = 0;    // fixed; 0: as its contents need
  int height = 0;
  int gap = 8;        // between children
  int margin = 0;     // around the children
  std::string words;  // fixed text of a leaf without a control

  Box& with(Look value) {
    look = value;
    return *this;
  }
  Box& stretched(int value) {
    stretch = value;
    return *this;
  }
  Box& sized(int w, int h) {
    width = w;
    height = h;
    return *this;
  }
  Box& spaced(int between, int around) {
    gap = between;
    margin = around;
    return *this;
  }
};

/// A control that is laid over the form below `anchor`, and as wide as the room there allows.
struct Overlay {
  PlacedControl control;
  PlacedControl anchor;
  int width = 420;
  int height = 320;
};

inline Box row(std::vector<Box> children) {
  Box box;
  box.kind = Box::Kind::Row;
  box.children = std::move(children);
  return box;
}

inline Box column(std::vector<Box> children) {
  Box box = row(std::move(children));
  box.kind = Box::Kind::Column;
  return box;
}

inline Box leaf(PlacedControl control, Look look = Look::Plain) {
  Box box;
  box.control = control;
  box.look = look;
  return box;
}

inline Box words(std::string text, Look look = Look::Plain) {
  Box box;
  box.words = std::move(text);
  box.look = look;
  return box;
}

inline Box space(int stretch = 1) {
  Box box;
  box.kind = Box::Kind::Space;
  box.stretch = stretch;
  return box;
}

}  // namespace nerolith::controls
