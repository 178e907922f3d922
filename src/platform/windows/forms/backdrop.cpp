#include "platform/windows/forms/backdrop.h"

#include <algorithm>
#include <cmath>

namespace nerolith::windows_forms {
namespace {

Ink meanOf(const controls::Picture& picture) {
  std::uint64_t red = 0;
  std::uint64_t green = 0;
  std::uint64_t blue = 0;
  for (const std::uint32_t pixel : picture.pixels) {
    red += pixel >> 16 & 0xFF;
    green += pixel >> 8 & 0xFF;
    blue += pixel & 0xFF;
  }
  const std::uint64_t count = picture.pixels.size();
  return {static_cast<std::uint8_t>(red / count), static_cast<std::uint8_t>(green / count),
          static_cast<std::uint8_t>(blue / count)};
}

}  // namespace

void Backdrop::setPicture(const controls::Picture& picture) {
  forget();
  picture_.reset();
  ink_ = inkFor(ink::kPanelMiddle);
  if (picture.empty() || picture.width <= 0 || picture.height <= 0) return;
  picture_ = std::make_unique<Canvas>(picture.width, picture.height);
  std::copy(picture.pixels.begin(), picture.pixels.end(), picture_->row(0));
  ink_ = inkFor(meanOf(picture));
}

void Backdrop::paintPicture(Canvas& canvas) const {
  const double cover = std::max(double(canvas.width()) / picture_->width(),
                                double(canvas.height()) / picture_->height());
  const int width = static_cast<int>(std::ceil(picture_->width() * cover));
  const int height = static_cast<int>(std::ceil(picture_->height() * cover));
  SetStretchBltMode(canvas.dc(), HALFTONE);
  SetBrushOrgEx(canvas.dc(), 0, 0, nullptr);
  StretchBlt(canvas.dc(), (canvas.width() - width) / 2, (canvas.height() - height) / 2, width,
             height, picture_->dc(), 0, 0, picture_->width(), picture_->height(), SRCCOPY);
}

const Canvas& Backdrop::painted(int width, int height, const FormLayout& layout,
                                const Theme& theme) {
  if (painted_ && painted_->width() == width && painted_->height() == height) return *painted_;
  painted_ = std::make_unique<Canvas>(width, height);
  if (picture_)
    paintPicture(*painted_);
  else
    theme.paintPanel(*painted_);
  layout.paintPanels(*painted_, theme);
  return *painted_;
}

}  // namespace nerolith::windows_forms
