// Colours as the player's rules name them.
#pragma once

#include <array>
#include <cstdint>

namespace nerolith::controls {

/// 0xBBGGRR: red in the low byte.
using Colour = std::uint32_t;

inline constexpr Colour kRed = 0x0000FF;
inline constexpr Colour kGreen = 0x00FF00;
inline constexpr Colour kYellow = 0x00FFFF;
inline constexpr Colour kGrey = 0x808080;

constexpr int redOf(Colour colour) { return static_cast<int>(colour & 0xFF); }
constexpr int greenOf(Colour colour) { return static_cast<int>((colour >> 8) & 0xFF); }
constexpr int blueOf(Colour colour) { return static_cast<int>((colour >> 16) & 0xFF); }

/// The classic 16-colour text-mode palette, 0 black ... 15 bright white.
inline constexpr std::array<Colour, 16> kBasicPalette = {
    0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
    0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};

}  // namespace nerolith::controls
