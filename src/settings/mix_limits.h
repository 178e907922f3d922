// How mix length and mix lead are kept in line, as the settings window's two texts.
#pragma once

#include <string>
#include <string_view>

namespace nerolith::settings {

/// Each compares the whole parts of both numbers (a text's leading number, 0 where it has none) and
/// gives the text that is to stand in its box: the own one, or a copy of the other.

/// A mix length above 30 s or above the lead becomes the lead. The copy is not held to the 30 s: a
/// length of 50 typed beside a lead of 45 gives 45.
std::string validLength(std::string_view length, std::string_view lead);

/// A lead above 60 s or below the mix length becomes the mix length.
std::string validLead(std::string_view length, std::string_view lead);

}  // namespace nerolith::settings
