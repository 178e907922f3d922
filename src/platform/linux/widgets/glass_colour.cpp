#include "platform/linux/widgets/glass_colour.h"

#include <algorithm>
#include <cmath>

#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

constexpr double kLegible = 3.0;

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

}  // namespace

QColor toQColor(controls::Colour colour) {
  return QColor(controls::redOf(colour), controls::greenOf(colour), controls::blueOf(colour));
}

double contrastRatio(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

QColor glassFor(const QColor& colour) {
  return contrastRatio(colour, theme::kGlass) >= kLegible ? theme::kGlass : theme::kLightGlass;
}

QColor inkFor(const QColor& background) {
  const QColor dark(0x14, 0x17, 0x1a);
  return contrastRatio(theme::kInk, background) >= contrastRatio(dark, background) ? theme::kInk
                                                                                   : dark;
}

}  // namespace nerolith::widgets
