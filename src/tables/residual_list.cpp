#include "tables/residual_list.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "engine/number_format.h"
#include "engine/number_picture.h"
#include "state/model_variables.h"
#include "tables/case_columns.h"
#include "tables/table_style.h"

namespace tolmer {
namespace {

// Columns behind those of the case.
enum Column { observed = 1, fitted, residual, standardized, comment };

constexpr std::array heads = {"Y Obs", "Y Est", "Resid", "Std Resid", "Comment"};

// More than so many standard errors, and how they are marked; the farthest first.
struct Band {
  float beyond;
  Colour back;
  const char* above;
  const char* below;
};
constexpr std::array bands = {Band{4, colours::red, "> 4 SE", "< -4 SE"},
                              Band{3, colours::yellow, "> 3 SE", "< -3 SE"},
                              Band{2, colours::cyan, "> 2 SE", "< -2 SE"}};

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
    const float s = state.Fit.sStdErr;
    for (std::size_t i = 1; i <= cases; ++i) {
      observed_[i] = state.sData(static_cast<int>(i), state.iModelCol[1]);
      standardized_[i] = s != 0 ? state.Fit.sResid[i] / s : std::numeric_limits<float>::quiet_NaN();
    }
    observedPicture_ = picture(observed_, state.iNumCases);
    residualPicture_ = picture(state.Fit.sResid, state.iNumCases);
  }

  bool hasComments() const {
    return std::any_of(standardized_.begin() + 1, standardized_.end(), bandOf);
  }

  void putRow(Sheet& sheet, std::size_t i, bool bComments) const {
    const int row = static_cast<int>(i) + 1;
    const int left = caseColumns(state_);
    const float z = standardized_[i];
    const Band* band = bandOf(z);
    const CellStyle plain = bodyStyle(Align::centre);
    CellStyle marked = plain;
    if (band) marked.back = band->back;
    putCase(sheet, row, state_, static_cast<int>(i), bodyStyle);
    put(sheet, row, left + observed, formatNumber(observed_[i], observedPicture_), plain);
    put(sheet, row, left + fitted, formatNumber(state_.Fit.sFitted[i], residualPicture_), plain);
    put(sheet, row, left + residual, formatNumber(state_.Fit.sResid[i], residualPicture_), plain);
    put(sheet, row, left + standardized, formatNumber(z, "0.000"), marked);
    if (!bComments) return;
    put(sheet, row, left + comment, band ? (z > 0 ? band->above : band->below) : "", plain);
  }

 private:
  const AnalysisState& state_;
  std::vector<float> observed_;      // from 1
  std::vector<float> standardized_;  // from 1
  std::string observedPicture_;
  std::string residualPicture_;
};

Sheet withHeads(Sheet sheet, const AnalysisState& state) {
  putCaseHeads(sheet, state);
  const int left = caseColumns(state);
  for (int col = left + 1; col <= sheet.cols(); ++col)
    put(sheet, 1, col, heads[static_cast<std::size_t>(col - left - 1)],
        headingStyle(Align::centre));
  return sheet;
}

}  // namespace

Sheet residualListSheet(const AnalysisState& state) {
  const int left = caseColumns(state);
  if (!isAnalysed(state)) return withHeads(Sheet(1, left + standardized), state);
  const ResidualRows rows(state);
  const bool bComments = rows.hasComments();
  Sheet sheet(state.iNumCases + 1, left + (bComments ? comment : standardized));
  for (int i = 1; i <= state.iNumCases; ++i)
    rows.putRow(sheet, static_cast<std::size_t>(i), bComments);
  return withHeads(std::move(sheet), state);
}

frmResidList::frmResidList(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : TableDisplay(desktop, state, host, "frmResidList", "Residual List", "spdResidList") {}

CellPosition frmResidList::frozenCorner() const { return {1, caseColumns(state_)}; }

}  // namespace tolmer
