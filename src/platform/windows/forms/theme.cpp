#include "platform/windows/forms/theme.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace nerolith::windows_forms {
namespace {

using controls::Look;

constexpr double kLegible = 3.0;

double linear(int channel) {
  const double value = channel / 255.0;
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double luminance(const Ink& colour) {
  return 0.2126 * linear(colour.red) + 0.7152 * linear(colour.green) + 0.0722 * linear(colour.blue);
}

/// The family that the user chose for messages.
std::wstring messageFace() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
    return L"Segoe UI";
  return metrics.lfMessageFont.lfFaceName;
}

}  // namespace

Ink inkOf(controls::Colour colour) {
  return {static_cast<std::uint8_t>(controls::redOf(colour)),
          static_cast<std::uint8_t>(controls::greenOf(colour)),
          static_cast<std::uint8_t>(controls::blueOf(colour))};
}

bool lampLit(const Ink& colour) {
  const auto [low, high] = std::minmax({colour.red, colour.green, colour.blue});
  return high - low > 40;
}

double contrastRatio(const Ink& one, const Ink& other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

Ink glassFor(const Ink& colour) {
  return contrastRatio(colour, ink::kGlass) >= kLegible ? ink::kGlass : ink::kLightGlass;
}

Ink inkFor(const Ink& background) {
  constexpr Ink dark{0x14, 0x17, 0x1a};
  return contrastRatio(ink::kPlain, background) >= contrastRatio(dark, background) ? ink::kPlain
                                                                                   : dark;
}

Ink onPanel(const Ink& colour, const Ink& panelInk) {
  return luminance(panelInk) < 0.2 ? scaled(colour, 1 / 2.1) : colour;
}

Theme::Theme(int dpi)
    : dpi_(dpi),
      face_(messageFace()),
      plain_(makeFont(12, FW_NORMAL)),
      title_(makeFont(13, FW_NORMAL)),
      captionKey_(makeFont(15, FW_NORMAL)),
      song_(makeFont(20, FW_NORMAL)),
      list_(makeFont(13, FW_NORMAL)),
      bold_(makeFont(13, FW_BOLD)),
      small_(makeFont(10, FW_NORMAL)) {}

Font Theme::makeFont(int pixels, int weight) const {
  return Font(CreateFontW(-px(pixels), 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                          OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, CLEARTYPE_QUALITY,
                          DEFAULT_PITCH | FF_SWISS, face_.c_str()));
}

HFONT Theme::font(Look look) const {
  switch (look) {
    case Look::Title:
      return title_.get();
    case Look::CaptionKey:
      return captionKey_.get();
    case Look::Song:
      return song_.get();
    case Look::SongList:
      return list_.get();
    case Look::Tag:
      return small_.get();
    default:
      return plain_.get();
  }
}

int Theme::spacing(Look look) const {
  if (look == Look::Tag) return std::max(1, static_cast<int>(std::lround(exact(1.3))));
  return look == Look::Title ? static_cast<int>(std::lround(exact(0.6))) : 0;
}

SIZE Theme::measure(Look look, const std::wstring& text) const {
  const WindowDc dc(nullptr);
  const Selected font(dc.get(), this->font(look));
  SIZE size{};
  GetTextExtentPoint32W(dc.get(), text.c_str(), static_cast<int>(text.size()), &size);
  TEXTMETRICW metrics{};
  GetTextMetricsW(dc.get(), &metrics);
  size.cx += spacing(look) * static_cast<int>(text.size());
  size.cy = metrics.tmHeight;
  return size;
}

void Theme::drawText(Canvas& canvas, const std::wstring& text, RECT room, HFONT font,
                     const Ink& colour, Align align, Shorten shorten, bool mnemonic) const {
  const Selected selected(canvas.dc(), font);
  SetTextColor(canvas.dc(), colour.ref());
  UINT flags = DT_SINGLELINE | DT_VCENTER | DT_NOCLIP;
  flags |= align == Align::Left ? DT_LEFT : align == Align::Centre ? DT_CENTER : DT_RIGHT;
  if (!mnemonic) flags |= DT_NOPREFIX;
  // Without an ampersand the end is cut; the middle is cut by measuring.
  if (shorten == Shorten::End) {
    DrawTextW(canvas.dc(), text.c_str(), static_cast<int>(text.size()), &room,
              flags | DT_END_ELLIPSIS);
    return;
  }
  const auto wide = [&](const std::wstring& words) {
    SIZE size{};
    GetTextExtentPoint32W(canvas.dc(), words.c_str(), static_cast<int>(words.size()), &size);
    return size.cx;
  };
  std::wstring shown = text;
  const LONG width = room.right - room.left;
  if (wide(shown) > width) {
    std::size_t low = 0;
    std::size_t high = text.size();
    while (low < high) {
      const std::size_t kept = (low + high + 1) / 2;
      shown = text.substr(0, (kept + 1) / 2) + L'\x2026' + text.substr(text.size() - kept / 2);
      if (wide(shown) <= width)
        low = kept;
      else
        high = kept - 1;
    }
    shown = text.substr(0, (low + 1) / 2) + L'\x2026' + text.substr(text.size() - low / 2);
  }
  DrawTextW(canvas.dc(), shown.c_str(), static_cast<int>(shown.size()), &room, flags);
}

void Theme::paintPanel(Canvas& canvas) const {
  canvas.fillRect(
      {0, 0, canvas.width(), canvas.height()},
      Fill::downwards(0, canvas.height(),
                      {{0, ink::kPanelTop}, {0.45, ink::kPanelMiddle}, {1, ink::kPanelBottom}}));
}

void Theme::paintRecess(Canvas& canvas, const Area& area, const Ink& top, const Ink& bottom) const {
  const double round = exact(kRound);
  const double line = std::max(1.0, exact(1));
  canvas.fill(Shape().roundedRect(area, round), ink::kWhite.faded(22 / 255.0F));
  const Area inside{area.left, area.top, area.right, area.bottom - line};
  canvas.fill(Shape().roundedRect(inside, round),
              Fill::downwards(inside.top, inside.bottom, {{0, top}, {1, bottom}}));
  for (int depth = 0; depth < 3; ++depth) {
    const Area rim = inside.inset(depth * line);
    const float dark = static_cast<float>(110 - 34 * depth) / 255;
    const double reach = round + exact(8);
    canvas.fill(Shape().ring(rim, round, line), Fill::downwards(rim.top, rim.top + reach,
                                                                {{0, ink::kBlack.faded(dark)},
                                                                 {0.5, ink::kBlack.faded(dark)},
                                                                 {1, ink::kBlack.faded(0)}}));
  }
}

void Theme::paintKey(Canvas& canvas, const Area& area, KeyState state, const Ink* tint) const {
  const double round = exact(kRound);
  const double line = std::max(1.0, exact(1));
  canvas.fill(Shape().roundedRect(area, round), ink::kBlack.faded(90 / 255.0F));
  const Area key{area.left, area.top, area.right, area.bottom - line};
  Ink top = ink::kButtonTop;
  Ink bottom = ink::kButtonBottom;
  if (tint) std::tie(top, bottom) = std::pair(mixed(top, *tint, 0.09), mixed(bottom, *tint, 0.08));
  if (state == KeyState::Hovered)
    std::tie(top, bottom) = std::pair(scaled(top, 1.12), scaled(bottom, 1.12));
  if (state == KeyState::Pressed)
    std::tie(top, bottom) = std::pair(scaled(bottom, 1 / 1.18), scaled(bottom, 1.04));
  if (state == KeyState::Disabled) top = bottom = mixed(ink::kButtonBottom, ink::kPanelMiddle, 0.5);
  canvas.fill(Shape().roundedRect(key, round),
              Fill::downwards(key.top, key.bottom, {{0, top}, {1, bottom}}));
  if (state != KeyState::Idle && state != KeyState::Hovered) return;
  canvas.fill(Shape().polygon({{key.left + round, key.top},
                               {key.right - round, key.top},
                               {key.right - round, key.top + line},
                               {key.left + round, key.top + line}}),
              ink::kWhite.faded(34 / 255.0F));
}

void Theme::paintLamp(Canvas& canvas, const Point& centre, double size, const Ink& colour) const {
  const double radius = exact(size) / 2;
  const bool lit = lampLit(colour);
  if (lit) {
    const double reach = radius + exact(4);
    canvas.fill(Shape().ellipse(centre, reach), Fill::around(centre, reach,
                                                             {{0, colour.faded(150 / 255.0F)},
                                                              {0.6, colour.faded(90 / 255.0F)},
                                                              {1, colour.faded(0)}}));
  }
  constexpr Ink off{0x7c, 0x82, 0x88};
  canvas.fill(Shape().ellipse(centre, radius + 0.5), ink::kBlack.faded(150 / 255.0F));
  canvas.fill(Shape().ellipse(centre, radius - 0.5),
              Fill::around({centre.x - radius * 0.35, centre.y - radius * 0.4}, radius * 1.4,
                           {{0, lit ? mixed(colour, ink::kWhite, 0.62) : scaled(off, 1.35)},
                            {0.55, lit ? colour : scaled(off, 1 / 1.25)},
                            {1, lit ? scaled(colour, 1 / 1.5) : scaled(off, 1 / 1.9)}}));
}

void Theme::paintPlate(Canvas& canvas, const Area& area) const {
  canvas.fill(Shape().roundedRect(area, exact(kRound)), ink::kBlack.faded(46 / 255.0F));
  canvas.fill(Shape().ring(area, exact(kRound), std::max(1.0, exact(1))),
              ink::kWhite.faded(20 / 255.0F));
}

void Theme::paintTick(Canvas& canvas, const Area& box, const Ink& colour) const {
  const auto at = [&box](double x, double y) {
    return Point{box.left + x * box.width(), box.top + y * box.height()};
  };
  canvas.fill(Shape().stroke({at(0.24, 0.52), at(0.43, 0.70), at(0.77, 0.28)}, exact(2.2)), colour);
}

void Theme::paintDash(Canvas& canvas, const Area& box, const Ink& colour) const {
  const double middle = box.centre().y;
  canvas.fill(Shape().stroke({{box.left + 0.28 * box.width(), middle},
                              {box.left + 0.72 * box.width(), middle}},
                             exact(2.2)),
              colour);
}

void Theme::paintFocus(Canvas& canvas, const Area& area, const Ink& colour) const {
  canvas.fill(Shape().ring(area.inset(exact(0.25)), exact(kRound - 0.5), exact(1.5)), colour);
}

}  // namespace nerolith::windows_forms
