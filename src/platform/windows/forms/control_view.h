// What every view shares with its control.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/echo_guard.h"
#include "controls/layout.h"
#include "platform/windows/forms/form_ground.h"
#include "platform/windows/forms/spoken_name.h"
#include "platform/windows/forms/window.h"

namespace nerolith::windows_forms {

/// How much room something needs, in real pixels.
struct Extent {
  int width = 0;
  int height = 0;
  int leastWidth = 0;
  int leastHeight = 0;
  bool growsWide = false;  // else it stays as wide as it needs, in the middle of its place
  bool growsHigh = false;
  bool fillsWide = false;  // as wide as its place, without asking for more
};

/// A child window that shows one control: visible, enabled, tooltip and focus stay in line with the
/// control, mouse and focus are passed on to it, and painting happens in memory over what lies
/// behind. Mouse events are raised before the window sees them, so that a press comes before the
/// click it leads to. The control and the ground outlive the view.
class ControlView : public Window {
 public:
  virtual Extent extent() const = 0;
  /// Puts the window where the layout wants it.
  virtual void place(const RECT& area);
  /// Draws on the panel, around the window: a recess. `area` is that of `place`.
  virtual void paintOnPanel(Canvas&, const Area&) const {}
  /// New dots per inch.
  virtual void themeChanged() {}
  /// What the form hears about this window: commands, notifications, drawing.
  virtual std::optional<LRESULT> onParentMessage(UINT message, WPARAM first, LPARAM second);
  /// The keyboard came by the tab key.
  virtual void tabbedTo() {}
  /// The access key was pressed.
  virtual void accessKeyPressed() {}
  virtual wchar_t accessKey() const { return 0; }
  /// Where the corner of a menu that a key opens belongs, on the screen: below the window.
  virtual POINT menuPlace() const;

  bool shown() const { return control_.visible(); }
  bool takesFocus() const;
  const controls::Control& control() const { return control_; }
  const RECT& placed() const { return placed_; }

 protected:
  ControlView(FormGround& ground, controls::Control& control)
      : ground_(ground), control_(control) {}

  /// To be called once by the derived view, when its window is made.
  void bind();
  /// A further control whose changes lead to `refresh`.
  void follow(controls::Control& other);
  void bringInLine();

  /// The control changed; the window is to be brought in line. Does nothing but repaint by itself.
  virtual void refresh() { repaint(); }
  /// Whether the control can be used; a further condition may be added.
  virtual bool usable() const { return control_.enabled(); }
  virtual std::wstring toolTip() const;
  /// Over the canvas that shows what lies behind.
  virtual void paint(Canvas& canvas) = 0;
  /// A message that is the view's own.
  virtual std::optional<LRESULT> onOwnMessage(UINT, WPARAM, LPARAM) { return std::nullopt; }

  std::optional<LRESULT> onMessage(UINT message, WPARAM first, LPARAM second) override;

  const Theme& theme() const { return ground_.theme(); }
  bool hovered() const { return hovered_; }
  bool focused() const { return GetFocus() == handle(); }
  bool enabled() const { return IsWindowEnabled(handle()) != FALSE; }
  Ink panelInk() const { return ground_.panelInk(); }
  void repaint();
  /// The text by which the system, a screen reader and a test know the window.
  void setName(const std::wstring& name);
  /// What a screen reader says instead of that: the control's own name, where it has one, and
  /// `shown`, what stands in the window.
  void setSpokenName(const std::wstring& shown);
  /// What a screen reader says of the control further: the state of a lamp in words.
  void setSpokenState(const std::wstring& state) { spokenState_.tell(handle(), state); }
  /// Draws the whole view onto `target`.
  void drawOn(HDC target);
  template <typename Signal, typename Handler>
  void on(Signal& signal, Handler handler) {
    subscriptions_.push_back(signal.subscribe(std::move(handler)));
  }

  FormGround& ground_;
  controls::EchoGuard echo_;

 private:
  void passMouse(UINT message);
  void pressed(controls::MouseButton button);
  void released(controls::MouseButton button);
  void moved();
  void left();
  void focusMoved(bool here, HWND other);
  void paintWindow();

  controls::Control& control_;
  std::vector<base::Subscription> subscriptions_;
  std::wstring toolTip_;
  SpokenName spokenName_;
  SpokenName spokenState_{Spoken::Description};
  RECT placed_{};
  bool shown_ = true;
  bool hovered_ = false;
  unsigned held_ = 0;
};

}  // namespace nerolith::windows_forms
