// Round lamps: one that only shines, and switches with a word beside the lamp.
#pragma once

#include "controls/layout.h"
#include "platform/windows/forms/control_view.h"
#include "platform/windows/forms/mouse_press.h"

namespace nerolith::windows_forms {

/// Shines in the label's back colour; a screen reader says which that is.
class LampView final : public ControlView {
 public:
  LampView(FormGround& ground, controls::Label& label);
  Extent extent() const override;

 protected:
  void refresh() override;
  void paint(Canvas& canvas) override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  controls::Label& label_;
};

/// Looks like a lamp with its word, is a check box or an option button to keyboard and screen
/// reader. It never switches itself: a click goes to the control, and the lamp follows what the
/// player makes of it.
class SwitchView : public ControlView {
 public:
  Extent extent() const override;
  std::optional<LRESULT> onParentMessage(UINT message, WPARAM first, LPARAM second) override;
  wchar_t accessKey() const override;
  void accessKeyPressed() override;

 protected:
  /// `style` is BS_CHECKBOX or BS_RADIOBUTTON.
  SwitchView(FormGround& ground, controls::Control& control, DWORD style,
             MousePress::Keyboard keyboard);

  virtual void clicked() = 0;
  virtual std::wstring caption() const = 0;
  virtual Ink lamp() const = 0;
  virtual Ink wordInk() const { return panelInk(); }
  void refresh() override;
  void paint(Canvas& canvas) override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  LRESULT passUnpainted(UINT message, WPARAM first, LPARAM second);

  MousePress press_;
};

/// A switch of the display.
class LampSwitchView final : public SwitchView {
 public:
  LampSwitchView(FormGround& ground, const controls::LampSwitch& parts);

 protected:
  void clicked() override { parts_.words->userClick(); }
  std::wstring caption() const override;
  Ink lamp() const override { return inkOf(parts_.lamp->backColour()); }
  Ink wordInk() const override;

 private:
  controls::LampSwitch parts_;
};

class OptionButtonView final : public SwitchView {
 public:
  OptionButtonView(FormGround& ground, controls::OptionButton& button);

 protected:
  void clicked() override { button_.userClick(); }
  std::wstring caption() const override;
  Ink lamp() const override;

 private:
  controls::OptionButton& button_;
};

/// A small recess with a tick in it, and its words.
class CheckBoxView final : public SwitchView {
 public:
  CheckBoxView(FormGround& ground, controls::CheckBox& box);
  Extent extent() const override;

 protected:
  void paint(Canvas& canvas) override;
  void clicked() override { box_.userClick(); }
  std::wstring caption() const override;
  Ink lamp() const override;

 private:
  controls::CheckBox& box_;
};

}  // namespace nerolith::windows_forms
