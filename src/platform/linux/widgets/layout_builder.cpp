#include "platform/linux/widgets/layout_builder.h"

#include <QBoxLayout>

#include "platform/linux/widgets/caption_key.h"
#include "platform/linux/widgets/digital_display.h"
#include "platform/linux/widgets/drive_combo.h"
#include "platform/linux/widgets/face_button.h"
#include "platform/linux/widgets/folder_popup.h"
#include "platform/linux/widgets/label_key.h"
#include "platform/linux/widgets/label_view.h"
#include "platform/linux/widgets/lamp.h"
#include "platform/linux/widgets/level_bar.h"
#include "platform/linux/widgets/meter_bar.h"
#include "platform/linux/widgets/panel.h"
#include "platform/linux/widgets/picture_view.h"
#include "platform/linux/widgets/plain_buttons.h"
#include "platform/linux/widgets/position_slider.h"
#include "platform/linux/widgets/song_list_view.h"
#include "platform/linux/widgets/text_line.h"

namespace nerolith::widgets {
namespace {

using controls::Box;
using controls::Look;

/// Makes the widget of one kind of control each.
struct Maker {
  Look look;
  bool onGlass;
  QWidget* parent;

  QWidget* operator()(std::monostate) const { return nullptr; }
  QWidget* operator()(controls::Label* label) const {
    if (look == Look::Digital) return new DigitalDisplay(*label, parent);
    if (look == Look::Lamp) return new LampView(*label, parent);
    if (look == Look::CaptionKey) return new CaptionKey(*label, parent);
    if (look == Look::Key) return makeLabelKey(*label, parent);
    return new LabelView(*label, look, onGlass, parent);
  }
  QWidget* operator()(controls::CommandButton* button) const {
    return makePushButton(*button, parent);
  }
  QWidget* operator()(controls::OptionButton* button) const {
    return makeOptionButton(*button, parent);
  }
  QWidget* operator()(controls::CheckBox* box) const { return makeCheckBox(*box, parent); }
  QWidget* operator()(controls::TextBox* box) const { return new TextLine(*box, look, parent); }
  QWidget* operator()(controls::ListBox* list) const { return new SongListView(*list, parent); }
  QWidget* operator()(controls::ScrollBar* bar) const { return new PositionSlider(*bar, parent); }
  QWidget* operator()(controls::ProgressBar* bar) const {
    if (look == Look::Meter) return new MeterBar(*bar, parent);
    return new LevelBar(*bar, look, parent);
  }
  QWidget* operator()(controls::DriveListBox* drives) const {
    return new DriveCombo(*drives, parent);
  }
  QWidget* operator()(controls::DirListBox* folders) const {
    return new FolderPopup(*folders, parent);
  }
  QWidget* operator()(controls::PictureBox* picture) const {
    return new PictureView(*picture, parent);
  }
  QWidget* operator()(const controls::FaceButton& face) const {
    return new FaceButtonView(face, parent);
  }
  QWidget* operator()(const controls::LampSwitch& parts) const {
    return new LampSwitchView(parts, parent);
  }
};

}  // namespace

void LayoutBuilder::build(const Box& root) {
  window_.setLayout(boxLayout(root, &window_, false));
  QWidget* before = nullptr;
  for (const Built& built : built_) {
    if (built.widget->focusPolicy() == Qt::NoFocus) continue;
    if (before) QWidget::setTabOrder(before, built.widget);
    before = built.widget;
  }
}

QWidget* LayoutBuilder::addOverlay(const controls::Overlay& overlay) {
  QWidget* widget = make(overlay.control, Look::Plain, &window_, false);
  QWidget* anchor = widgetOf(overlay.anchor);
  if (widget && anchor) QWidget::setTabOrder(anchor, widget);
  return widget;
}

QWidget* LayoutBuilder::widgetOf(const controls::PlacedControl& control) const {
  for (const Built& built : built_)
    if (controls::identityOf(built.control) == controls::identityOf(control)) return built.widget;
  return nullptr;
}

QBoxLayout* LayoutBuilder::boxLayout(const Box& box, QWidget* parent, bool onGlass) {
  const bool row = box.kind == Box::Kind::Row;
  auto* layout = new QBoxLayout(row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  layout->setSpacing(box.gap);
  layout->setContentsMargins(box.margin, box.margin, box.margin, box.margin);
  const bool glass = onGlass || box.look == Look::Glass;
  for (const Box& child : box.children) addTo(*layout, child, parent, glass);
  return layout;
}

void LayoutBuilder::addTo(QBoxLayout& layout, const Box& box, QWidget* parent, bool onGlass) {
  switch (box.kind) {
    case Box::Kind::Space:
      if (box.stretch > 0)
        layout.addStretch(box.stretch);
      else
        layout.addSpacing(layout.direction() == QBoxLayout::LeftToRight ? box.width : box.height);
      break;
    case Box::Kind::Leaf:
      if (QWidget* leaf = leafFor(box, parent, onGlass)) layout.addWidget(leaf, box.stretch);
      break;
    case Box::Kind::Row:
    case Box::Kind::Column:
      // Most boxes only arrange: they need no widget of their own.
      if (box.look == Look::Plain && box.width == 0 && box.height == 0)
        layout.addLayout(boxLayout(box, parent, onGlass), box.stretch);
      else
        layout.addWidget(panelFor(box, parent, onGlass), box.stretch);
      break;
  }
}

QWidget* LayoutBuilder::panelFor(const Box& box, QWidget* parent, bool onGlass) {
  auto* panel = new Panel(box.look, parent);
  panel->setLayout(boxLayout(box, panel, onGlass));
  if (box.width > 0) panel->setFixedWidth(box.width);
  if (box.height > 0) panel->setFixedHeight(box.height);
  return panel;
}

QWidget* LayoutBuilder::leafFor(const Box& box, QWidget* parent, bool onGlass) {
  QWidget* widget = box.control.index() == 0 ? new LabelView(QString::fromStdString(box.words),
                                                             box.look, onGlass, parent)
                                             : make(box.control, box.look, parent, onGlass);
  if (!widget) return nullptr;
  if (box.width > 0) widget->setFixedWidth(box.width);
  if (box.height > 0) widget->setFixedHeight(box.height);
  return widget;
}

QWidget* LayoutBuilder::make(const controls::PlacedControl& control, Look look, QWidget* parent,
                             bool onGlass) {
  QWidget* widget = std::visit(Maker{look, onGlass, parent}, control);
  if (widget) built_.push_back({control, widget});
  return widget;
}

}  // namespace nerolith::widgets
