// Colours, type and measures of the faceplate, and the few shapes that everything is made of.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>

#include "controls/layout.h"

class QPainter;
class QRectF;
class QWidget;

/// Lengths are in pixels at 96 dots per inch; the toolkit scales them with the display.
namespace nerolith::widgets::theme {

inline constexpr QColor kPanelTop{0x2d, 0x32, 0x38};
inline constexpr QColor kPanelMiddle{0x20, 0x24, 0x29};
inline constexpr QColor kPanelBottom{0x18, 0x1b, 0x1f};
inline constexpr QColor kInk{0xe4, 0xe9, 0xee};
inline constexpr QColor kDimInk{0x9a, 0xa5, 0xb0};
inline constexpr QColor kFaintInk{0x79, 0x83, 0x8c};
inline constexpr QColor kGlass{0x0b, 0x11, 0x0f};
inline constexpr QColor kGlassBottom{0x11, 0x1a, 0x17};
inline constexpr QColor kLightGlass{0xd3, 0xdd, 0xd6};
inline constexpr QColor kGlassLine{0x22, 0x31, 0x2d};
inline constexpr QColor kGlassInk{0xe6, 0xf0, 0xea};
inline constexpr QColor kGlassDimInk{0x8d, 0xa3, 0x99};
inline constexpr QColor kWell{0x12, 0x15, 0x18};
inline constexpr QColor kButtonTop{0x40, 0x48, 0x51};
inline constexpr QColor kButtonBottom{0x2b, 0x31, 0x38};
inline constexpr QColor kAccent{0x3f, 0xb0, 0x70};
inline constexpr QColor kAmber{0xd2, 0x9c, 0x3a};
inline constexpr QColor kSelection{0x27, 0x4a, 0x63};
inline constexpr QColor kSelectionInk{0xf2, 0xf7, 0xfb};
inline constexpr QColor kPlaying{0x8b, 0xe8, 0xac};
inline constexpr QColor kFocus{0x6f, 0xb6, 0xe8};

inline constexpr int kRowHeight = 23;
inline constexpr int kLampSize = 11;
inline constexpr qreal kRound = 5;

/// The palette of everything that the theme does not paint itself (menus, dialogs).
QPalette palette();

/// The user's own font family in the size and weight of `look`.
QFont fontFor(controls::Look look);

/// The picture of a plain panel, between two heights of a window `height` high.
void paintPanel(QPainter& painter, const QRectF& area, qreal height);

/// A recess in the faceplate with a shadow at its upper rim.
void paintRecess(QPainter& painter, const QRectF& area, const QColor& top, const QColor& bottom);

/// A plate that holds controls together: a shade darker than the panel, with a fine edge.
void paintPlate(QPainter& painter, const QRectF& area);

/// What of a recess is nothing but its fill, and that fill: all there is to paint of a piece of it.
QRectF insideRecess(const QRectF& area);
QLinearGradient recessFill(const QRectF& area, const QColor& top, const QColor& bottom);

/// A raised key. `tint` colours it softly; an invalid one does not.
enum class KeyState { Idle, Hovered, Pressed, Disabled };
void paintKey(QPainter& painter, const QRectF& area, KeyState state, const QColor& tint);

/// A round lamp around `centre`; lit lamps (anything but grey) throw a soft light.
void paintLamp(QPainter& painter, const QPointF& centre, qreal size, const QColor& colour);
bool lampLit(const QColor& colour);

/// The ring around what has the keyboard.
void paintFocus(QPainter& painter, const QRectF& area, qreal round = kRound,
                const QColor& colour = kFocus);

/// `colour` as it can be read on a panel whose ink is `ink`: the panel may be a light picture.
QColor onPanel(const QColor& colour, const QColor& ink);

}  // namespace nerolith::widgets::theme
