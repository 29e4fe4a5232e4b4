#include <algorithm>
#include <cmath>

#include "base/portable_math.h"
#include "engine/number_format.h"
#include "engine/variance_inflation.h"
#include "notes/note_makers.h"

namespace tolmer {
namespace {

// The coefficient table: a row for each term below the heads.
enum CoefficientColumn { name = 1, standardError = 3, tValue, pValue, inflation };

NotedCell coefficientCell(std::size_t term, int column) {
  return {"frmEstCoef", static_cast<int>(term) + 2, column};
}

// What only rounding keeps from being exact has the digits that rounding leaves.
std::string sized(const Combination::Part& part, bool isExact) {
  const auto size = static_cast<float>(std::abs(part.coefficient));
  if (isExact) return generalText(size);
  const double step = portable::pow(10.0, std::floor(portable::log10(size)) - 4);
  return generalText(static_cast<float>(std::round(size / step) * step));
}

// "2 X1 - 3", the constant last.
std::string formula(Combination one) {
  std::stable_partition(one.parts.begin(), one.parts.end(),
                        [](const auto& part) { return part.name != "Intercept"; });
  std::string text;
  for (const Combination::Part& part : one.parts) {
    const std::string size = sized(part, one.exact);
    text +=
        text.empty() ? (part.coefficient < 0 ? "-" : "") : (part.coefficient < 0 ? " - " : " + ");
    text += part.name == "Intercept" ? size : (size == "1" ? "" : size + " ") + part.name;
  }
  return text.empty() ? "0" : text;
}

bool isConstant(const Combination& one) {
  return std::ranges::all_of(one.parts, [](const auto& part) { return part.name == "Intercept"; });
}

std::string cause(const Combination& one) {
  const std::string subject = (one.isDependent ? "the dependent variable " : "") + one.name;
  const std::string by = formula(one);
  if (isConstant(one)) return subject + " is " + by + " in all cases";
  const char* from = one.isDependent ? " from the predictors" : " from other terms";
  return subject + (one.isDependent ? " is computed" : " follows") + (one.exact ? " exactly" : "") +
         from + (one.exact ? ": " : " but for rounding: ") + one.name + " = " + by;
}

std::string unexplained(const Examination& examination) {
  const SecondFit& fit = examination.fit;
  if (fit.model.sse.value <= 1e-10 * fit.model.sst.value)
    return "the predictors leave next to no residuals, so that rounding decides";
  return "terms follow nearly from others" +
         (std::isfinite(fit.condition) ? " (condition number " + roughly(fit.condition) + ")"
                                       : std::string()) +
         ", so that rounding decides";
}

std::string failure(const AnalysisState& state, const Examination& examination) {
  if (state.iNumCases <= state.iNumTerms)
    return counted(state.iNumCases, "case") + " cannot determine " +
           counted(state.iNumTerms, "term") + ": there must be more cases than terms";
  if (examination.combinations.empty()) return unexplained(examination);
  return causes(examination.combinations);
}

// Where predictors follow from each other the regressions of all others on them fail, too, and
// their VIFs show 1000. Those that are finite, with their cells; the fit without the predictors
// that follow from others tells them.
void addFalseInflations(const AnalysisState& state, const Examination& examination, Note& note) {
  constexpr float noneFinite = 999;
  const ModelData& data = examination.data;
  ModelData rest = data;
  std::vector<std::string> entangled;
  for (const Combination& one : examination.combinations) {
    if (one.isDependent) continue;
    entangled.push_back(one.name);
    for (const Combination::Part& part : one.parts) entangled.push_back(part.name);
    rest.leaveOut(static_cast<int>(std::ranges::find(rest.names, one.name) - rest.names.begin()));
  }
  const SecondFit fit = entangled.empty() ? SecondFit() : fitSecond(rest, Extent::shownNumbers);
  std::vector<std::string> words;
  for (std::size_t term = rest.intercept ? 1 : 0; fit.determined() && term < fit.byTerm.size();
       ++term) {
    const auto better = static_cast<float>(fit.byTerm[term].inflation.value);
    const auto at = static_cast<std::size_t>(std::ranges::find(data.names, rest.names[term]) -
                                             data.names.begin());
    const bool isShown = state.sVIF[at + (data.intercept ? 0 : 1)] > noneFinite;
    if (!isShown || !(better < noneFinite) ||
        std::ranges::find(entangled, data.names[at]) != entangled.end())
      continue;
    note.cells.push_back(coefficientCell(at, inflation));
    note.cells.back().remark = "better: " + inflationText(better);
    words.push_back(data.names[at] + " (" + inflationText(better) + ")");
  }
  if (!words.empty()) note.text += " It makes the VIF read 1000, too, of " + listed(words) + ".";
}

bool isFailed(const AnalysisState& state) { return state.Fit.bSingular; }

}  // namespace

std::string causes(const std::vector<Combination>& combinations) {
  constexpr std::size_t most = 3;
  std::string text;
  for (std::size_t i = 0; i < std::min(combinations.size(), most); ++i)
    text += (i == 0 ? "" : "; ") + cause(combinations[i]);
  if (combinations.size() > most)
    text += "; and " + std::to_string(combinations.size() - most) + " more";
  return text;
}

std::string roughly(double value) { return formatNumber(value, "0.0E+00"); }

MaybeNote noValidFitNote(const AnalysisState& state, const Examination& examination) {
  if (!isFailed(state)) return {};
  Note note{.text = "There is no valid fit: " + failure(state, examination) + "."};
  const auto& names = examination.data.names;
  for (const Combination& one : examination.combinations) {
    const auto term = static_cast<std::size_t>(std::ranges::find(names, one.name) - names.begin());
    if (!one.isDependent && term + 1 < names.size())
      note.cells.push_back(coefficientCell(term, name));
  }
  addFalseInflations(state, examination, note);
  return note;
}

MaybeNote casesLeftOutNote(const AnalysisState& state, const Examination&) {
  const auto& leftOut = state.uOrigin.leftOut;
  if (leftOut.empty()) return {};
  std::vector<std::string> rows;
  for (const LeftOutCase& one : leftOut)
    rows.push_back("row " + std::to_string(one.row) +
                   (one.label.empty() ? " (" : " (" + one.label + ": ") + one.why + ")");
  const int count = static_cast<int>(leftOut.size());
  return Note{.text = counted(state.iNumCases + count, "case") + " were read and " +
                      std::to_string(state.iNumCases) + " used. " +
                      (count == 1 ? "One was" : std::to_string(count) + " were") +
                      " left out: " + listed(rows) + "."};
}

MaybeNote editedNote(const AnalysisState& state, const Examination&) {
  const auto& copy = state.uOrigin.copy;
  if (!copy || copy->differing == 0) return {};
  Note note{.text = "These data are an edited copy of " + copy->of + ": " +
                    (copy->differing == 1
                         ? "1 value differs, "
                         : std::to_string(copy->differing) + " values differ, the first of them ") +
                    copy->first + "."};
  for (const int row : copy->rows) {
    int before = 0;
    bool isUsed = true;
    for (const LeftOutCase& one : state.uOrigin.leftOut) {
      before += one.row < row ? 1 : 0;
      isUsed = isUsed && one.row != row;
    }
    if (isUsed && row - before <= state.iNumCases) note.cases.push_back(row - before);
  }
  return note;
}

MaybeNote noInterceptNote(const AnalysisState& state, const Examination&) {
  if (state.bUseIntercept || isFailed(state)) return {};
  return Note{.text =
                  "The model has no intercept, but sums of squares, F and its P are taken about "
                  "the mean of " +
                  variableName(state, 1) +
                  ", so that they neither add up nor test this model. The share of variation "
                  "that the interpretation tells is taken likewise and may exceed 100 per cent.",
              .cells = {{"frmANOVA", 2, 2},
                        {"frmANOVA", 2, 4},
                        {"frmANOVA", 2, 5},
                        {"frmANOVA", 2, 6},
                        {"frmANOVA", 4, 2}}};
}

MaybeNote onePredictorNote(const AnalysisState& state, const Examination&) {
  if (state.iNumPredictors != 1) return {};
  return Note{
      .text = std::string("There is no VIF, which tells how far a predictor follows from the "
                          "others: the model has one predictor.") +
              (state.bUseIntercept ? "" : " The 0.0 stands for none."),
      .cells = {coefficientCell(state.bUseIntercept ? 1 : 0, inflation)}};
}

MaybeNote zeroStandardErrorNote(const AnalysisState& state, const Examination& examination) {
  if (isFailed(state)) return {};
  Note note;
  std::vector<std::string> terms;
  for (int i = 1; i <= examination.data.terms; ++i) {
    const auto at = static_cast<std::size_t>(i);
    if (state.Fit.sCoefSE[at] != 0) continue;
    terms.push_back(examination.data.names[at - 1]);
    for (const int column : {int{standardError}, int{tValue}, int{pValue}})
      note.cells.push_back(coefficientCell(at - 1, column));
  }
  if (terms.empty()) return {};
  note.text = (terms.size() == 1 ? "The standard error of " : "The standard errors of ") +
              listed(terms) +
              (terms.size() == 1 ? " is too small to be held and counts as 0"
                                 : " are too small to be held and count as 0") +
              ": t and P there were not computed and mean nothing.";
  return note;
}

MaybeNote fewCasesNote(const AnalysisState& state, const Examination& examination) {
  const int predictors = state.iNumPredictors;
  if (isFailed(state) || predictors == 0 || state.iNumCases >= 5 * predictors) return {};
  const double reach = examination.fit.tQuantile;
  return Note{.text = counted(state.iNumCases, "case") + " for " +
                      counted(predictors, "predictor") + " leave " +
                      counted(state.iNumCases - state.iNumTerms, "degree") +
                      " of freedom for error." +
                      (reach > 0 ? " So 95% limits reach " + formatNumber(reach, "0.00") +
                                       " standard errors to either side, and 1.96 where cases are "
                                       "many."
                                 : "")};
}

}  // namespace tolmer
