// A picture in memory that is drawn on, then shown at once.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/windows/forms/gdi.h"
#include "platform/windows/forms/shape.h"

namespace nerolith::windows_forms {

/// An opaque or translucent colour; channels 0..255, alpha 0..1.
struct Ink {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;
  float alpha = 1;

  Ink faded(float value) const { return {red, green, blue, value}; }
  COLORREF ref() const { return RGB(red, green, blue); }
  bool operator==(const Ink&) const = default;
};

/// 0 gives `one`, 1 gives `other`.
Ink mixed(const Ink& one, const Ink& other, double share);
/// Brighter for a factor above 1, darker below.
Ink scaled(const Ink& ink, double factor);

/// Which ink each place gets.
class Fill {
 public:
  struct Stop {
    double at;
    Ink ink;
  };

  Fill(const Ink& ink) : stops_{{0, ink}} {}  // a plain ink is a fill
  /// From `top` down to `bottom`.
  static Fill downwards(double top, double bottom, std::vector<Stop> stops);
  /// Around `centre`, out to `radius`.
  static Fill around(const Point& centre, double radius, std::vector<Stop> stops);

  bool plain() const { return kind_ == Kind::Plain; }
  Ink at(double x, double y) const;

 private:
  enum class Kind { Plain, Down, Around };

  Ink between(double share) const;

  Kind kind_ = Kind::Plain;
  Point from_;
  double length_ = 1;
  std::vector<Stop> stops_;
};

/// 32 bits for each pixel, rows from the top, smooth edges. Its drawing context takes the system's
/// own text calls. At least one pixel large.
class Canvas {
 public:
  Canvas(int width, int height);

  int width() const { return width_; }
  int height() const { return height_; }
  HDC dc() const { return dc_.get(); }
  Area area() const { return {0, 0, double(width_), double(height_)}; }

  void fill(const Shape& shape, const Fill& fill);
  /// Whole pixels only.
  void fillRect(const RECT& area, const Fill& fill);
  /// Copies `from`'s pixels beginning at (x, y) over the whole canvas.
  void copyFrom(const Canvas& from, int x, int y);
  void showOn(HDC target, const RECT& part) const;

  /// Straight access: 0x00RRGGBB.
  std::uint32_t* row(int y) { return pixels_ + static_cast<std::ptrdiff_t>(y) * width_; }

 private:
  static void blend(std::uint32_t& pixel, const Ink& ink, float coverage);

  int width_;
  int height_;
  MemoryDc dc_;
  Bitmap bitmap_;
  std::uint32_t* pixels_ = nullptr;
  std::vector<std::uint32_t> spare_;  // drawn into where the system has no bitmap to give
};

}  // namespace nerolith::windows_forms
