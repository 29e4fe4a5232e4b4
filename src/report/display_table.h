// A table display's cells, apart from the grid that shows them.
#pragma once

#include <string>
#include <vector>

#include "platform/look.h"

namespace tolmer {

struct DisplayCell {
  std::string text;
  Colour back;
  Align align = Align::left;

  bool isHeading() const { return back == colours::buttonFace; }
  // A colour that says something: neither the ground of cells nor that of headings.
  bool isMarked() const;
};

using DisplayRow = std::vector<DisplayCell>;

struct DisplayTable {
  std::vector<DisplayRow> rows;  // of equal length
};

// "white", "face" for the look of headings, or "#RRGGBB".
std::string backName(Colour back);

}  // namespace tolmer
