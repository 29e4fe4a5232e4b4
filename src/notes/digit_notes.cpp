#include <algorithm>
#include <cmath>

#include "base/portable_math.h"
#include "displays/display_list.h"
#include "engine/axis_scale.h"
#include "engine/number_format.h"
#include "graphs/axis_labels.h"
#include "notes/note_makers.h"

namespace tolmer {
namespace {

// "3 in Estimated Coefficients, 1 in ANOVA Table".
std::string countedByDisplay(const std::vector<NotedCell>& cells) {
  std::string text;
  for (const Display& display : displayList()) {
    const auto count = std::ranges::count(cells, display.form, &NotedCell::display);
    if (count > 0)
      text += (text.empty() ? "" : ", ") + std::to_string(count) + " in " + display.caption;
  }
  return text;
}

struct SmallP {
  NotedCell cell;
  std::string of;
  double value;  // by the second fit
};

std::vector<SmallP> smallPs(const AnalysisState& state, const Examination& examination) {
  std::vector<SmallP> found;
  const auto take = [&](float sShown, NotedCell cell, std::string of, const Figure& second) {
    if (sShown < 0.0006F && formatNumber(sShown, "0.000") == "0.000")
      found.push_back({std::move(cell), std::move(of), second.value});
  };
  for (int i = 1; i <= examination.data.terms; ++i) {
    const auto at = static_cast<std::size_t>(i);
    if (state.Fit.sCoefSE[at] != 0)
      take(state.Fit.sCoefP[at], {"frmEstCoef", i + 1, 5}, examination.data.names[at - 1],
           examination.fit.byTerm[at - 1].p);
  }
  take(state.Fit.sFProb, {"frmANOVA", 2, 6}, "F", examination.fit.model.fProbability);
  return found;
}

// The labels of an axis for the variable.
std::vector<std::string> axisTexts(float sLow, float sHigh) {
  const AxisScale scale = ComputeScale(sLow, sHigh);
  std::vector<float> ticks;
  for (int i = 0; i <= std::min<int>(scale.iSteps, 20); ++i)
    ticks.push_back(static_cast<float>(i) * scale.sStep + scale.sAxisMin);
  return scaleTexts(ticks);
}

// Decimals of a picture; more than any where the point is not fixed.
constexpr int anyDecimals = 300;
int decimalsOf(std::string_view picture) {
  if (picture.find('E') != picture.npos || picture.empty()) return anyDecimals;
  const auto point = picture.find('.');
  return point == picture.npos ? 0 : static_cast<int>(picture.size() - point) - 1;
}

// Whether different values of the variable read alike.
bool readsAlike(const AnalysisState& state, int variable) {
  const double low = state.dDescStat(3, variable);
  const double high = state.dDescStat(4, variable);
  if (!(low < high)) return false;
  const std::string& picture = state.tVarFormat[static_cast<std::size_t>(variable)];
  const bool isFixed = decimalsOf(picture) < anyDecimals && picture.find('0') != picture.npos;
  const bool isFar = isFixed && high - low > 2 * portable::pow(10.0, -decimalsOf(picture));
  if (!isFar && formatNumber(low, picture) == formatNumber(high, picture)) return true;
  if (high - low > 1e-3 * std::max(std::abs(low), std::abs(high))) return false;
  const auto texts = axisTexts(static_cast<float>(low), static_cast<float>(high));
  return std::ranges::adjacent_find(texts) != texts.end();
}

// Values of one variable that the data list does not show as they were written.
void findRounded(const AnalysisState& state, int variable, std::vector<NotedCell>& cells) {
  const auto at = static_cast<std::size_t>(variable);
  const std::string& picture = state.tVarFormat[at];
  const double half = 0.5 * portable::pow(10.0, -decimalsOf(picture));
  const int column = state.iModelCol[at];
  for (int i = 1; i <= state.iNumCases; ++i) {
    const double written = state.uOrigin.written(i, column);
    const float held = state.sData(i, column);
    if (!(std::abs(written - held) >= half)) continue;
    const std::string shown = formatNumber(held, picture);
    if (doubtOf(shown, {written, 0}).value_or(Doubt::none) != Doubt::none)
      cells.push_back({"frmDataList", i + 1, variable + (state.bLabeledData ? 2 : 1),
                       "as written: " + generalText(written)});
  }
}

// Why digits are lost, as the end of a sentence.
std::string reason(const Examination& examination) {
  if (!examination.combinations.empty()) return causes(examination.combinations);
  const double condition = examination.health->condition;
  const ModelFigures& model = examination.fit.model;
  if (condition > 1000)
    return "predictors vary little for their size or follow nearly from each other (condition "
           "number " +
           roughly(condition) + "), which costs digits";
  if (model.sse.value < 1e-6 * model.sst.value)
    return "the residuals are hardly larger than the rounding of the data's digits";
  return "rounding to about seven digits adds up";
}

std::string remarkOn(const Unconfirmed& one) {
  return one.doubt == Doubt::uncertain ? "its last digit cannot be known" : "better: " + one.better;
}

}  // namespace

MaybeNote smallPNote(const AnalysisState& state, const Examination& examination) {
  if (state.Fit.bSingular) return {};
  const auto found = smallPs(state, examination);
  if (found.empty()) return {};
  Note note{.text = "A P shown as 0.000 is not 0 but below 0.0005"};
  for (const SmallP& one : found) note.cells.push_back(one.cell);
  const auto& least = *std::ranges::min_element(found, {}, &SmallP::value);
  if (least.value > 0)
    note.text += (found.size() > 1 ? "; the smallest here is " : "; here it is ") +
                 roughly(least.value) + ", that of " + least.of;
  note.text += ".";
  return note;
}

MaybeNote coarseScaleNote(const AnalysisState& state, const Examination& examination) {
  Note note;
  std::vector<std::string> variables;
  for (int j = 1; j <= listedVariables(state); ++j)
    if (readsAlike(state, j)) variables.push_back(variableName(state, j));
  if (!variables.empty())
    note.text = "Values of " + listed(variables) +
                " differ only behind the digits that tables or axes show: subtract a round number "
                "near their mean.";
  std::vector<std::string> terms;
  for (const int row : examination.alikeRows) {
    terms.push_back(examination.data.names[static_cast<std::size_t>(row) - 2]);
    for (const int column : {2, 7, 8}) note.cells.push_back({"frmEstCoef", row, column});
  }
  if (!terms.empty())
    note.text += (note.text.empty() ? "" : " ") + std::string("The limits of ") + listed(terms) +
                 " read like the coefficient, though they are not: take another unit.";
  return note.text.empty() ? MaybeNote() : MaybeNote(note);
}

MaybeNote dataRoundedNote(const AnalysisState& state, const Examination& examination) {
  if (state.uOrigin.written.lastRow() < state.iNumCases) return {};
  Note note;
  for (const Unconfirmed& one : examination.moved)
    note.cells.push_back(
        {one.display, one.row, one.column, "with the data as written: " + one.better});
  for (int j = 1; j <= listedVariables(state); ++j) findRounded(state, j, note.cells);
  if (note.cells.empty()) return {};
  const int count = static_cast<int>(note.cells.size());
  note.text = "Data are held with about seven digits, which changes " +
              counted(count, "shown number") + " (" + countedByDisplay(note.cells) + ").";
  return note;
}

MaybeNote unconfirmedNote(const AnalysisState&, const Examination& examination) {
  if (!examination.health || examination.health->unconfirmed.empty()) return {};
  Note note;
  for (const Unconfirmed& one : examination.health->unconfirmed)
    note.cells.push_back({one.display, one.row, one.column, remarkOn(one)});
  const auto count = static_cast<int>(note.cells.size());
  note.text = std::to_string(count) + " of " + counted(examination.health->checked, "number") +
              (count == 1 ? " is" : " are") + " not confirmed by a second fit with more digits (" +
              countedByDisplay(note.cells) + "): " + reason(examination) + ".";
  return note;
}

MaybeNote allConfirmedNote(const AnalysisState&, const Examination& examination) {
  if (!examination.health || !examination.health->unconfirmed.empty()) return {};
  return Note{.text = "All " + counted(examination.health->checked, "number") +
                      " of the fit are confirmed by a second fit with more digits."};
}

}  // namespace tolmer
