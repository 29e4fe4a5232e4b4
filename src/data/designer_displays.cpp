// What the designer's controls show of the working copy.
#include <algorithm>
#include <cmath>

#include "data/designer.h"
#include "data/designer_look.h"
#include "platform/desktop.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr int leastListRows = 13;
constexpr int leastDefinitionRows = 5;
constexpr Twips numberColumnWidth = 1000;

std::string columnText(int col) { return "Col " + std::to_string(col); }

// Two columns, number and name, of equal height; the name takes what the scroll bar leaves.
void shapeList(Grid& list, int rows, Twips barThickness) {
  list.setSize(rows, 2);
  const Twips height = designer_look::rowHeightToFill(list.height());
  for (int row = 1; row <= rows; ++row) list.setRowHeight(row, height);
  list.setColWidth(1, numberColumnWidth);
  const Twips lines = pixels(3);
  list.setColWidth(2, std::max(list.width() - numberColumnWidth - barThickness - lines, 0.0F));
  list.setScrollBars(ScrollBars::vertical);
}

}  // namespace

void frmModelDesign::DisplayComment() { txtComments.setText(copy_.otVarInfo(0)); }

void frmModelDesign::DisplayDepVar() {
  txtDepVar.setText(copy_.mbDepVarSpecified
                        ? columnText(copy_.miDepVarCol) + "  " + copy_.otColName(copy_.miDepVarCol)
                        : std::string());
}

void frmModelDesign::DisplayVarList() {
  const RedrawLock lock(spdVarList);
  const int rows = std::max<int>(copy_.miNumCols, leastListRows);
  shapeList(spdVarList, rows, desktop().scrollBarThickness());
  spdVarList.clear({1, 1, rows, 2});
  for (int row = 1; row <= copy_.miNumCols; ++row) {
    spdVarList.setText(row, 1, columnText(row));
    spdVarList.setText(row, 2, copy_.otColName(row));
  }
}

void frmModelDesign::DisplayIndepVars() {
  const RedrawLock lock(spdIndepVars);
  const int rows = std::max<int>(copy_.miNumCols, leastListRows);
  shapeList(spdIndepVars, rows, desktop().scrollBarThickness());
  spdIndepVars.clear({1, 1, rows, 2});
  for (int row = 1; row <= copy_.miNumPredictors; ++row) {
    const int col = copy_.oiIndepVarCol(row);
    spdIndepVars.setText(row, 1, columnText(col));
    spdIndepVars.setText(row, 2, copy_.otColName(col));
  }
}

void frmModelDesign::DisplayVarDefs() {
  const RedrawLock lock(spdVarDefs);
  const int rows = std::max<int>(copy_.miNumCols, leastDefinitionRows);
  spdVarDefs.setSize(rows, 2);
  CellStyle style;
  style.back = colours::buttonFace;
  style.fore = colours::buttonText;
  spdVarDefs.setStyle({1, 1, rows, 2}, style);
  for (int row = 1; row <= rows; ++row) {
    const bool isVariable = row <= copy_.miNumCols;
    spdVarDefs.setText(row, 1, isVariable ? copy_.otColName(row) : std::string());
    spdVarDefs.setText(row, 2, isVariable ? copy_.otVarInfo(row) : std::string());
    spdVarDefs.setRowHeight(row, designer_look::rowHeight);
  }
  const auto threeBlanks = static_cast<float>(std::ceil(textWidth(spdVarDefs.font(), "   ")));
  spdVarDefs.setColWidth(1, spdVarDefs.widestText(1) + pixels(threeBlanks));
  const Twips lines = pixels(3);
  const Twips left =
      fraVarDefsInside.width() - spdVarDefs.colWidth(1) - desktop().scrollBarThickness() - lines;
  const Twips room = pixels(std::floor(std::max(left, 0.0F) / twipsPerPixel));
  const Twips needed = spdVarDefs.widestText(2);
  spdVarDefs.setColWidth(2, std::max(room, needed));
  spdVarDefs.setScrollBars(needed > room ? ScrollBars::both : ScrollBars::vertical);
}

void frmModelDesign::DisplayVarDef(int iRow) {
  if (iRow < 1 || iRow > copy_.miNumCols) return;
  txtVblDef.setText(columnText(iRow) + "   " + copy_.otColName(iRow) + "\n\n" +
                    copy_.otVarInfo(iRow));
}

}  // namespace tolmer
