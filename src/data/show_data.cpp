#include "data/show_data.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "engine/decimals_choice.h"
#include "engine/number_format.h"
#include "platform/desktop.h"
#include "platform/grid/grid_copy.h"
#include "platform/grid/grid_fit.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr long helpOnAllData = 113;
constexpr float shareOfScreen = 0.8F;
constexpr Twips aroundTable = 450;  // what a window has more than its table, scroll bar included
constexpr Twips aboveAndBelowText = 75;

CellStyle headingStyle() {
  return {.align = Align::centre,
          .heading = true,
          .back = colours::buttonFace,
          .fore = colours::buttonText};
}

CellStyle bodyStyle() { return {.align = Align::centre, .back = colours::window}; }

// One picture for a variable, so that all its values show the same number of decimals.
void putVariable(Sheet& sheet, int col, const WorkingCopy& copy, int variable) {
  const int n = copy.miNumCases;
  std::vector<float> values(static_cast<std::size_t>(n) + 1);
  for (int i = 1; i <= n; ++i) values[i] = copy.osData(i, variable);
  const std::string picture = FindFormatString(values, n, 4, 8, false, true, true, true);
  sheet.at(1, col).text = copy.otColName(variable);
  for (int i = 1; i <= n; ++i) sheet.at(i + 1, col).text = formatNumber(values[i], picture);
}

}  // namespace

frmShowData::frmShowData(Desktop& desktop, const WorkingCopy& copy)
    : Window(desktop, "frmShowData", WindowStyle::dialog, "List of Variables"), copy_(copy) {
  setSizable(true);
  spdShowData.setAccessibleName("List of all data");
  spdShowData.setSelectionMode(SelectionMode::none);
  Resize = [this] { spdShowData.setPlace({0, 0, innerWidth(), innerHeight()}); };
  takeKey({keys::escape}, [this] { requestClose(); });
  takeKey({keys::f1}, [this] {
    this->desktop().showHelp({"tolmod", HelpRequest::Kind::topic, helpOnAllData});
  });
  takeKey({.code = 'C', .control = Held::yes}, [this] { CopyGraph(); });
}

void frmShowData::PositionControls() {
  const Size screen = desktop().screenSize();
  setPlace({left(), top(), screen.width * shareOfScreen, screen.height * shareOfScreen});
}

void frmShowData::UpdateDisplay() {
  const RedrawLock lock(spdShowData);
  spdShowData.setSheet(content());
  spdShowData.freeze(1, leftColumns());
  fitColumnsAndRows();
  fitWindow();
}

Sheet frmShowData::content() const {
  Sheet sheet(copy_.miNumCases + 1, copy_.miNumCols + leftColumns());
  sheet.change(sheet.body(), [](Cell& cell) { cell.style = bodyStyle(); });
  sheet.change({1, 1, 1, sheet.cols()}, [](Cell& cell) { cell.style = headingStyle(); });
  sheet.change({1, 1, sheet.rows(), 1}, [](Cell& cell) { cell.style = headingStyle(); });
  sheet.at(1, 1).text = "Case";
  if (copy_.mbLabeledData) sheet.at(1, 2).text = copy_.mtLabelColName;
  for (int i = 1; i <= copy_.miNumCases; ++i) {
    sheet.at(i + 1, 1).text = formatNumber(i, "0");
    if (!copy_.mbLabeledData) continue;
    sheet.at(i + 1, 2).text = copy_.otCaseLabel(i) + " ";
    sheet.at(i + 1, 2).style.align = Align::left;
  }
  for (int j = 1; j <= copy_.miNumCols; ++j) putVariable(sheet, leftColumns() + j, copy_, j);
  return sheet;
}

void frmShowData::fitColumnsAndRows() {
  const auto twoBlanks = pixels(static_cast<float>(std::ceil(textWidth(spdShowData.font(), "  "))));
  for (int col = 1; col <= spdShowData.maxCols(); ++col)
    spdShowData.setColWidth(col, spdShowData.widestText(col) + twoBlanks);
  for (int row = 1; row <= spdShowData.maxRows(); ++row)
    spdShowData.setRowHeight(row, spdShowData.tallestText(row) + aboveAndBelowText);
}

// A small table gets a small window, a large one scrolls.
void frmShowData::fitWindow() {
  const Size table = spdShowData.contentSize();
  setPlace({left(), top(), std::min(innerWidth(), table.width + aroundTable),
            std::min(innerHeight(), table.height + aroundTable)});
  fillRoom(spdShowData, {innerWidth(), innerHeight()}, desktop().scrollBarThickness());
  centreOnScreen();
}

void frmShowData::CopyGraph() { desktop().setClipboard(copyOf(spdShowData.sheet())); }

}  // namespace tolmer
