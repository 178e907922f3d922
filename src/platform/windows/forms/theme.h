// Colours, type and measures of the faceplate, and the few shapes that everything is made of.
#pragma once

#include <string>

#include "controls/colour.h"
#include "controls/layout.h"
#include "platform/windows/forms/canvas.h"

namespace nerolith::windows_forms {

namespace ink {
inline constexpr Ink kPanelTop{0x2d, 0x32, 0x38};
inline constexpr Ink kPanelMiddle{0x20, 0x24, 0x29};
inline constexpr Ink kPanelBottom{0x18, 0x1b, 0x1f};
inline constexpr Ink kPlain{0xe4, 0xe9, 0xee};
inline constexpr Ink kDim{0x9a, 0xa5, 0xb0};
inline constexpr Ink kFaint{0x79, 0x83, 0x8c};
inline constexpr Ink kGlass{0x0b, 0x11, 0x0f};
inline constexpr Ink kGlassBottom{0x11, 0x1a, 0x17};
inline constexpr Ink kLightGlass{0xd3, 0xdd, 0xd6};
inline constexpr Ink kOnGlass{0xe6, 0xf0, 0xea};
inline constexpr Ink kOnGlassDim{0x8d, 0xa3, 0x99};
inline constexpr Ink kWell{0x12, 0x15, 0x18};
inline constexpr Ink kButtonTop{0x40, 0x48, 0x51};
inline constexpr Ink kButtonBottom{0x2b, 0x31, 0x38};
inline constexpr Ink kAccent{0x3f, 0xb0, 0x70};
inline constexpr Ink kAmber{0xd2, 0x9c, 0x3a};
inline constexpr Ink kSelection{0x27, 0x4a, 0x63};
inline constexpr Ink kOnSelection{0xf2, 0xf7, 0xfb};
inline constexpr Ink kPlaying{0x8b, 0xe8, 0xac};
inline constexpr Ink kFocus{0x6f, 0xb6, 0xe8};
inline constexpr Ink kWhite{0xff, 0xff, 0xff};
inline constexpr Ink kBlack{0, 0, 0};
}  // namespace ink

Ink inkOf(controls::Colour colour);
/// A lamp whose colour is none but grey is off.
bool lampLit(const Ink& colour);
/// Contrast of two opaque colours as the accessibility guidelines define it: 1 (none) .. 21.
double contrastRatio(const Ink& one, const Ink& other);
/// The glass behind a text of this colour: dark where the colour stands out from dark glass by 3:1
/// or more, else light.
Ink glassFor(const Ink& colour);
/// White or near black, whichever reads better on `background`.
Ink inkFor(const Ink& background);
/// `colour` as it can be read on a panel whose ink is `panelInk`: the panel may be a light picture.
Ink onPanel(const Ink& colour, const Ink& panelInk);

enum class Align { Left, Centre, Right };
/// How a text that is too long is shortened.
enum class Shorten { End, Middle };

/// Type and measures for one display's dots per inch, and the painting in them. Lengths named in
/// the methods' comments are in pixels at 96 dots per inch; areas are in real pixels.
class Theme {
 public:
  explicit Theme(int dpi);

  int dpi() const { return dpi_; }
  /// A length at 96 dots per inch, in real pixels.
  int px(int length) const { return MulDiv(length, dpi_, 96); }
  double exact(double length) const { return length * dpi_ / 96; }

  HFONT font(controls::Look look) const;
  HFONT boldFont() const { return bold_.get(); }
  HFONT smallFont() const { return small_.get(); }
  SIZE measure(controls::Look look, const std::wstring& text) const;

  /// The words of `look`, with "&" as an ordinary sign unless `mnemonic`.
  void drawText(Canvas& canvas, const std::wstring& text, RECT room, HFONT font, const Ink& colour,
                Align align = Align::Left, Shorten shorten = Shorten::End,
                bool mnemonic = false) const;

  void paintPanel(Canvas& canvas) const;
  void paintRecess(Canvas& canvas, const Area& area, const Ink& top, const Ink& bottom) const;
  enum class KeyState { Idle, Hovered, Pressed, Disabled };
  /// A raised key; `tint` (may be null) colours it softly.
  void paintKey(Canvas& canvas, const Area& area, KeyState state, const Ink* tint) const;
  /// `size` at 96 dots per inch; a lit lamp throws a soft light.
  void paintLamp(Canvas& canvas, const Point& centre, double size, const Ink& colour) const;
  /// A plate that holds controls together: a shade darker than the panel, with a fine edge.
  void paintPlate(Canvas& canvas, const Area& area) const;
  /// A tick, or the dash of what is neither on nor off, in the room of a check box.
  void paintTick(Canvas& canvas, const Area& box, const Ink& colour) const;
  void paintDash(Canvas& canvas, const Area& box, const Ink& colour) const;
  /// The ring around what has the keyboard.
  void paintFocus(Canvas& canvas, const Area& area, const Ink& colour = ink::kFocus) const;

  static constexpr int kRowHeight = 23;
  static constexpr int kLampSize = 11;
  static constexpr double kRound = 5;

 private:
  Font makeFont(int pixels, int weight) const;
  /// Added between the letters of widely set words, in real pixels.
  int spacing(controls::Look look) const;

  int dpi_;
  std::wstring face_;
  Font plain_, title_, captionKey_, song_, list_, bold_, small_;
};

}  // namespace nerolith::windows_forms
