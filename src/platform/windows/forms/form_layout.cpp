#include "platform/windows/forms/form_layout.h"

#include <algorithm>

#include "platform/windows/forms/box_arithmetic.h"
#include "platform/windows/forms/view_maker.h"

namespace nerolith::windows_forms {
namespace {

using controls::Box;
using controls::Look;

constexpr int kBoundless = 1 << 20;

int widthOf(const RECT& area) { return static_cast<int>(area.right - area.left); }
int heightOf(const RECT& area) { return static_cast<int>(area.bottom - area.top); }

Area toArea(const RECT& area) {
  return {double(area.left), double(area.top), double(area.right), double(area.bottom)};
}

/// As much of `area` as what has this extent takes, in the middle of it.
RECT within(const RECT& area, const Extent& extent) {
  const int width =
      extent.growsWide || extent.fillsWide ? widthOf(area) : std::min(widthOf(area), extent.width);
  const int height = extent.growsHigh ? heightOf(area) : std::min(heightOf(area), extent.height);
  const LONG left = area.left + (widthOf(area) - width) / 2;
  const LONG top = area.top + (heightOf(area) - height) / 2;
  return {left, top, left + width, top + height};
}

}  // namespace

FormLayout::FormLayout(FormGround& ground, const Box& root) : ground_(ground) {
  root_ = build(root, false);
}

FormLayout::Node FormLayout::build(const Box& box, bool onGlass) {
  Node node;
  node.box = &box;
  if (box.kind == Box::Kind::Leaf) {
    controls::PlacedControl control = box.control;
    if (control.index() == 0) {
      fixedWords_.push_back(std::make_unique<controls::Label>());
      fixedWords_.back()->setCaption(box.words);
      control = fixedWords_.back().get();
    }
    node.view = keep(makeView(ground_, control, box.look, onGlass), control);
  }
  const bool glass = onGlass || box.look == Look::Glass;
  for (const Box& child : box.children) node.children.push_back(build(child, glass));
  return node;
}

ControlView* FormLayout::keep(std::unique_ptr<ControlView> view,
                              const controls::PlacedControl& control) {
  if (!view) return nullptr;
  // The tab order is that of the windows among themselves.
  SetWindowPos(view->handle(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  known_.push_back({controls::identityOf(control), view.get()});
  views_.push_back(std::move(view));
  return views_.back().get();
}

ControlView* FormLayout::addOverlay(const controls::Overlay& overlay) {
  std::unique_ptr<ControlView> view = makeView(ground_, overlay.control, Look::Plain, false);
  if (!view) return nullptr;
  SetWindowPos(view->handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  ControlView* made = view.get();
  const ControlView* anchor = viewOf(overlay.anchor);
  auto place = std::find_if(views_.begin(), views_.end(),
                            [anchor](const auto& other) { return other.get() == anchor; });
  if (place != views_.end()) ++place;
  known_.push_back({controls::identityOf(overlay.control), made});
  views_.insert(place, std::move(view));
  return made;
}

ControlView* FormLayout::viewOf(const controls::PlacedControl& control) const {
  for (const Known& known : known_)
    if (known.control == controls::identityOf(control)) return known.view;
  return nullptr;
}

bool FormLayout::present(const Node& node) const {
  return node.box->kind != Box::Kind::Leaf || (node.view && node.view->shown());
}

Extent FormLayout::extentOf(const Node& node) const {
  const Theme& theme = ground_.theme();
  const Box& box = *node.box;
  if (box.kind == Box::Kind::Space) {
    const int width = box.stretch > 0 ? 0 : theme.px(box.width);
    const int height = box.stretch > 0 ? 0 : theme.px(box.height);
    return {width, height, width, height, false, false};
  }
  Extent extent = node.view ? node.view->extent() : extentOfLine(node);
  if (box.width > 0) {
    extent.width = extent.leastWidth = theme.px(box.width);
    extent.growsWide = extent.fillsWide = false;
  }
  if (box.height > 0) {
    extent.height = extent.leastHeight = theme.px(box.height);
    extent.growsHigh = false;
  }
  return extent;
}

Extent FormLayout::extentOfLine(const Node& node) const {
  const Theme& theme = ground_.theme();
  const bool row = node.box->kind == Box::Kind::Row;
  Extent line;
  int between = -theme.px(node.box->gap);
  for (const Node& child : node.children) {
    if (!present(child)) continue;
    const Extent one = extentOf(child);
    between += theme.px(node.box->gap);
    line.growsWide |= one.growsWide || (row && child.box->stretch > 0);
    line.growsHigh |= one.growsHigh || (!row && child.box->stretch > 0);
    line.width = row ? line.width + one.width : std::max(line.width, one.width);
    line.height = row ? std::max(line.height, one.height) : line.height + one.height;
    line.leastWidth =
        row ? line.leastWidth + one.leastWidth : std::max(line.leastWidth, one.leastWidth);
    line.leastHeight =
        row ? std::max(line.leastHeight, one.leastHeight) : line.leastHeight + one.leastHeight;
  }
  const int around = 2 * theme.px(node.box->margin);
  const int wide = around + (row ? std::max(between, 0) : 0);
  const int high = around + (row ? 0 : std::max(between, 0));
  return {line.width + wide,       line.height + high, line.leastWidth + wide,
          line.leastHeight + high, line.growsWide,     line.growsHigh};
}

Extent FormLayout::extent() const { return extentOf(root_); }

bool FormLayout::place(const RECT& area) {
  moved_ = false;
  placeNode(root_, area);
  return moved_;
}

void FormLayout::placeNode(Node& node, const RECT& area) {
  const RECT wanted = node.view ? within(area, extentOf(node)) : area;
  const bool stays = EqualRect(&wanted, &node.area);
  node.area = wanted;
  moved_ |= !stays;
  if (!node.view)
    placeLine(node);
  else if (!stays)
    node.view->place(wanted);
}

void FormLayout::placeLine(Node& node) {
  if (node.children.empty()) return;
  const Theme& theme = ground_.theme();
  const bool row = node.box->kind == Box::Kind::Row;
  const int margin = theme.px(node.box->margin);
  const int gap = theme.px(node.box->gap);
  RECT room = node.area;
  InflateRect(&room, -margin, -margin);
  std::vector<Node*> line;
  std::vector<Share> shares;
  for (Node& child : node.children) {
    if (!present(child)) continue;
    const Extent one = extentOf(child);
    line.push_back(&child);
    shares.push_back({row ? one.width : one.height, row ? one.leastWidth : one.leastHeight,
                      child.box->stretch, row ? one.growsWide : one.growsHigh});
  }
  const int between = gap * std::max(static_cast<int>(line.size()) - 1, 0);
  const std::vector<int> lengths = shareRoom(
      shares, std::clamp((row ? widthOf(room) : heightOf(room)) - between, 0, kBoundless));
  LONG at = row ? room.left : room.top;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const LONG end = at + lengths[i];
    placeNode(*line[i],
              row ? RECT{at, room.top, end, room.bottom} : RECT{room.left, at, room.right, end});
    at = end + gap;
  }
}

void FormLayout::paintPanels(Canvas& canvas, const Theme& theme) const {
  paintNode(root_, canvas, theme);
}

void FormLayout::paintNode(const Node& node, Canvas& canvas, const Theme& theme) const {
  if (!node.view && node.box->look == Look::Glass)
    theme.paintRecess(canvas, toArea(node.area), ink::kGlass, ink::kGlassBottom);
  if (!node.view && node.box->look == Look::Group) theme.paintPlate(canvas, toArea(node.area));
  if (!node.view && node.box->look == Look::Well)
    theme.paintRecess(canvas, toArea(node.area), ink::kWell, ink::kWell);
  if (node.view && node.view->shown()) node.view->paintOnPanel(canvas, toArea(node.area));
  for (const Node& child : node.children) paintNode(child, canvas, theme);
}

}  // namespace nerolith::windows_forms
