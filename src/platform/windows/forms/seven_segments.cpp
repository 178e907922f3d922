#include "platform/windows/forms/seven_segments.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace nerolith::windows_forms {
namespace {

// Bars in the order top, upper right, lower right, bottom, lower left, upper left, middle.
constexpr std::array<std::uint8_t, 10> kDigits = {0x3F, 0x06, 0x5B, 0x4F, 0x66,
                                                  0x6D, 0x7D, 0x07, 0x7F, 0x6F};
constexpr std::uint8_t kDash = 0x40;

// All in shares of the height.
constexpr double kDigitWidth = 0.58;
constexpr double kColonWidth = 0.16;
constexpr double kSpacing = 0.16;
constexpr double kBar = 0.145;
constexpr double kSlit = 0.014;
constexpr double kLean = 0.07;

std::uint8_t barsOf(wchar_t sign) {
  if (sign == L'-') return kDash;
  return sign >= L'0' && sign <= L'9' ? kDigits[static_cast<std::size_t>(sign - L'0')] : 0;
}

double advanceOf(wchar_t sign) { return (sign == L':' ? kColonWidth : kDigitWidth) + kSpacing; }

double widthOf(const std::wstring& text) {
  double width = kLean - kSpacing;
  for (const wchar_t sign : text) width += advanceOf(sign);
  return width;
}

/// A bar with pointed ends between two points, horizontal or vertical.
std::vector<Point> bar(Point from, Point to) {
  constexpr double h = kBar / 2;
  if (from.y == to.y) {
    from.x += kSlit;
    to.x -= kSlit;
    return {from, {from.x + h, from.y - h}, {to.x - h, to.y - h},
            to,   {to.x - h, to.y + h},     {from.x + h, from.y + h}};
  }
  from.y += kSlit;
  to.y -= kSlit;
  return {from, {from.x + h, from.y + h}, {to.x + h, to.y - h},
          to,   {to.x - h, to.y - h},     {from.x - h, from.y + h}};
}

std::vector<std::vector<Point>> digit(std::uint8_t bars) {
  constexpr double h = kBar / 2;
  constexpr double right = kDigitWidth - h;
  constexpr std::array<std::pair<Point, Point>, 7> places = {{{{h, h}, {right, h}},
                                                              {{right, h}, {right, 0.5}},
                                                              {{right, 0.5}, {right, 1 - h}},
                                                              {{h, 1 - h}, {right, 1 - h}},
                                                              {{h, 0.5}, {h, 1 - h}},
                                                              {{h, h}, {h, 0.5}},
                                                              {{h, 0.5}, {right, 0.5}}}};
  std::vector<std::vector<Point>> outlines;
  for (std::size_t i = 0; i < places.size(); ++i)
    if (bars & (1U << i)) outlines.push_back(bar(places[i].first, places[i].second));
  return outlines;
}

std::vector<std::vector<Point>> colon() {
  constexpr double size = kBar * 1.1;
  constexpr double left = (kColonWidth - size) / 2;
  std::vector<std::vector<Point>> outlines;
  for (const double middle : {0.31, 0.69}) {
    const double top = middle - size / 2;
    outlines.push_back(
        {{left, top}, {left + size, top}, {left + size, top + size}, {left, top + size}});
  }
  return outlines;
}

std::vector<std::vector<Point>> outlinesOf(wchar_t sign, bool lit) {
  if (sign == L':') return lit ? colon() : std::vector<std::vector<Point>>();
  return digit(lit ? barsOf(sign) : static_cast<std::uint8_t>(~barsOf(sign)));
}

Shape shapeOf(const std::vector<std::vector<Point>>& outlines) {
  Shape shape;
  for (const auto& outline : outlines) shape.polygon(outline);
  return shape;
}

/// The light that the lit bars throw: three strokes of falling width around them.
void paintGlow(Canvas& canvas, const Shape& bars, const Ink& colour, double dot) {
  for (const double reach : {11.0, 7.0, 4.0}) {
    Shape light;
    for (const auto& outline : bars.outlines()) light.stroke(outline, reach * dot, true);
    canvas.fill(light, colour.faded(0.055F));
  }
}

}  // namespace

void paintSevenSegments(Canvas& canvas, const Area& room, const std::wstring& text,
                        const Ink& colour, SegmentGlow glow, double dot) {
  if (text.empty() || room.width() <= 0 || room.height() <= 0) return;
  const double scale = std::min(room.height(), room.width() / widthOf(text));
  const double top = std::round(room.centre().y - scale / 2);
  const bool soft = glow == SegmentGlow::Soft;
  double x = room.left + kLean * scale;
  for (const wchar_t sign : text) {
    const auto at = [&](bool lit) {
      return shapeOf(outlinesOf(sign, lit)).mapped(scale, kLean, std::round(x), top);
    };
    canvas.fill(at(false), colour.faded(soft ? 0.085F : 0.06F));
    const Shape bars = at(true);
    if (soft) paintGlow(canvas, bars, colour, dot);
    canvas.fill(bars, colour);
    x += advanceOf(sign) * scale;
  }
}

}  // namespace nerolith::windows_forms
