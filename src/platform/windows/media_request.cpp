#include "platform/windows/media_request.h"

#include <atomic>

#include "platform/windows/handles.h"

namespace nerolith::windows {
namespace {

constexpr abi::Ticks kTicksInMillisecond = 10000;

bool posted(HWND window, abi::ButtonPressed& pressed) {
  auto button = abi::Button::Previous;
  return SUCCEEDED(pressed.get_Button(&button)) &&
         PostMessageW(window, kButtonRequest, static_cast<WPARAM>(button), 0);
}

bool posted(HWND window, abi::PositionRequested& request) {
  abi::Ticks position = 0;
  return SUCCEEDED(request.get_RequestedPlaybackPosition(&position)) &&
         PostMessageW(window, kPositionRequest, 0,
                      static_cast<LPARAM>(position / kTicksInMillisecond));
}

/// Agile: may be called on any thread, as it touches nothing but the window's message queue.
template <typename Arguments>
class MediaRequest final : public abi::Handler {
 public:
  MediaRequest(HWND window, const GUID& self, const GUID& arguments)
      : window_(window), self_(self), arguments_(arguments) {}

  HRESULT WINAPI QueryInterface(REFIID wanted, void** found) override {
    const bool known = IsEqualGUID(wanted, IID_IUnknown) || IsEqualGUID(wanted, self_) ||
                       IsEqualGUID(wanted, abi::kAgileObject);
    *found = known ? this : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG WINAPI AddRef() override { return ++references_; }
  ULONG WINAPI Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT WINAPI Invoke(IInspectable*, IInspectable* arguments) override {
    ComPointer<Arguments> told;
    if (!arguments || FAILED(arguments->QueryInterface(arguments_, told.outVoid()))) return S_OK;
    posted(window_, *told.get());
    return S_OK;
  }

 private:
  virtual ~MediaRequest() = default;

  HWND window_;
  GUID self_, arguments_;
  std::atomic<ULONG> references_{1};
};

}  // namespace

abi::Handler* newButtonHandler(HWND window) {
  return new MediaRequest<abi::ButtonPressed>(window, abi::kButtonHandler, abi::kButtonPressed);
}

abi::Handler* newPositionHandler(HWND window) {
  return new MediaRequest<abi::PositionRequested>(window, abi::kPositionHandler,
                                                  abi::kPositionRequested);
}

}  // namespace nerolith::windows
