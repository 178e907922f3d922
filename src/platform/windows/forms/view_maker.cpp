#include "platform/windows/forms/view_maker.h"

#include "platform/windows/forms/digital_display.h"
#include "platform/windows/forms/drive_combo.h"
#include "platform/windows/forms/folder_popup.h"
#include "platform/windows/forms/key_button.h"
#include "platform/windows/forms/label_view.h"
#include "platform/windows/forms/lamp_switch.h"
#include "platform/windows/forms/level_bar.h"
#include "platform/windows/forms/meter_bar.h"
#include "platform/windows/forms/picture_view.h"
#include "platform/windows/forms/position_slider.h"
#include "platform/windows/forms/song_list_view.h"
#include "platform/windows/forms/text_line.h"

namespace nerolith::windows_forms {
namespace {

using controls::Look;

/// Makes the view of one kind of control each.
struct Maker {
  using View = std::unique_ptr<ControlView>;

  FormGround& ground;
  Look look;
  bool onGlass;

  View operator()(std::monostate) const { return nullptr; }
  View operator()(controls::Label* label) const {
    if (look == Look::Digital) return std::make_unique<DigitalDisplay>(ground, *label);
    if (look == Look::Lamp) return std::make_unique<LampView>(ground, *label);
    if (look == Look::CaptionKey) return std::make_unique<CaptionKey>(ground, *label);
    if (look == Look::Key) return std::make_unique<LabelKey>(ground, *label);
    return std::make_unique<LabelView>(ground, *label, look, onGlass);
  }
  View operator()(controls::CommandButton* button) const {
    return std::make_unique<PushButton>(ground, *button);
  }
  View operator()(controls::OptionButton* button) const {
    return std::make_unique<OptionButtonView>(ground, *button);
  }
  View operator()(controls::CheckBox* box) const {
    return std::make_unique<CheckBoxView>(ground, *box);
  }
  View operator()(controls::TextBox* box) const {
    return std::make_unique<TextLine>(ground, *box, look);
  }
  View operator()(controls::ListBox* list) const {
    return std::make_unique<SongListView>(ground, *list);
  }
  View operator()(controls::ScrollBar* bar) const {
    return std::make_unique<PositionSlider>(ground, *bar);
  }
  View operator()(controls::ProgressBar* bar) const {
    if (look == Look::Meter) return std::make_unique<MeterBar>(ground, *bar);
    return std::make_unique<LevelBar>(ground, *bar, look);
  }
  View operator()(controls::DriveListBox* drives) const {
    return std::make_unique<DriveCombo>(ground, *drives);
  }
  View operator()(controls::DirListBox* folders) const {
    return std::make_unique<FolderPopup>(ground, *folders);
  }
  View operator()(controls::PictureBox* picture) const {
    return std::make_unique<PictureView>(ground, *picture);
  }
  View operator()(const controls::FaceButton& face) const {
    return std::make_unique<FaceButtonView>(ground, face);
  }
  View operator()(const controls::LampSwitch& parts) const {
    return std::make_unique<LampSwitchView>(ground, parts);
  }
};

}  // namespace

std::unique_ptr<ControlView> makeView(FormGround& ground, const controls::PlacedControl& control,
                                      Look look, bool onGlass) {
  return std::visit(Maker{ground, look, onGlass}, control);
}

}  // namespace nerolith::windows_forms
