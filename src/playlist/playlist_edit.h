// How songs get into the lines of a playlist, and lines out of it.
#pragma once

#include <string>
#include <vector>

namespace nerolith::playlist {

using Lines = std::vector<std::string>;

/// A list box's current position counts as this one: none is the first.
int positionOf(int listIndex);

/// `songs` in their order before the line at `position`. A playlist without a line gets an empty
/// one first, which the songs then stand before; it goes again only where `wasEmpty` says that the
/// file had no line when it was opened.
Lines insertBefore(Lines lines, int position, const Lines& songs, bool wasEmpty);
/// The same behind the line at `position`.
Lines insertAfter(Lines lines, int position, const Lines& songs, bool wasEmpty);
/// `songs` instead of the line at `position`.
Lines replaceLine(Lines lines, int position, const Lines& songs, bool wasEmpty);
/// Fails (base::Failure) when there is no such line, and so do the others beyond the end.
Lines removeLine(Lines lines, int position);

}  // namespace nerolith::playlist
