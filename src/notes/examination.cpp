#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "displays/display_list.h"
#include "notes/notes.h"
#include "secondfit/shown_figures.h"
#include "tables/anova_table.h"
#include "tables/case_lists.h"
#include "tables/coefficient_table.h"

namespace tolmer {
namespace {

struct FitTable {
  std::string_view display;
  TableContent (*make)(const AnalysisState&);
};

constexpr std::array fitTables = {
    FitTable{"frmEstCoef", coefficientTable},
    FitTable{"frmANOVA", anovaTable},
    FitTable{"frmResidList", residualList},
};

// The tables with numbers of the fit: those at hand, and the others made.
class FitTables {
 public:
  FitTables(const FitTables&) = delete;
  FitTables(const AnalysisState& state, std::span<const ShownTable> atHand) {
    for (std::size_t i = 0; i < fitTables.size(); ++i) {
      const auto found = std::ranges::find(atHand, fitTables[i].display, &ShownTable::display);
      if (found == atHand.end()) made_[i] = fitTables[i].make(state);
      tables_[i] = found == atHand.end() ? &made_[i] : found->content;
    }
  }

  Health check(const ModelData& data, const SecondFit& fit, bool labelled) const {
    const FigureSource source{data, fit, labelled};
    std::vector<ShownCell> cells;
    for (std::size_t i = 0; i < fitTables.size(); ++i) {
      const FigureOfCell figureOf = shownFigures(fitTables[i].display);
      for (int row = 2; row <= tables_[i]->rows(); ++row)
        for (int col = 1; col <= tables_[i]->cols(); ++col)
          if (const auto figure = figureOf(source, row, col))
            cells.push_back(
                {fitTables[i].display, row, col, tables_[i]->at(row, col).text, *figure});
    }
    return checkCells(fit.condition, cells);
  }

  // The terms whose limits read like the coefficient.
  std::vector<int> alikeRows(const Fit& fit) const {
    const TableContent& table = *tables_[0];
    std::vector<int> rows;
    for (int row = 2; row < static_cast<int>(fit.sCoefSE.size()) + 1; ++row) {
      const std::string& estimate = table.at(row, 2).text;
      if (fit.sCoefSE[static_cast<std::size_t>(row) - 1] != 0 &&
          table.at(row, 7).text == estimate && table.at(row, 8).text == estimate)
        rows.push_back(row);
    }
    return rows;
  }

 private:
  std::array<TableContent, fitTables.size()> made_;
  std::array<const TableContent*, fitTables.size()> tables_{};
};

bool samePlace(const Unconfirmed& one, const Unconfirmed& other) {
  return one.row == other.row && one.column == other.column && one.display == other.display;
}

// The held data with the numbers as they were written; nothing where nobody kept them, or where
// singles hold them all.
std::optional<ModelData> writtenData(const AnalysisState& state, const ModelData& held) {
  const Matrix<double>& written = state.uOrigin.written;
  if (written.lastRow() < held.cases) return {};
  ModelData data = held;
  bool differs = false;
  const auto take = [&](double& value, int row, int column) {
    differs = differs || value != written(row, column);
    value = written(row, column);
  };
  const int first = held.intercept ? 1 : 0;
  for (int i = 1; i <= held.cases; ++i) {
    take(data.y[static_cast<std::size_t>(i) - 1], i, state.iModelCol[1]);
    for (int j = first; j < held.terms; ++j)
      take(data.x[static_cast<std::size_t>(j * held.cases + i) - 1], i,
           state.iModelCol[static_cast<std::size_t>(j - first) + 2]);
  }
  return differs ? std::optional(std::move(data)) : std::nullopt;
}

}  // namespace

Examination examine(const AnalysisState& state, std::span<const ShownTable> tables) {
  Examination result;
  if (!hasFit(state)) return result;
  result.data = heldData(state);
  result.fit = fitSecond(result.data);
  if (state.Fit.bSingular) {
    result.combinations = combinations(result.data, result.fit);
    return result;
  }
  const FitTables shown(state, tables);
  result.health = shown.check(result.data, result.fit, state.bLabeledData);
  result.alikeRows = shown.alikeRows(state.Fit);
  if (!result.health->unconfirmed.empty())
    result.combinations = combinations(result.data, result.fit);
  if (const auto written = writtenData(state, result.data)) {
    const SecondFit fit = fitSecond(*written, Extent::shownNumbers);
    for (Unconfirmed& one : shown.check(*written, fit, state.bLabeledData).unconfirmed)
      if (one.doubt == Doubt::differs &&
          std::ranges::none_of(result.health->unconfirmed,
                               [&](const auto& other) { return samePlace(one, other); }))
        result.moved.push_back(std::move(one));
  }
  return result;
}

}  // namespace tolmer
