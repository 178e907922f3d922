// Digits made of seven bars, drawn: no font has to be loaded for them.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

class QPainter;

namespace nerolith::widgets {

enum class SegmentGlow { None, Soft };

/// Draws `text` (digits, ":" and "-"; anything else is a blank) into `room`, from the left and as
/// high as the room, narrower only where it would not fit. Unlit bars show faintly.
void paintSevenSegments(QPainter& painter, const QRectF& room, const QString& text,
                        const QColor& colour, SegmentGlow glow);

}  // namespace nerolith::widgets
