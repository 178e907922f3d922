// The product's sign, as windows and task bars show it.
#pragma once

#include <QPixmap>

namespace nerolith::widgets {

/// Drawn, `side` pixels square, on nothing: no picture file has to be found or decoded.
QPixmap productIcon(int side);

/// Gives it to all windows of the program; the first call does the work.
void giveProductIcon();

}  // namespace nerolith::widgets
