// Push buttons: the large keys with a lamp, the small ones of the caption strip, and plain ones.
#pragma once

#include "controls/layout.h"
#include "platform/windows/forms/control_view.h"
#include "platform/windows/forms/mouse_press.h"

namespace nerolith::windows_forms {

/// A button of the system that is drawn here: keyboard, mouse and screen reader know it as one.
class KeyButton : public ControlView {
 public:
  std::optional<LRESULT> onParentMessage(UINT message, WPARAM first, LPARAM second) override;
  wchar_t accessKey() const override;
  void accessKeyPressed() override;

 protected:
  KeyButton(FormGround& ground, controls::Control& control,
            MousePress::Keyboard keyboard = MousePress::Keyboard::Stays);

  virtual void clicked() = 0;
  /// The caption with the mark of its access key.
  virtual std::wstring caption() const = 0;
  virtual std::wstring spokenName() const { return caption(); }
  void refresh() override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;
  Theme::KeyState state() const;
  bool down() const { return (SendMessageW(handle(), BM_GETSTATE, 0, 0) & BST_PUSHED) != 0; }

 private:
  MousePress press_;
};

/// A large push button of the faceplate, with the lamp that glows in it. Caption, access key and
/// enabled state come from the command button; presses, releases and clicks go to the face, in
/// this order, and a click by key or by a screen reader goes there too.
class FaceButtonView final : public KeyButton {
 public:
  FaceButtonView(FormGround& ground, const controls::FaceButton& parts);
  Extent extent() const override;

 protected:
  void clicked() override { parts_.face->userClick(); }
  void refresh() override;
  std::wstring caption() const override;
  bool usable() const override;
  std::wstring toolTip() const override;
  void paint(Canvas& canvas) override;

 private:
  controls::FaceButton parts_;
};

/// A small key of the caption strip: the label's caption is the sign on it.
class CaptionKey final : public KeyButton {
 public:
  CaptionKey(FormGround& ground, controls::Label& label);
  Extent extent() const override;

 protected:
  void clicked() override { label_.userClick(); }
  std::wstring caption() const override;
  std::wstring spokenName() const override;
  void paint(Canvas& canvas) override;

 private:
  controls::Label& label_;
};

/// A push button without a lamp, pressed by Enter as well as by the space bar.
class PlainKey : public KeyButton {
 public:
  Extent extent() const override;

 protected:
  /// `fillsWide`: as wide as its place, instead of as its caption.
  PlainKey(FormGround& ground, controls::Control& control, bool fillsWide)
      : KeyButton(ground, control, MousePress::Keyboard::Comes), fillsWide_(fillsWide) {}
  void paint(Canvas& canvas) override;
  std::optional<LRESULT> onOwnMessage(UINT message, WPARAM first, LPARAM second) override;

 private:
  bool fillsWide_;
};

class PushButton final : public PlainKey {
 public:
  PushButton(FormGround& ground, controls::CommandButton& button);

 protected:
  void clicked() override { button_.userClick(); }
  std::wstring caption() const override;

 private:
  controls::CommandButton& button_;
};

/// A label that is a push button. An "&" in its caption is a sign like any other.
class LabelKey final : public PlainKey {
 public:
  LabelKey(FormGround& ground, controls::Label& label);

 protected:
  void clicked() override { label_.userClick(); }
  std::wstring caption() const override;
  std::wstring spokenName() const override;
  void refresh() override;

 private:
  controls::Label& label_;
  std::string shown_;
};

}  // namespace nerolith::windows_forms
