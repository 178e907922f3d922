// A form's boxes, with the views that stand in them.
#pragma once

#include <memory>
#include <vector>

#include "controls/layout.h"
#include "platform/windows/forms/control_view.h"

namespace nerolith::windows_forms {

/// Builds the views of a form's layout once and places them as the boxes say. Owns the views; the
/// boxes and the ground outlive it.
class FormLayout {
 public:
  FormLayout(FormGround& ground, const controls::Box& root);

  /// A control that floats above the layout, reached by tab right after its anchor.
  ControlView* addOverlay(const controls::Overlay& overlay);
  ControlView* viewOf(const controls::PlacedControl& control) const;
  /// In the order of the declaration, which is the tab order.
  const std::vector<std::unique_ptr<ControlView>>& views() const { return views_; }

  Extent extent() const;
  /// Returns whether anything moved.
  bool place(const RECT& area);
  /// The recesses of panels and of the controls that have one.
  void paintPanels(Canvas& canvas, const Theme& theme) const;

 private:
  struct Node {
    const controls::Box* box = nullptr;
    ControlView* view = nullptr;
    std::vector<Node> children;
    RECT area{};
  };

  Node build(const controls::Box& box, bool onGlass);
  bool present(const Node& node) const;
  Extent extentOf(const Node& node) const;
  Extent extentOfLine(const Node& node) const;
  void placeNode(Node& node, const RECT& area);
  void placeLine(Node& node);
  void paintNode(const Node& node, Canvas& canvas, const Theme& theme) const;
  ControlView* keep(std::unique_ptr<ControlView> view, const controls::PlacedControl& control);

  struct Known {
    const void* control;
    ControlView* view;
  };

  FormGround& ground_;
  std::vector<std::unique_ptr<controls::Label>> fixedWords_;
  std::vector<std::unique_ptr<ControlView>> views_;
  std::vector<Known> known_;
  Node root_;
  bool moved_ = false;
};

}  // namespace nerolith::windows_forms
