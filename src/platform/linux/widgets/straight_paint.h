// Small pictures that change often, put onto the screen at once.
#pragma once

#include <QImage>
#include <QWidget>

namespace nerolith::widgets {

/// Copies a piece of a widget's picture to where the window keeps what is on the screen, and lets
/// it be seen. For a few pixels ten times a second the toolkit's own way is long: it looks for what
/// lies behind and before, sends events, and waits until the screen is done with the pixels of last
/// time.
///
/// `picture` is all of the widget, of `kStraightFormat` but opaque, in device pixels; nothing may
/// lie over the widget. The widget's own painting must come to the same, as the toolkit uses it for
/// all else. Returns false, and has done nothing, where this cannot be done: the window is not on
/// the screen yet, its pixels are others, a scale that is not whole. Then `repaint` does it.
inline constexpr QImage::Format kStraightFormat = QImage::Format_ARGB32_Premultiplied;
bool putStraight(QWidget& widget, const QRect& area, const QImage& picture);

}  // namespace nerolith::widgets
