// Outlines, and how much of each pixel they cover.
#pragma once

#include <functional>
#include <vector>

namespace nerolith::windows_forms {

struct Point {
  double x = 0;
  double y = 0;
};

struct Area {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  double width() const { return right - left; }
  double height() const { return bottom - top; }
  Point centre() const { return {(left + right) / 2, (top + bottom) / 2}; }
  Area inset(double by) const { return {left + by, top + by, right - by, bottom - by}; }
};

/// Closed outlines; what any of them winds around is inside. Lengths are in pixels, y runs down.
class Shape {
 public:
  Shape& polygon(std::vector<Point> points);
  Shape& roundedRect(const Area& area, double radius);
  Shape& ellipse(const Point& centre, double radius);
  /// A line with round ends along the points; `closed` joins the last to the first.
  Shape& stroke(const std::vector<Point>& points, double width, bool closed = false);
  /// The ring between the outline of `area` and one `width` further in.
  Shape& ring(const Area& area, double radius, double width);
  Shape& add(const Shape& other);
  /// Leans and moves every point: (x, y) -> (x - lean * y + dx, y + dy) after scaling.
  Shape mapped(double scale, double lean, double dx, double dy) const;

  const std::vector<std::vector<Point>>& outlines() const { return outlines_; }
  Area bounds() const;

 private:
  std::vector<std::vector<Point>> outlines_;
};

/// Calls `row` with (y, first x, coverages 0..1) for each row of pixels that the shape touches,
/// within a surface of `width` by `height` pixels.
using CoverageRow = std::function<void(int y, int x, const std::vector<float>& coverage)>;
void cover(const Shape& shape, int width, int height, const CoverageRow& row);

}  // namespace nerolith::windows_forms
