#include "tables/table_content.h"

#include <algorithm>
#include <array>

#include "base/text_encoding.h"

namespace tolmer {
namespace {

struct MarkLook {
  Colour back;
  const char* meaning;
};

// In the order of CellMark.
constexpr std::array looks = {
    MarkLook{colours::white, ""},       MarkLook{colours::buttonFace, ""},
    MarkLook{colours::cyan, "p < .01"}, MarkLook{colours::green, "p < .05"},
    MarkLook{colours::red, "VIF > 10"}, MarkLook{colours::yellow, "Outlier"},
    MarkLook{colours::cyan, ""},        MarkLook{colours::yellow, ""},
    MarkLook{colours::red, ""}};

const MarkLook& lookOf(CellMark mark) { return looks[static_cast<std::size_t>(mark)]; }

}  // namespace

Colour backOf(const TableCell& cell) {
  return isFramed(cell) ? colours::buttonFace : lookOf(cell.mark).back;
}

void TableContent::frame(int row) {
  for (int col = 1; col <= cols_; ++col) at(row, col).role = CellRole::frame;
}

bool TableContent::isFrame(int row) const {
  const auto cells = this->row(row);
  return std::all_of(cells.begin(), cells.end(),
                     [](const TableCell& cell) { return cell.role == CellRole::frame; });
}

void TableContent::frameRowsBelow() {
  for (int row = rows() - rowsBelow + 1; row <= rows(); ++row) frame(row);
}

bool TableContent::has(CellMark mark) const {
  return std::any_of(cells_.begin(), cells_.end(),
                     [mark](const TableCell& cell) { return cell.mark == mark; });
}

void TableContent::key(int col, CellMark mark, Align align) {
  if (has(mark)) at(rows() - 1, col) = {lookOf(mark).meaning, CellRole::key, mark, align};
}

std::string shortened(const std::string& tName) {
  constexpr std::size_t longest = 10;
  return tName.substr(0, utf8Prefix(tName, longest));
}

}  // namespace tolmer
