#include "platform/windows/forms/shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace nerolith::windows_forms {
namespace {

constexpr int kSlices = 5;  // looked at in each row of pixels

struct Crossing {
  double x;
  int turn;
};

double signedArea(const std::vector<Point>& points) {
  double area = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const Point& a = points[i];
    const Point& b = points[(i + 1) % points.size()];
    area += a.x * b.y - b.x * a.y;
  }
  return area;
}

void addArc(std::vector<Point>& points, const Point& centre, double radius, double from,
            double to) {
  const int steps = std::max(3, static_cast<int>(std::ceil(radius * std::abs(to - from) / 1.2)));
  for (int i = 0; i <= steps; ++i) {
    const double angle = from + (to - from) * i / steps;
    points.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
  }
}

std::vector<Point> roundedOutline(const Area& area, double radius) {
  using std::numbers::pi;
  const double r = std::clamp(radius, 0.0, std::min(area.width(), area.height()) / 2);
  if (r <= 0)
    return {{area.left, area.top},
            {area.right, area.top},
            {area.right, area.bottom},
            {area.left, area.bottom}};
  std::vector<Point> points;
  addArc(points, {area.left + r, area.top + r}, r, pi, 1.5 * pi);
  addArc(points, {area.right - r, area.top + r}, r, 1.5 * pi, 2 * pi);
  addArc(points, {area.right - r, area.bottom - r}, r, 0, 0.5 * pi);
  addArc(points, {area.left + r, area.bottom - r}, r, 0.5 * pi, pi);
  return points;
}

void findCrossings(const Shape& shape, double y, std::vector<Crossing>& crossings) {
  crossings.clear();
  for (const auto& outline : shape.outlines()) {
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const Point& a = outline[i];
      const Point& b = outline[i + 1 == outline.size() ? 0 : i + 1];
      if ((a.y <= y) == (b.y <= y)) continue;
      crossings.push_back({a.x + (y - a.y) * (b.x - a.x) / (b.y - a.y), a.y < b.y ? 1 : -1});
    }
  }
  std::sort(crossings.begin(), crossings.end(),
            [](const Crossing& one, const Crossing& other) { return one.x < other.x; });
}

/// Adds the run [from, to) to the pixels, those at its ends in part.
void addRun(std::vector<float>& pixels, double from, double to) {
  from = std::max(from, 0.0);
  to = std::min(to, static_cast<double>(pixels.size()));
  if (to <= from) return;
  constexpr float whole = 1.0F / kSlices;
  const auto first = static_cast<std::size_t>(from);
  const auto last = std::min(static_cast<std::size_t>(to), pixels.size() - 1);
  if (first == last) {
    pixels[first] += static_cast<float>(to - from) * whole;
    return;
  }
  pixels[first] += static_cast<float>(static_cast<double>(first + 1) - from) * whole;
  for (std::size_t x = first + 1; x < last; ++x) pixels[x] += whole;
  pixels[last] += static_cast<float>(to - static_cast<double>(last)) * whole;
}

void addSlice(std::vector<float>& pixels, const std::vector<Crossing>& crossings, double left) {
  int winding = 0;
  for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
    winding += crossings[i].turn;
    if (winding != 0) addRun(pixels, crossings[i].x - left, crossings[i + 1].x - left);
  }
}

}  // namespace

Shape& Shape::polygon(std::vector<Point> points) {
  outlines_.push_back(std::move(points));
  return *this;
}

Shape& Shape::roundedRect(const Area& area, double radius) {
  return polygon(roundedOutline(area, radius));
}

Shape& Shape::ellipse(const Point& centre, double radius) {
  std::vector<Point> points;
  addArc(points, centre, radius, 0, 2 * std::numbers::pi);
  return polygon(std::move(points));
}

Shape& Shape::stroke(const std::vector<Point>& points, double width, bool closed) {
  const double half = width / 2;
  for (std::size_t i = 0; i < points.size(); ++i) {
    ellipse(points[i], half);
    if (i + 1 == points.size() && !closed) break;
    const Point& a = points[i];
    const Point& b = points[(i + 1) % points.size()];
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (length <= 0) continue;
    const double nx = -(b.y - a.y) / length * half;
    const double ny = (b.x - a.x) / length * half;
    std::vector<Point> side = {
        {a.x + nx, a.y + ny}, {b.x + nx, b.y + ny}, {b.x - nx, b.y - ny}, {a.x - nx, a.y - ny}};
    if (signedArea(side) < 0) std::reverse(side.begin(), side.end());
    polygon(std::move(side));
  }
  return *this;
}

Shape& Shape::ring(const Area& area, double radius, double width) {
  polygon(roundedOutline(area, radius));
  std::vector<Point> inner = roundedOutline(area.inset(width), std::max(radius - width, 0.0));
  std::reverse(inner.begin(), inner.end());
  return polygon(std::move(inner));
}

Shape& Shape::add(const Shape& other) {
  outlines_.insert(outlines_.end(), other.outlines_.begin(), other.outlines_.end());
  return *this;
}

Shape Shape::mapped(double scale, double lean, double dx, double dy) const {
  Shape result = *this;
  for (auto& outline : result.outlines_)
    for (Point& point : outline)
      point = {(point.x - lean * point.y) * scale + dx, point.y * scale + dy};
  return result;
}

Area Shape::bounds() const {
  Area area{1e9, 1e9, -1e9, -1e9};
  for (const auto& outline : outlines_)
    for (const Point& point : outline)
      area = {std::min(area.left, point.x), std::min(area.top, point.y),
              std::max(area.right, point.x), std::max(area.bottom, point.y)};
  return area;
}

void cover(const Shape& shape, int width, int height, const CoverageRow& row) {
  if (shape.outlines().empty()) return;
  const Area area = shape.bounds();
  const int left = std::max(0, static_cast<int>(std::floor(area.left)));
  const int right = std::min(width, static_cast<int>(std::ceil(area.right)));
  const int top = std::max(0, static_cast<int>(std::floor(area.top)));
  const int bottom = std::min(height, static_cast<int>(std::ceil(area.bottom)));
  if (left >= right) return;
  std::vector<float> pixels(static_cast<std::size_t>(right - left));
  std::vector<Crossing> crossings;
  for (int y = top; y < bottom; ++y) {
    std::fill(pixels.begin(), pixels.end(), 0.0F);
    for (int slice = 0; slice < kSlices; ++slice) {
      findCrossings(shape, y + (slice + 0.5) / kSlices, crossings);
      addSlice(pixels, crossings, left);
    }
    row(y, left, pixels);
  }
}

}  // namespace nerolith::windows_forms
