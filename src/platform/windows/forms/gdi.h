// Owners of the drawing objects: one line each, handle and closer.
#pragma once

#include <windows.h>

#include <utility>

namespace nerolith::windows_forms {

/// Owns a handle and closes it with `Close`. Empty after a failed creation: drawing with it then
/// does nothing, as the system's calls ignore an empty handle.
template <typename Handle, auto Close>
class Owned {
 public:
  Owned() = default;
  explicit Owned(Handle handle) : handle_(handle) {}
  Owned(Owned&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Owned& operator=(Owned&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  ~Owned() {
    if (handle_) Close(handle_);
  }

  Handle get() const { return handle_; }
  /// Another owner has taken the handle over.
  void release() { handle_ = nullptr; }
  explicit operator bool() const { return handle_ != nullptr; }

 private:
  Handle handle_ = nullptr;
};

using Font = Owned<HFONT, DeleteObject>;
using Brush = Owned<HBRUSH, DeleteObject>;
using Bitmap = Owned<HBITMAP, DeleteObject>;
using MemoryDc = Owned<HDC, DeleteDC>;
using PopUp = Owned<HMENU, DestroyMenu>;

/// Selects an object for as long as it lives.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
  ~Selected() { SelectObject(dc_, before_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

/// The window's own surface while it answers a paint message.
class PaintScope {
 public:
  explicit PaintScope(HWND window) : window_(window), dc_(BeginPaint(window, &paint_)) {}
  ~PaintScope() { EndPaint(window_, &paint_); }
  PaintScope(const PaintScope&) = delete;
  PaintScope& operator=(const PaintScope&) = delete;
  HDC dc() const { return dc_; }
  const RECT& area() const { return paint_.rcPaint; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  HDC dc_;
};

/// The surface of a window, or of the screen, for measuring.
class WindowDc {
 public:
  explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
  ~WindowDc() { ReleaseDC(window_, dc_); }
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  HDC get() const { return dc_; }

 private:
  HWND window_;
  HDC dc_;
};

}  // namespace nerolith::windows_forms
