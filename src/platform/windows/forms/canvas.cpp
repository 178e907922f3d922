#include "platform/windows/forms/canvas.h"

#include <algorithm>
#include <cmath>

namespace nerolith::windows_forms {
namespace {

std::uint8_t channel(double value) {
  return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

}  // namespace

Ink mixed(const Ink& one, const Ink& other, double share) {
  const auto part = [share](int a, int b) { return channel(a + (b - a) * share); };
  return {part(one.red, other.red), part(one.green, other.green), part(one.blue, other.blue),
          static_cast<float>(one.alpha + (other.alpha - one.alpha) * share)};
}

Ink scaled(const Ink& ink, double factor) {
  return {channel(ink.red * factor), channel(ink.green * factor), channel(ink.blue * factor),
          ink.alpha};
}

Fill Fill::downwards(double top, double bottom, std::vector<Stop> stops) {
  Fill fill(stops.front().ink);
  fill.kind_ = Kind::Down;
  fill.from_ = {0, top};
  fill.length_ = std::max(bottom - top, 1e-6);
  fill.stops_ = std::move(stops);
  return fill;
}

Fill Fill::around(const Point& centre, double radius, std::vector<Stop> stops) {
  Fill fill(stops.front().ink);
  fill.kind_ = Kind::Around;
  fill.from_ = centre;
  fill.length_ = std::max(radius, 1e-6);
  fill.stops_ = std::move(stops);
  return fill;
}

Ink Fill::between(double share) const {
  if (share <= stops_.front().at) return stops_.front().ink;
  for (std::size_t i = 1; i < stops_.size(); ++i) {
    if (share > stops_[i].at) continue;
    const double span = std::max(stops_[i].at - stops_[i - 1].at, 1e-6);
    return mixed(stops_[i - 1].ink, stops_[i].ink, (share - stops_[i - 1].at) / span);
  }
  return stops_.back().ink;
}

Ink Fill::at(double x, double y) const {
  switch (kind_) {
    case Kind::Down:
      return between((y - from_.y) / length_);
    case Kind::Around:
      return between(std::hypot(x - from_.x, y - from_.y) / length_);
    default:
      return stops_.front().ink;
  }
}

Canvas::Canvas(int width, int height)
    : width_(std::max(width, 1)), height_(std::max(height, 1)), dc_(CreateCompatibleDC(nullptr)) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width_;
  info.bmiHeader.biHeight = -height_;  // rows from the top
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* pixels = nullptr;
  bitmap_ = Bitmap(CreateDIBSection(dc_.get(), &info, DIB_RGB_COLORS, &pixels, nullptr, 0));
  if (bitmap_) SelectObject(dc_.get(), bitmap_.get());
  pixels_ = static_cast<std::uint32_t*>(pixels);
  if (!pixels_) {
    spare_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
    pixels_ = spare_.data();
  }
  SetBkMode(dc_.get(), TRANSPARENT);
}

void Canvas::blend(std::uint32_t& pixel, const Ink& ink, float coverage) {
  const float share = std::min(coverage, 1.0F) * ink.alpha;
  if (share <= 0.002F) return;
  const auto part = [share](std::uint32_t under, int over) {
    const auto below = static_cast<float>(under);
    const float aboveHalf = below + (static_cast<float>(over) - below) * share + 0.5F;
    return static_cast<std::uint32_t>(aboveHalf);
  };
  pixel = part(pixel >> 16 & 0xFF, ink.red) << 16 | part(pixel >> 8 & 0xFF, ink.green) << 8 |
          part(pixel & 0xFF, ink.blue);
}

void Canvas::fill(const Shape& shape, const Fill& fill) {
  GdiFlush();
  cover(shape, width_, height_, [&](int y, int x, const std::vector<float>& coverage) {
    std::uint32_t* pixel = row(y) + x;
    const bool changes = !fill.plain();
    Ink ink = fill.at(x, y);
    for (const float share : coverage) {
      if (share > 0) {
        if (changes) ink = fill.at(x + 0.5, y + 0.5);
        blend(*pixel, ink, share);
      }
      ++pixel;
      ++x;
    }
  });
}

void Canvas::fillRect(const RECT& area, const Fill& fill) {
  GdiFlush();
  const int right = std::min<int>(area.right, width_);
  const int bottom = std::min<int>(area.bottom, height_);
  for (int y = std::max<int>(area.top, 0); y < bottom; ++y)
    for (int x = std::max<int>(area.left, 0); x < right; ++x)
      blend(row(y)[x], fill.at(x + 0.5, y + 0.5), 1);
}

void Canvas::copyFrom(const Canvas& from, int x, int y) {
  BitBlt(dc(), 0, 0, width_, height_, from.dc(), x, y, SRCCOPY);
}

void Canvas::showOn(HDC target, const RECT& part) const {
  BitBlt(target, part.left, part.top, part.right - part.left, part.bottom - part.top, dc(),
         part.left, part.top, SRCCOPY);
}

}  // namespace nerolith::windows_forms
