// A table display as markup for a printed text.
#pragma once

#include <string>

#include "report/display_table.h"

namespace tolmer {

// One <table> for each part of the display, in the same order, and a line that explains its
// colours. What it looks like is the style sheet's business: figures are of class "right", cells
// that a colour marks of class "cyan", "green", "red" or "yellow".
std::string figureTable(const DisplayTable& table);

}  // namespace tolmer
