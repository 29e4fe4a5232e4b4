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

  Health check(const FigureSource& source) const {
    Health health{.condition = source.fit.condition};
    forEach(source, [&](std::size_t table, int row, int col, const Figure& figure) {
      checkCell(health, {fitTables[table].display, row, col, text(table, row, col), figure});
    });
    return health;
  }

  bool surelyStand(const FigureSource& source) const {
    bool stand = true;
    forEach(source, [&](std::size_t table, int row, int col, const Figure& figure) {
      stand = stand && surelyConfirmed(text(table, row, col), figure);
    });
    return stand;
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
  const std::string& text(std::size_t table, int row, int col) const {
    return tables_[table]->at(row, col).text;
  }
  template <class Visit>
  void forEach(const FigureSource& source, Visit visit) const {
    for (std::size_t i = 0; i < fitTables.size(); ++i) {
      const FigureOfCell figureOf = shownFigures(fitTables[i].display);
      for (int row = 2; row <= tables_[i]->rows(); ++row)
        for (int col = 1; col <= tables_[i]->cols(); ++col)
          if (const auto figure = figureOf(source, row, col)) visit(i, row, col, *figure);
    }
  }

  std::array<TableContent, fitTables.size()> made_;
  std::array<const TableContent*, fitTables.size()> tables_{};
};

bool samePlace(const Unconfirmed& one, const Unconfirmed& other) {
  return one.row == other.row && one.column == other.column && one.display == other.display;
}

// Shown numbers that are confirmed and would be others with the data as written. The fit of those
// costs as much as the first, so it is done where a step from the first cannot rule out any.
std::vector<Unconfirmed> movedNumbers(const AnalysisState& state, const Examination& held,
                                      const FitTables& shown) {
  const auto written = writtenData(state);
  if (!written) return {};
  const auto near = fitNearby(held.fit, held.data, *written);
  if (near && shown.surelyStand({*written, *near, state.bLabeledData})) return {};
  const SecondFit fit = fitSecond(*written, Extent::shownNumbers);
  std::vector<Unconfirmed> moved;
  for (Unconfirmed& one : shown.check({*written, fit, state.bLabeledData}).unconfirmed)
    if (one.doubt == Doubt::differs &&
        std::ranges::none_of(held.health->unconfirmed,
                             [&](const auto& other) { return samePlace(one, other); }))
      moved.push_back(std::move(one));
  return moved;
}

}  // namespace

Examination examine(const AnalysisState& state, std::span<const ShownTable> tables, Extent extent) {
  Examination result;
  if (!hasFit(state)) return result;
  result.data = heldData(state);
  result.fit = fitSecond(result.data, extent);
  if (state.Fit.bSingular) {
    result.combinations = combinations(result.data, result.fit);
    return result;
  }
  const FitTables shown(state, tables);
  result.health = shown.check({result.data, result.fit, state.bLabeledData});
  result.alikeRows = shown.alikeRows(state.Fit);
  if (!result.health->unconfirmed.empty())
    result.combinations = combinations(result.data, result.fit);
  result.moved = movedNumbers(state, result, shown);
  return result;
}

}  // namespace tolmer
