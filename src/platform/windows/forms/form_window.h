// One form as a window.
#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "controls/form.h"
#include "platform/windows/forms/backdrop.h"
#include "platform/windows/forms/file_drop.h"
#include "platform/windows/forms/form_layout.h"

namespace nerolith::windows_forms {

/// Built with the form's layout when it is made; from `followForm` on it follows the form: shown,
/// hidden, brought forward, entitled, and painted with its picture or the theme's panel. What had
/// the keyboard has it again when the window comes back to the front. The form hears of
/// keys before the focused control does, of the mouse moving over the window (except over the
/// controls that an overlay belongs to), of activation and of closing. With an owner, it opens over
/// the owner's middle and stays in front of it.
class FormWindow final : public Window, private FormGround {
 public:
  explicit FormWindow(controls::Form& form, HWND owner = nullptr);
  ~FormWindow() override;

  /// Becomes as the form is now, which may show it. A form may change itself as it comes up, so
  /// whoever keeps the window has to have it by then.
  void followForm();

  /// The window of a control that is laid out in this one; nullptr for another.
  HWND windowOf(const controls::PlacedControl& control) const;

  /// Shown to it before the message goes to its window; true: the message is done with.
  bool takesMessage(const MSG& message);

  /// Hears each message of the window before the window itself; what it answers is done with.
  using Listener = std::function<std::optional<LRESULT>(HWND, UINT, WPARAM, LPARAM)>;
  void setListener(Listener listener) { listener_ = std::move(listener); }

 protected:
  std::optional<LRESULT> onMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  struct Floating {
    controls::Overlay overlay;
    ControlView* view;
    ControlView* anchor;
  };

  HWND window() const override { return handle(); }
  const Theme& theme() const override { return *theme_; }
  Ink panelInk() const override { return backdrop_.ink(); }
  void paintBehind(HWND view, Canvas& canvas) override;
  void layoutChanged() override;
  void panelChanged() override;
  void setToolTip(HWND view, const std::wstring& text) override;

  void build();
  void subscribe();
  void takePicture();
  void show(bool visible);
  void bringForward();
  SIZE frameSize() const;
  void takeSize();
  RECT workArea() const;
  void moveOverOwner();
  void placeBesideOwner();

  void layOut();
  void placeOverlays();
  bool ownsOverlay(HWND window) const;
  void popUp();

  void keyPressed(const MSG& message);
  bool navigated(const MSG& message);
  bool accessKeyTyped(wchar_t sign);
  void moveFocus(bool backwards);
  void mouseMoved(const MSG& message);
  bool wheelTurned(const MSG& message);

  std::optional<LRESULT> toView(HWND view, UINT message, WPARAM first, LPARAM second);
  LRESULT activated(UINT message, WPARAM first, LPARAM second);
  LRESULT closed();
  LRESULT painted();
  std::optional<LRESULT> focusCame();
  LRESULT sized(WPARAM kind);
  LRESULT dpiChanged(int dpi, const RECT& place);
  LRESULT bounded(MINMAXINFO& bounds) const;
  std::optional<LRESULT> onFormMessage(UINT message, WPARAM first, LPARAM second);
  /// What this window has posted to itself, or is posted by what belongs to it.
  std::optional<LRESULT> onOwnMessage(UINT message);

  controls::Form& form_;
  Listener listener_;
  HWND focused_ = nullptr;  // the control that had the keyboard when the window lost it
  std::unique_ptr<Theme> theme_;
  Backdrop backdrop_;
  std::unique_ptr<FormLayout> layout_;
  std::unique_ptr<FileDrop> drop_;
  std::vector<Floating> floating_;
  std::vector<base::Subscription> subscriptions_;
  const controls::MenuItem* waitingMenu_ = nullptr;
  HWND toolTips_ = nullptr;
  const void* picturePixels_ = nullptr;  // those of the picture that was taken last
  POINT mouse_{-1, -1};
  bool layoutWaits_ = false;
  bool lastInputWasKey_ = false;
  bool shown_ = false;
  RECT besidePlace_{};  // of the owner, when this window was put at its side
};

}  // namespace nerolith::windows_forms
