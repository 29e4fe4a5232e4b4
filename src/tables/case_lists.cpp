#include "tables/case_lists.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>

#include "engine/decimals_choice.h"
#include "engine/number_format.h"
#include "engine/statistical_limits.h"
#include "state/analysis_state.h"

namespace tolmer {
namespace {

// Both begin with the number of the case and, where the data have labels, its label.
int caseColumns(const AnalysisState& state) { return state.bLabeledData ? 2 : 1; }

TableContent withCaseHeads(int rows, int cols, const AnalysisState& state) {
  TableContent table(rows, caseColumns(state) + cols);
  table.fixedColumns = caseColumns(state);
  table.heading(1, 1, "Case", Align::centre);
  if (state.bLabeledData) table.heading(1, 2, state.tLabelColName, Align::left);
  return table;
}

// In the list of data they head the row.
void putCase(TableContent& table, const AnalysisState& state, int iCase, CellRole role) {
  const int row = iCase + 1;
  table.setCase(row, iCase);
  table.at(row, 1) = {std::to_string(iCase), role, CellMark::none, Align::centre};
  if (!state.bLabeledData) return;
  table.at(row, 2) = {state.tCaseLabel[iCase] + " ",
                      role == CellRole::heading ? role : CellRole::text, CellMark::none,
                      Align::left};
}

// A figure that is far out of its variable's others.
CellMark outlierMark(const AnalysisState& state, int variable, float value) {
  const double spread = state.dDescStat(2, variable);
  const bool isOut =
      spread > 0 && std::fabs(value - state.dDescStat(1, variable)) / spread > outlierDeviations;
  return isOut ? CellMark::outlier : CellMark::none;
}

// The pictures are those of the variables, in their order.
void putData(TableContent& table, const AnalysisState& state, int iCase,
             std::span<const NumberPicture> pictures) {
  putCase(table, state, iCase, CellRole::heading);
  int col = caseColumns(state);
  int j = 0;
  for (const NumberPicture& picture : pictures) {
    const float value = state.sData(iCase, state.iModelCol[++j]);
    table.figure(iCase + 1, ++col, formatNumber(value, picture), Align::centre,
                 outlierMark(state, j, value));
  }
}

// Columns behind those of the case.
enum Column { observed = 1, fitted, residual, standardized, comment };

constexpr std::array heads = {"Y Obs", "Y Est", "Resid", "Std Resid", "Comment"};

// More than so many standard errors; the farthest first.
struct Band {
  float beyond;
  CellMark mark;
  const char* above;
  const char* below;
};
constexpr std::array bands = {Band{farthestResidual, CellMark::beyond4SE, "> 4 SE", "< -4 SE"},
                              Band{fartherResidual, CellMark::beyond3SE, "> 3 SE", "< -3 SE"},
                              Band{farResidual, CellMark::beyond2SE, "> 2 SE", "< -2 SE"}};

const Band* bandOf(float z) {
  const auto* band = std::find_if(bands.begin(), bands.end(),
                                  [z](const Band& one) { return std::fabs(z) > one.beyond; });
  return band == bands.end() ? nullptr : band;
}

std::string picture(std::span<const float> values, int count) {
  return FindFormatString(values, count, 4, 8, true, true, true, false);
}

// What all cases share, and the cells of one case.
class ResidualRows {
 public:
  explicit ResidualRows(const AnalysisState& state) : state_(state) {
    const auto cases = static_cast<std::size_t>(state.iNumCases);
    observed_.resize(cases + 1);
    standardized_.resize(cases + 1);
    const float s = hasValidFit_ ? state.Fit.sStdErr : 0;
    for (std::size_t i = 1; i <= cases; ++i) {
      observed_[i] = state.sData(static_cast<int>(i), state.iModelCol[1]);
      standardized_[i] = s != 0 ? state.Fit.sResid[i] / s : none;
    }
    observedPicture_ = picture(observed_, state.iNumCases);
    residualPicture_ = picture(state.Fit.sResid, state.iNumCases);
  }

  bool hasComments() const {
    return std::any_of(standardized_.begin() + 1, standardized_.end(), bandOf);
  }

  void put(TableContent& table, std::size_t i, bool bComments) const {
    const int row = static_cast<int>(i) + 1;
    const int left = caseColumns(state_);
    const float z = standardized_[i];
    const Band* band = bandOf(z);
    putCase(table, state_, static_cast<int>(i), CellRole::figure);
    const auto figure = [&](int col, float value, const NumberPicture& picture) {
      table.figure(row, left + col, formatNumber(value, picture), Align::centre);
    };
    const NumberPicture ofResiduals(residualPicture_);
    figure(observed, observed_[i], NumberPicture(observedPicture_));
    figure(fitted, hasValidFit_ ? state_.Fit.sFitted[i] : none, ofResiduals);
    figure(residual, hasValidFit_ ? state_.Fit.sResid[i] : none, ofResiduals);
    figure(standardized, z, NumberPicture("0.000"));
    if (band) table.at(row, left + standardized).mark = band->mark;
    if (!bComments) return;
    table.text(row, left + comment, band ? (z > 0 ? band->above : band->below) : "", Align::centre);
  }

 private:
  static constexpr float none = std::numeric_limits<float>::quiet_NaN();

  const AnalysisState& state_;
  const bool hasValidFit_ = !state_.Fit.bSingular;
  std::vector<float> observed_;      // from 1
  std::vector<float> standardized_;  // from 1
  std::string observedPicture_;
  std::string residualPicture_;
};

TableContent residualHeads(const AnalysisState& state, int cases, int columns) {
  TableContent table = withCaseHeads(cases + 1, columns, state);
  for (int col = 1; col <= columns; ++col)
    table.heading(1, caseColumns(state) + col, heads[col - 1], Align::centre);
  return table;
}

}  // namespace

TableContent dataList(const AnalysisState& state) {
  const int variables = listedVariables(state);
  const int cases = variables > 0 ? state.iNumCases : 0;
  TableContent table = withCaseHeads(cases + 1 + TableContent::rowsBelow, variables, state);
  table.frameShare = 6;
  for (int j = 1; j <= variables; ++j)
    table.heading(1, caseColumns(state) + j, variableName(state, j), Align::centre);
  std::vector<NumberPicture> pictures;
  for (int j = 1; j <= variables; ++j) pictures.emplace_back(state.tVarFormat[j]);
  for (int i = 1; i <= cases; ++i) putData(table, state, i, pictures);
  table.frameRowsBelow();
  table.key(1, CellMark::outlier);
  return table;
}

TableContent residualList(const AnalysisState& state) {
  if (!isAnalysed(state)) return residualHeads(state, 0, standardized);
  const ResidualRows rows(state);
  const bool bComments = rows.hasComments();
  TableContent table = residualHeads(state, state.iNumCases, bComments ? comment : standardized);
  for (int i = 1; i <= state.iNumCases; ++i)
    rows.put(table, static_cast<std::size_t>(i), bComments);
  return table;
}

}  // namespace tolmer
