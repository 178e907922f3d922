#include "platform/windows/media_glyphs.h"

#include <gtest/gtest.h>

namespace nerolith::windows {
namespace {

constexpr int kSize = 32;

std::uint32_t pixel(Glyph glyph, int x, int y) {
  return glyphPixels(glyph, kSize).at(static_cast<std::size_t>(y * kSize + x));
}
int alpha(std::uint32_t pixel) { return static_cast<int>(pixel >> 24); }
int green(std::uint32_t pixel) { return static_cast<int>(pixel >> 8 & 0xFF); }
bool light(Glyph glyph, int x, int y) {
  return alpha(pixel(glyph, x, y)) == 255 && green(pixel(glyph, x, y)) > 230;
}

TEST(MediaGlyphs, AreTheSignsThatEveryoneKnows) {
  EXPECT_TRUE(light(Glyph::Play, 10, 16) && light(Glyph::Play, 22, 16));
  EXPECT_FALSE(light(Glyph::Play, 24, 8));
  EXPECT_TRUE(light(Glyph::Pause, 10, 16) && light(Glyph::Pause, 22, 16));
  EXPECT_FALSE(light(Glyph::Pause, 16, 16));
  EXPECT_TRUE(light(Glyph::Next, 8, 16) && light(Glyph::Next, 25, 8));
  EXPECT_FALSE(light(Glyph::Next, 18, 8));
  EXPECT_TRUE(light(Glyph::Stop, 8, 8) && light(Glyph::Stop, 23, 23));
}

// On a light thumbnail it is the rim that shows.
TEST(MediaGlyphs, HaveADarkRimAndNothingAroundIt) {
  for (const Glyph glyph : {Glyph::Play, Glyph::Pause, Glyph::Next, Glyph::Stop})
    for (const int size : {16, 20, 24, 32, 48}) {
      int dark = 0, bright = 0;
      const auto pixels = glyphPixels(glyph, size);
      for (const std::uint32_t one : pixels) {
        dark += alpha(one) > 150 && green(one) < 90;
        bright += alpha(one) > 150 && green(one) > 200;
      }
      EXPECT_GT(dark, size) << size;
      EXPECT_GT(bright, size * size / 10) << size;
      EXPECT_EQ(alpha(pixels.front()), 0);
      EXPECT_EQ(alpha(pixels.back()), 0);
    }
}

TEST(MediaGlyphs, AreTheSameAboveAndBelow) {
  for (const Glyph glyph : {Glyph::Play, Glyph::Pause, Glyph::Next, Glyph::Stop})
    for (int y = 0; y < kSize / 2; ++y)
      for (int x = 0; x < kSize; ++x)
        EXPECT_EQ(pixel(glyph, x, y), pixel(glyph, x, kSize - 1 - y)) << x << ' ' << y;
}

TEST(MediaGlyphs, BecomeIconsOfTheSystem) {
  const Icon icon = glyphIcon(Glyph::Next, kSize);
  ICONINFO parts{};
  ASSERT_TRUE(GetIconInfo(icon.get(), &parts));
  BITMAP picture{};
  EXPECT_TRUE(GetObjectW(parts.hbmColor, sizeof picture, &picture));
  EXPECT_EQ(picture.bmWidth, kSize);
  EXPECT_EQ(picture.bmBitsPixel, 32);
  DeleteObject(parts.hbmColor);
  DeleteObject(parts.hbmMask);
}

}  // namespace
}  // namespace nerolith::windows
