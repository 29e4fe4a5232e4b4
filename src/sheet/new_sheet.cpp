#include "sheet/new_sheet.h"

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

}  // namespace tolmer
