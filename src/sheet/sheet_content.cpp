#include "sheet/sheet_content.h"

#include <algorithm>
#include <cmath>

#include "engine/number_format.h"
#include "textimport/typed_number.h"

namespace tolmer {

std::string defaultHeading(int iVar, int variables) {
  if (iVar == 0) return "Label";
  if (variables == 1) return "X";
  if (variables == 4 && iVar == 4) return "Var3";
  return exitHeading(iVar, variables);
}

std::string exitHeading(int iVar, int variables) {
  if (variables == 4 && iVar == binaryVariable) return "Binary";
  return "Var" + std::to_string(iVar);
}

SheetContent newContent(int observations, int variables) {
  SheetContent content(observations, variables);
  for (int c = 0; c <= variables; ++c)
    content.cells(0, c) = {.kind = DataCell::Kind::text, .text = defaultHeading(c, variables)};
  content.decimals.assign(static_cast<std::size_t>(variables) + 1, standardDecimals);
  if (variables == 4) content.decimals[binaryVariable] = 0;
  content.title = newTitle;
  return content;
}

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
