// The colours, signs and words of marked cells, and what the key below a table says of them.
#pragma once

#include <string_view>

#include "platform/look.h"
#include "tables/table_content.h"

namespace tolmer {

// The colour of its mark, of the frame, or white.
Colour backOf(const TableCell& cell);
// The same on paper, where the screen's colours are too strong for figures on them: "#RRGGBB",
// empty for the frame and for white.
std::string_view tintOf(const TableCell& cell);
// "**" and the like beside a marked figure; empty where words or nothing tell of the mark.
std::string_view signOf(CellMark mark);
// "p below .01": the mark for those who neither see the colour nor the sign; empty for none.
std::string_view spokenMark(CellMark mark);
// "p < .01": what the key says of it; empty where a table has words of its own.
std::string_view meaningOf(CellMark mark);

}  // namespace tolmer
