#include "sheet/sheet_content.h"

#include <algorithm>
#include <cmath>

#include "engine/number_format.h"
#include "sheet/new_sheet.h"
#include "textimport/typed_number.h"

namespace tolmer {

bool isUsed(const SheetContent& content, int row) {
  const DataCell* cells = content.cells.row(row);
  return std::any_of(cells, cells + content.variables() + 1,
                     [](const DataCell& cell) { return cell.kind != DataCell::Kind::empty; });
}

bool isDescribed(const SheetContent& content) {
  return !content.source.empty() ||
         std::any_of(content.labels.begin(), content.labels.end(),
                     [](const std::string& label) { return !label.empty(); });
}

std::string aboutData(const SheetContent& content) {
  std::string about = content.title == newTitle ? "" : content.title;
  if (!content.source.empty())
    about += (about.empty() ? "Source: " : ". Source: ") + content.source;
  return about;
}

int lastUsedRow(const SheetContent& content) {
  int row = content.observations();
  while (row > 0 && !isUsed(content, row)) --row;
  return row;
}

std::string shownNumber(double number, int decimals) {
  constexpr double noDecimalsFrom = 1e15;
  if (!(std::fabs(number) < noDecimalsFrom)) return exactText(number);
  std::string picture = "0";
  if (decimals > 0) picture.append(1, '.').append(static_cast<std::size_t>(decimals), '0');
  return formatNumber(number, picture);
}

}  // namespace tolmer
