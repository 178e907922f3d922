#include "platform/windows/forms/picture_view.h"

#include <windowsx.h>

#include <algorithm>

#include "platform/windows/forms/quietly.h"
#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr int kIconResource = 1;
constexpr int kSide = 48;
constexpr int kRim = 6;

using Icon = Owned<HICON, DestroyIcon>;

}  // namespace

PictureView::PictureView(FormGround& ground, controls::PictureBox& picture)
    : ControlView(ground, picture), picture_(picture) {
  create({L"STATIC", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SS_NOTIFY | SS_NOPREFIX, 0,
          ground.window(), wideOf(picture.accessibleName()).c_str()});
  bind();
}

Extent PictureView::extent() const {
  const int side = theme().px(kSide);
  return {side, side, side, side};
}

void PictureView::paint(Canvas& canvas) {
  theme().paintRecess(canvas, canvas.area(), ink::kWell, ink::kWell);
  const int side = std::min(canvas.width(), canvas.height()) - 2 * theme().px(kRim);
  const Icon icon(
      static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIconResource),
                                    IMAGE_ICON, side, side, LR_DEFAULTCOLOR)));
  if (icon)
    DrawIconEx(canvas.dc(), (canvas.width() - side) / 2, (canvas.height() - side) / 2, icon.get(),
               side, side, 0, nullptr, DI_NORMAL);
}

std::optional<LRESULT> PictureView::onOwnMessage(UINT message, WPARAM, LPARAM second) {
  if (message != WM_MOUSEMOVE) return std::nullopt;
  quietly([&] { picture_.userMouseMove(GET_X_LPARAM(second), GET_Y_LPARAM(second)); });
  return 0;
}

}  // namespace nerolith::windows_forms
