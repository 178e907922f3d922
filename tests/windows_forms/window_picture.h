// Pictures of windows as they stand on the screen, for people to look at.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "platform/windows/forms/wide_text.h"
#include "platform/windows/handles.h"

namespace nerolith::windows_forms {

/// What is seen where the window is, with menus that lie over it.
class WindowPicture {
 public:
  explicit WindowPicture(HWND window) {
    UpdateWindow(window);
    RECT place;
    GetWindowRect(window, &place);
    head_.biSize = sizeof head_;
    head_.biWidth = place.right - place.left;
    head_.biHeight = place.bottom - place.top;
    head_.biPlanes = 1;
    head_.biBitCount = 32;
    take(place);
  }

  int width() const { return static_cast<int>(head_.biWidth); }
  int height() const { return static_cast<int>(head_.biHeight); }
  /// 0xRRGGBB, counted from the upper left corner.
  std::uint32_t pixel(int x, int y) const {
    return pixels_.at(static_cast<std::size_t>((height() - 1 - y) * width() + x)) & 0xFFFFFF;
  }

  /// As NAME.bmp in out/screenshots/windows of the source tree.
  bool save(const std::string& name) const {
    const std::wstring folder = wideOf("Z:" NEROLITH_SOURCE_DIR "/out/screenshots/windows");
    CreateDirectoryW(folder.substr(0, folder.rfind(L"/screenshots")).c_str(), nullptr);
    CreateDirectoryW(folder.substr(0, folder.rfind(L'/')).c_str(), nullptr);
    CreateDirectoryW(folder.c_str(), nullptr);
    const windows::SystemHandle file(CreateFileW((folder + L"/" + wideOf(name) + L".bmp").c_str(),
                                                 GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                                 FILE_ATTRIBUTE_NORMAL, nullptr));
    const auto bytes = static_cast<DWORD>(pixels_.size() * sizeof pixels_[0]);
    BITMAPFILEHEADER first{};
    first.bfType = 0x4D42;
    first.bfOffBits = sizeof first + sizeof head_;
    first.bfSize = first.bfOffBits + bytes;
    DWORD done = 0;
    return file && WriteFile(file.get(), &first, sizeof first, &done, nullptr) &&
           WriteFile(file.get(), &head_, sizeof head_, &done, nullptr) &&
           WriteFile(file.get(), pixels_.data(), bytes, &done, nullptr);
  }

 private:
  void take(const RECT& place) {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, head_.biWidth, head_.biHeight);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, head_.biWidth, head_.biHeight, screen, place.left, place.top, SRCCOPY);
    SelectObject(memory, before);
    pixels_.resize(static_cast<std::size_t>(head_.biWidth) *
                   static_cast<std::size_t>(head_.biHeight));
    BITMAPINFO info{};
    info.bmiHeader = head_;
    GetDIBits(memory, bitmap, 0, static_cast<UINT>(head_.biHeight), pixels_.data(), &info,
              DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
  }

  BITMAPINFOHEADER head_{};
  std::vector<std::uint32_t> pixels_;  // the lowest line first
};

}  // namespace nerolith::windows_forms
