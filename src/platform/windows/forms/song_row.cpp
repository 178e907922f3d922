#include "platform/windows/forms/song_row.h"

#include <cmath>
#include <numbers>

#include "platform/windows/forms/wide_text.h"

namespace nerolith::windows_forms {
namespace {

constexpr int kSigns = 33;  // room left of the text
constexpr int kSignAt = 19;

Shape star(const Point& centre, double unit) {
  std::vector<Point> points;
  for (int i = 0; i < 10; ++i) {
    const double radius = (i % 2 == 0 ? 6.2 : 2.6) * unit;
    const double angle = (-90.0 + 36.0 * i) * std::numbers::pi / 180;
    points.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
  }
  return Shape().polygon(std::move(points));
}

Shape triangle(const Point& centre, double unit) {
  return Shape().polygon({{centre.x - 3.5 * unit, centre.y - 5 * unit},
                          {centre.x + 5 * unit, centre.y},
                          {centre.x - 3.5 * unit, centre.y + 5 * unit}});
}

Ink inkOf(const SongRow& row) {
  if (!row.enabled) return ink::kFaint;
  if (row.marks.playing) return ink::kPlaying;
  if (row.marks.played) return row.selected ? Ink{0xa3, 0xb4, 0xc0} : ink::kFaint;
  return row.selected ? ink::kOnSelection : ink::kPlain;
}

}  // namespace

void paintSongRow(Canvas& canvas, const Theme& theme, const SongRow& row) {
  const RECT whole{0, 0, canvas.width(), canvas.height()};
  canvas.fillRect(whole, row.selected ? ink::kSelection : ink::kWell);
  const Point sign{theme.exact(kSignAt), canvas.height() / 2.0};
  if (row.marks.playing)
    canvas.fill(triangle(sign, theme.exact(1)), Ink{0x3f, 0xe0, 0x7c});
  else if (row.marks.recent)
    canvas.fill(star(sign, theme.exact(1)), ink::kAmber);
  const RECT words{theme.px(kSigns), 0, canvas.width() - theme.px(10), canvas.height()};
  theme.drawText(canvas, wideOf(row.text), words,
                 row.marks.playing ? theme.boldFont() : theme.font(controls::Look::SongList),
                 inkOf(row), Align::Left, Shorten::Middle);
  if (!row.current) return;
  const double side = theme.exact(2);
  canvas.fill(Shape().ring({side, 0, canvas.width() - side, double(canvas.height())},
                           theme.exact(3), std::max(1.0, theme.exact(1))),
              row.focused ? ink::kFocus : Ink{0x4a, 0x55, 0x5f});
}

}  // namespace nerolith::windows_forms
