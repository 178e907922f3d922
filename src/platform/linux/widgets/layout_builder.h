// Turns a form's boxes into widgets and layouts.
#pragma once

#include <QWidget>
#include <vector>

#include "controls/layout.h"

class QBoxLayout;
class QLayoutItem;

namespace nerolith::widgets {

/// Builds once, into a window that has no layout yet; everything built belongs to the window.
class LayoutBuilder {
 public:
  explicit LayoutBuilder(QWidget& window) : window_(window) {}

  /// Lays `root` out and chains the tab order as declared.
  void build(const controls::Box& root);
  /// A control that floats above the layout, reached by tab right after its anchor.
  QWidget* addOverlay(const controls::Overlay& overlay);
  /// The widget of a control that was built; nullptr when it has none.
  QWidget* widgetOf(const controls::PlacedControl& control) const;

 private:
  struct Built {
    controls::PlacedControl control;
    QWidget* widget;
  };

  QBoxLayout* boxLayout(const controls::Box& box, QWidget* parent, bool onGlass);
  void addTo(QBoxLayout& layout, const controls::Box& box, QWidget* parent, bool onGlass);
  QWidget* panelFor(const controls::Box& box, QWidget* parent, bool onGlass);
  QWidget* leafFor(const controls::Box& box, QWidget* parent, bool onGlass);
  QWidget* make(const controls::PlacedControl& control, controls::Look look, QWidget* parent,
                bool onGlass);

  QWidget& window_;
  std::vector<Built> built_;
};

}  // namespace nerolith::widgets
