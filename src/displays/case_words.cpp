#include "displays/case_words.h"

#include <array>

#include "base/sentence_parts.h"
#include "engine/number_format.h"

namespace tolmer {
namespace {

std::string onAxis(const PlottedAxis& axis, int iCase) {
  const auto at = static_cast<std::size_t>(iCase);
  if (at >= axis.values.size()) return {};
  const float value = axis.values[at];
  return axis.title + " " +
         (axis.picture.empty() ? spokenNumber(value) : formatNumber(value, axis.picture));
}

}  // namespace

std::string namesOfCases(const AnalysisState& state, std::span<const int> cases) {
  std::string words = casesInWords(cases, caseLabels(state));
  words[0] = 'C';
  return words;
}

std::string shortNameOf(const AnalysisState& state, int iCase) {
  const auto labels = caseLabels(state);
  const auto at = static_cast<std::size_t>(iCase) - 1;
  return at < labels.size() && !labels[at].empty() ? labels[at] : std::to_string(iCase);
}

std::string wordsOnPoint(const AnalysisState& state, const GraphContent& graph, int iCase) {
  const std::string x = onAxis(graph.x, iCase);
  const std::string y = onAxis(graph.y, iCase);
  const std::string values = x + (x.empty() || y.empty() || x == y ? "" : ", ") + (x == y ? "" : y);
  return namesOfCases(state, std::array{iCase}) + (values.empty() ? "" : ": ") + values;
}

std::string wordsOnBar(const AnalysisState& state, const PlottedBar& bar) {
  return bar.range + ": " + casesInWords(bar.cases, caseLabels(state));
}

std::string wordsOnCase(const AnalysisState& state, int iCase) {
  std::string words = namesOfCases(state, std::array{iCase});
  if (!isAnalysed(state) || iCase > state.iNumCases) return words;
  words += ": " + variableName(state, 1) + " " +
           formatNumber(state.sData(iCase, state.iModelCol[1]), state.tVarFormat[1]);
  if (state.Fit.bSingular) return words;
  const auto at = static_cast<std::size_t>(iCase);
  return words + ", fitted " + spokenNumber(state.Fit.sFitted[at]) + ", residual " +
         spokenNumber(state.Fit.sResid[at]);
}

std::vector<CaseMark> marksOfBars(const GraphContent& graph) {
  std::vector<CaseMark> marks;
  for (const PlottedBar& bar : graph.bars)
    if (!bar.cases.empty())
      marks.push_back({.place = bar.place, .cases = bar.cases, .isBar = true});
  return marks;
}

std::string wordsOnSelected(const AnalysisState& state, const GraphContent& graph,
                            std::span<const int> cases) {
  if (cases.empty() || (graph.y.values.empty() && marksOfBars(graph).empty())) return {};
  return " " + namesOfCases(state, cases) + (cases.size() == 1 ? " stands" : " stand") + " out.";
}

Picture pictureWith(const AnalysisState& state, const GraphContent& graph,
                    std::span<const int> cases) {
  const Picture picture = graph.plot.picture();
  const auto marks = caseMarks(graph.plot.settings, picture, marksOfBars(graph));
  return withLit(picture, marks,
                 {.cases = {cases.begin(), cases.end()},
                  .nameOf = [&state](int iCase) { return shortNameOf(state, iCase); }});
}

}  // namespace tolmer
