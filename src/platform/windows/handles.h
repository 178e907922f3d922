// Owners of what Windows hands out: each closes, releases or frees it with its scope.
#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <oleauto.h>

#include <utility>

namespace nerolith::windows {

/// Owns one handle and closes it with `kClose`. Empty is null; INVALID_HANDLE_VALUE is taken as it.
template <typename Raw, auto kClose>
class Handle {
 public:
  Handle() = default;
  explicit Handle(Raw raw) : raw_(raw == INVALID_HANDLE_VALUE ? Raw{} : raw) {}
  ~Handle() { reset(); }
  Handle(Handle&& other) noexcept : raw_(std::exchange(other.raw_, Raw{})) {}
  Handle& operator=(Handle&& other) noexcept {
    std::swap(raw_, other.raw_);
    return *this;
  }

  Raw get() const { return raw_; }
  explicit operator bool() const { return raw_ != Raw{}; }
  /// For the calls that hand a handle out through a pointer; closes the one held before.
  Raw* out() {
    reset();
    return &raw_;
  }
  void reset() {
    if (raw_ != Raw{}) kClose(raw_);
    raw_ = Raw{};
  }

 private:
  Raw raw_{};
};

using SystemHandle = Handle<HANDLE, &CloseHandle>;
using FindHandle = Handle<HANDLE, &FindClose>;
using RegistryKey = Handle<HKEY, &RegCloseKey>;
using BasicText = Handle<BSTR, &SysFreeString>;

/// Owns one reference to a COM object.
template <typename Interface>
class ComPointer {
 public:
  ComPointer() = default;
  ~ComPointer() { reset(); }
  ComPointer(ComPointer&& other) noexcept : raw_(std::exchange(other.raw_, nullptr)) {}
  ComPointer& operator=(ComPointer&& other) noexcept {
    std::swap(raw_, other.raw_);
    return *this;
  }

  Interface* get() const { return raw_; }
  Interface* operator->() const { return raw_; }
  explicit operator bool() const { return raw_ != nullptr; }
  /// For the calls that hand a reference out through a pointer; releases the one held before.
  Interface** out() {
    reset();
    return &raw_;
  }
  void** outVoid() { return reinterpret_cast<void**>(out()); }
  void reset() {
    if (Interface* const held = std::exchange(raw_, nullptr)) held->Release();
  }

 private:
  Interface* raw_ = nullptr;
};

}  // namespace nerolith::windows
