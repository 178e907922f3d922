// Lets a thread that must not be late go before others.
#pragma once

namespace nerolith::sound {

/// For the thread that hands sound to the server: it works for a fraction of a millisecond every
/// 30 ms, and a machine that is busy with other things must not make it wait longer than its
/// reserve lasts. Asks for the round-robin class that sound servers use, else for a better nice
/// level; where the user has the right to neither, the thread stays as it is. Never fails. Children
/// and threads made later do not inherit it.
void makeThisThreadUrgent();

}  // namespace nerolith::sound
