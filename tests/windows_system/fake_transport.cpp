#include "windows_system/fake_transport.h"

#include "platform/windows/wide_text.h"

namespace nerolith::windows {
namespace {

FakeTransport* current = nullptr;

HSTRING textOf(std::string* text) { return reinterpret_cast<HSTRING>(text); }
std::string* textOf(HSTRING text) { return reinterpret_cast<std::string*>(text); }

HRESULT WINAPI makeText(const wchar_t* words, UINT32 length, HSTRING* text) {
  *text = textOf(new std::string(utf8Text({words, length})));
  return S_OK;
}

HRESULT WINAPI dropText(HSTRING text) {
  delete textOf(text);
  return S_OK;
}

HRESULT WINAPI findFactory(HSTRING name, REFIID wanted, void** found) {
  if (*textOf(name) != utf8Text(abi::kControlsClass) ||
      !IsEqualGUID(wanted, abi::kControlsForWindow))
    return REGDB_E_CLASSNOTREG;
  current->factory.AddRef();
  *found = static_cast<abi::ControlsForWindow*>(&current->factory);
  return S_OK;
}

HRESULT WINAPI activate(HSTRING name, IInspectable** made) {
  if (*textOf(name) != utf8Text(abi::kTimelineClass) || !current->hasTimeline)
    return REGDB_E_CLASSNOTREG;
  current->timeline.AddRef();
  *made = &current->timeline;
  return S_OK;
}

}  // namespace

FakeTransport::FakeTransport() { current = this; }
FakeTransport::~FakeTransport() { current = nullptr; }

RuntimeCalls FakeTransport::calls() { return {&findFactory, &activate, &makeText, &dropText}; }

HRESULT WINAPI FakeTransport::Factory::GetForWindow(HWND window, REFIID wanted, void** found) {
  if (!IsEqualGUID(wanted, abi::kControls)) return E_NOINTERFACE;
  fake.window = window;
  fake.controls.AddRef();
  *found = static_cast<abi::Controls*>(&fake.controls);
  return S_OK;
}

HRESULT WINAPI FakeTransport::Controls::add_ButtonPressed(abi::Handler* handler,
                                                          EventRegistrationToken* token) {
  void* known = nullptr;
  if (FAILED(handler->QueryInterface(abi::kButtonHandler, &known))) return E_NOINTERFACE;
  buttons = handler;  // with the reference just made
  token->value = 7;
  return S_OK;
}

HRESULT WINAPI FakeTransport::Controls::remove_ButtonPressed(EventRegistrationToken token) {
  fake.say("removed", token.value);
  buttons->Release();
  return S_OK;
}

HRESULT WINAPI FakeTransport::Controls2::UpdateTimelineProperties(abi::Timeline* value) {
  fake.trace << (value == &fake.timeline ? "timeline | " : "another timeline | ");
  return S_OK;
}

HRESULT WINAPI FakeTransport::Controls2::add_PlaybackPositionChangeRequested(
    abi::Handler* handler, EventRegistrationToken* token) {
  void* known = nullptr;
  if (FAILED(handler->QueryInterface(abi::kPositionHandler, &known))) return E_NOINTERFACE;
  positions = handler;
  token->value = 8;
  return S_OK;
}

HRESULT WINAPI
FakeTransport::Controls2::remove_PlaybackPositionChangeRequested(EventRegistrationToken token) {
  fake.say("removed", token.value);
  positions->Release();
  return S_OK;
}

}  // namespace nerolith::windows
