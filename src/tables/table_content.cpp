#include "tables/table_content.h"

#include <algorithm>

#include "base/text_encoding.h"
#include "tables/mark_colours.h"

namespace tolmer {
void TableContent::probability(int row, int col, std::string text, CellMark mark) {
  const bool isZero = text == "0.000";
  figure(row, col, std::move(text), Align::right, mark);
  if (isZero && notes.empty()) notes.emplace_back("A P of 0.000 is below 0.0005.");
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
  if (has(mark)) at(rows() - 1, col) = {std::string(meaningOf(mark)), CellRole::key, mark, align};
}

void TableContent::shortName(int row, int col, const std::string& tName, Align align) {
  constexpr std::size_t longest = 10;
  const std::size_t length = utf8Prefix(tName, longest);
  heading(row, col, tName.substr(0, length), align);
  if (length < tName.size()) wholeNames.push_back({row, col, tName});
}

}  // namespace tolmer
