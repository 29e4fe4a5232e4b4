#include "engine/number_format.h"
#include "insight/influence.h"
#include "insight/unequal_spread.h"
#include "notes/note_makers.h"

namespace tolmer {
namespace {

std::string named(const AnalysisState& state, const std::vector<int>& cases) {
  std::string words = casesInWords(cases, caseLabels(state));
  words[0] = 'C';
  return words;
}

std::string onDistances(const AnalysisState& state, const SecondFit& fit,
                        const std::vector<int>& cases) {
  double largest = 0;
  for (const int one : cases)
    largest = std::max(largest, fit.byCase[static_cast<std::size_t>(one) - 1].cooks.value);
  const bool isOne = cases.size() == 1;
  return named(state, cases) +
         (isOne ? " moves the fit noticeably by itself: Cook's distance is "
                : " each move the fit noticeably: the largest Cook's distance is ") +
         formatNumber(largest, "#,##0.00") + " (noticeable from 0.5 on).";
}

std::string onHeld(const AnalysisState& state, const std::vector<int>& cases) {
  const bool isOne = cases.size() == 1;
  return named(state, cases) + (isOne ? " has" : " have") +
         " a leverage of 1: the fit passes through " +
         (isOne ? "it wherever it lies." : "each of them wherever it lies.");
}

}  // namespace

MaybeNote influentialCaseNote(const AnalysisState& state, const Examination& examination) {
  if (state.Fit.bSingular || !examination.fit.determined()) return {};
  Note note{.cases = influentialCases(examination.fit)};
  if (note.cases.empty()) return {};
  std::vector<int> held, distant;
  for (const int one : note.cases)
    (isHeldByOneCase(examination.fit.byCase[static_cast<std::size_t>(one) - 1]) ? held : distant)
        .push_back(one);
  if (!distant.empty()) note.text = onDistances(state, examination.fit, distant);
  if (!held.empty()) note.text += (note.text.empty() ? "" : " ") + onHeld(state, held);
  return note;
}

MaybeNote unequalSpreadNote(const AnalysisState& state, const Examination& examination) {
  if (state.Fit.bSingular) return {};
  const SpreadTest test = breuschPagan(examination.data, examination.fit);
  if (!isUnequal(test)) return {};
  return Note{.text = spreadWords(test)};
}

}  // namespace tolmer
