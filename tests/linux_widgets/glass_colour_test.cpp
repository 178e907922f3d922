#include "platform/linux/widgets/glass_colour.h"

#include <gtest/gtest.h>

#include "platform/linux/widgets/theme.h"

namespace nerolith::widgets {
namespace {

TEST(GlassColour, EveryColourOfThePaletteIsLegible) {
  for (const controls::Colour colour : controls::kBasicPalette) {
    const QColor ink = toQColor(colour);
    EXPECT_GE(contrastRatio(ink, glassFor(ink)), 3.0) << ink.name().toStdString();
  }
}

TEST(GlassColour, TurnsLightOnlyUnderDarkColours) {
  EXPECT_EQ(glassFor(toQColor(0x000000)), theme::kLightGlass);
  EXPECT_EQ(glassFor(toQColor(0x000080)), theme::kLightGlass);
  EXPECT_EQ(glassFor(toQColor(0x008000)), theme::kGlass);
  EXPECT_EQ(glassFor(toQColor(0xFFFFFF)), theme::kGlass);
}

TEST(GlassColour, ContrastOfBlackAndWhiteIsTwentyOne) {
  EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21.0, 0.001);
  EXPECT_NEAR(contrastRatio(Qt::white, Qt::black), 21.0, 0.001);
  EXPECT_NEAR(contrastRatio(Qt::red, Qt::red), 1.0, 0.001);
}

TEST(GlassColour, RedOfThePlayersColoursIsInTheLowByte) {
  EXPECT_EQ(toQColor(0x0000FF), QColor(255, 0, 0));
  EXPECT_EQ(toQColor(0xFF8001), QColor(1, 128, 255));
}

TEST(GlassColour, InkOnAnySkinCanBeRead) {
  for (int light = 0; light < 256; ++light) {
    const QColor skin(light, light, light);
    EXPECT_GE(contrastRatio(inkFor(skin), skin), 3.0) << light;
  }
}

TEST(Theme, TextOfTheListCanBeReadOnItsGroundAndOnTheSelection) {
  EXPECT_GE(contrastRatio(theme::kInk, theme::kWell), 7.0);
  EXPECT_GE(contrastRatio(theme::kFaintInk, theme::kWell), 4.5);
  EXPECT_GE(contrastRatio(theme::kSelectionInk, theme::kSelection), 7.0);
  EXPECT_GE(contrastRatio(theme::kGlassDimInk, theme::kGlassBottom), 4.5);
}

}  // namespace
}  // namespace nerolith::widgets
