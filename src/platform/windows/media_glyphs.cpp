#include "platform/windows/media_glyphs.h"

#include <algorithm>
#include <cmath>

namespace nerolith::windows {
namespace {

using Bitmap = Handle<HBITMAP, &DeleteObject>;

// In parts of the icon's size.
constexpr double kRim = 0.07;
constexpr double kTop = 0.16, kBottom = 0.84;
constexpr double kHalf = (kBottom - kTop) / 2;

struct Point {
  double x, y;
};

/// How far a point lies outside of a box; negative inside.
double toBox(Point p, double left, double right, double top = kTop, double bottom = kBottom) {
  return std::max({left - p.x, p.x - right, top - p.y, p.y - bottom});
}

/// The same for a triangle that points to the right.
double toTriangle(Point p, double left, double tip) {
  const double width = tip - left;
  const double slope = std::hypot(kHalf, width);
  const double toSide = (kHalf * (p.x - tip) + width * std::abs(p.y - 0.5)) / slope;
  return std::max(left - p.x, toSide);
}

double toGlyph(Glyph glyph, Point p) {
  switch (glyph) {
    case Glyph::Play:
      return toTriangle(p, 0.22, 0.86);
    case Glyph::Pause:
      return std::min(toBox(p, 0.22, 0.42), toBox(p, 0.58, 0.78));
    case Glyph::Next:
      return std::min(toTriangle(p, 0.14, 0.70), toBox(p, 0.70, 0.86));
    default:
      return toBox(p, 0.20, 0.80, 0.20, 0.80);
  }
}

struct Colour {
  double red, green, blue;
};
constexpr Colour kSign{0xF4, 0xF7, 0xF9};
constexpr Colour kEdge{0x1C, 0x21, 0x26};

double covered(double distance, double size) { return std::clamp(0.5 - distance * size, 0.0, 1.0); }

std::uint32_t mixed(double sign, double rim) {
  const double alpha = std::max(sign, rim);
  if (alpha <= 0) return 0;
  const auto part = [&](double light, double dark) {
    return static_cast<std::uint32_t>(std::lround((light * sign + dark * (alpha - sign)) / alpha));
  };
  return static_cast<std::uint32_t>(std::lround(alpha * 255)) << 24 |
         part(kSign.red, kEdge.red) << 16 | part(kSign.green, kEdge.green) << 8 |
         part(kSign.blue, kEdge.blue);
}

}  // namespace

std::vector<std::uint32_t> glyphPixels(Glyph glyph, int size) {
  std::vector<std::uint32_t> pixels;
  for (int y = 0; y < size; ++y)
    for (int x = 0; x < size; ++x) {
      const double away = toGlyph(glyph, {(x + 0.5) / size, (y + 0.5) / size});
      pixels.push_back(mixed(covered(away, size), covered(away - kRim, size)));
    }
  return pixels;
}

Icon glyphIcon(Glyph glyph, int size) {
  BITMAPINFO form{};
  form.bmiHeader = {sizeof form.bmiHeader, size, -size, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  void* bits = nullptr;
  const Bitmap colour(CreateDIBSection(nullptr, &form, DIB_RGB_COLORS, &bits, nullptr, 0));
  const std::vector<std::uint16_t> nothing(static_cast<std::size_t>((size + 15) / 16 * size));
  const Bitmap mask(CreateBitmap(size, size, 1, 1, nothing.data()));
  if (!colour || !mask || !bits) return {};
  const std::vector<std::uint32_t> pixels = glyphPixels(glyph, size);
  std::copy(pixels.begin(), pixels.end(), static_cast<std::uint32_t*>(bits));
  ICONINFO parts{TRUE, 0, 0, mask.get(), colour.get()};
  return Icon(CreateIconIndirect(&parts));
}

}  // namespace nerolith::windows
