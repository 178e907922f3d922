// Digits made of seven bars, drawn: no font has to be loaded for them.
#pragma once

#include <QColor>
#include <QRect>
#include <QRectF>
#include <QString>

class QPainter;

namespace nerolith::widgets {

enum class SegmentGlow { None, Soft };

/// Draws `text` (digits, ":" and "-"; anything else is a blank) into `room`, from the left and as
/// high as the room, narrower only where it would not fit. Unlit bars show faintly. Signs that do
/// not reach into `area` are left out.
void paintSevenSegments(QPainter& painter, const QRectF& room, const QRect& area,
                        const QString& text, const QColor& colour, SegmentGlow glow);

/// What of `room` and the glow around it has to be painted when the text changes: nothing for the
/// same text, the signs that differ where all keep their places, else everything.
QRect changedSigns(const QRectF& room, const QString& before, const QString& after);

}  // namespace nerolith::widgets
