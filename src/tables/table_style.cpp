#include "tables/table_style.h"

#include <utility>

#include "base/text_encoding.h"

namespace tolmer {

CellStyle bodyStyle(Align align) { return {.align = align}; }

CellStyle faceStyle(Align align) {
  return {.align = align, .back = colours::buttonFace, .fore = colours::buttonText};
}

CellStyle headingStyle(Align align) {
  CellStyle style = faceStyle(align);
  style.heading = true;
  return style;
}

void put(Sheet& sheet, int row, int col, std::string text, const CellStyle& style) {
  Cell& cell = sheet.at(row, col);
  cell.text = std::move(text);
  cell.style = style;
}

void styleRow(Sheet& sheet, int row, const CellStyle& style) {
  sheet.change({row, 1, row, sheet.cols()}, [&style](Cell& cell) { cell.style = style; });
}

std::string shortened(const std::string& tName) {
  constexpr std::size_t longest = 10;
  return tName.substr(0, utf8Prefix(tName, longest));
}

}  // namespace tolmer
