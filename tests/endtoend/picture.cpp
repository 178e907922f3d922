#include "endtoend/picture.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>

namespace nerolith::endtoend {

double Picture::luminance(int x, int y) const {
  const auto linear = [&](int channel) {
    const auto index = 3 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                            static_cast<std::size_t>(x)) +
                       static_cast<std::size_t>(channel);
    const double value = rgb[index] / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(0) + 0.7152 * linear(1) + 0.0722 * linear(2);
}

Picture grab(const PrivateDesktop& desktop, const Place& place) {
  const ScratchFolder scratch;
  const auto file = scratch.path() / "screen.ppm";
  const std::string area = std::to_string(place.width) + "x" + std::to_string(place.height) + "+" +
                           std::to_string(place.x) + "+" + std::to_string(place.y);
  runToEnd(desktop.command(
      {"import", "-window", "root", "-crop", area, "+repage", "-depth", "8", file.string()}));
  const std::string bytes = contentsOf(file);
  std::istringstream header(bytes);
  std::string kind;
  int most = 0;
  Picture picture;
  header >> kind >> picture.width >> picture.height >> most;
  const auto size = static_cast<std::size_t>(picture.width * picture.height * 3);
  if (kind != "P6" || most != 255 || size == 0 || bytes.size() < size)
    throw std::runtime_error("the screen cannot be grabbed");
  picture.rgb.assign(bytes.end() - static_cast<std::ptrdiff_t>(size), bytes.end());
  return picture;
}

double contrastRatio(const Picture& picture) {
  std::vector<double> all;
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < picture.width; ++x) all.push_back(picture.luminance(x, y));
  std::sort(all.begin(), all.end());
  const std::size_t fiftieth = all.size() / 50;
  return (all[all.size() - 1 - fiftieth] + 0.05) / (all[fiftieth] + 0.05);
}

int pixelsChanged(const Picture& before, const Picture& after) {
  int changed = 0;
  const std::size_t size = std::min(before.rgb.size(), after.rgb.size());
  for (std::size_t i = 0; i + 2 < size; i += 3) {
    int most = 0;
    for (std::size_t channel = i; channel < i + 3; ++channel)
      most = std::max(most, std::abs(before.rgb[channel] - after.rgb[channel]));
    if (most > 40) ++changed;
  }
  return changed;
}

}  // namespace nerolith::endtoend
