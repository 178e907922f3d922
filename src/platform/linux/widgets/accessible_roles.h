// What a screen reader is told where the toolkit's own word is not enough.
#pragma once

namespace nerolith::widgets {

/// A window is a window, or a dialog where it has an owner; a lamp is a label; a bar that fills is
/// a progress bar; the drive box keeps its name and tells the drive beside it (the toolkit would
/// call it by its drive). Who switches a box by a screen reader has clicked it: the toolkit would
/// only draw its tick. Once, at the start: nothing is made before a screen reader asks.
void tellRolesToScreenReaders();

}  // namespace nerolith::widgets
