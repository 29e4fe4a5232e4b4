// What is said of cases that are pointed at, stepped to or selected.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "graphs/graph_content.h"
#include "platform/graph/case_marks.h"
#include "state/analysis_state.h"

namespace tolmer {

// "Case 5 (Ohio)", "Cases 3, 5 and 21".
std::string namesOfCases(const AnalysisState& state, std::span<const int> cases);
// Its label, or where it has none its number.
std::string shortNameOf(const AnalysisState& state, int iCase);

// "Case 21: AirFlow 70, StackLoss 15".
std::string wordsOnPoint(const AnalysisState& state, const GraphContent& graph, int iCase);
// "-2.5 to 0: cases 3, 5 and 21".
std::string wordsOnBar(const AnalysisState& state, const PlottedBar& bar);
// "Case 21: StackLoss 15, fitted 22.24, residual -7.238"; without the last two after a failed fit.
std::string wordsOnCase(const AnalysisState& state, int iCase);

// The bars of a graph that stand for cases.
std::vector<CaseMark> marksOfBars(const GraphContent& graph);
// " Case 21 stands out.", to follow its description; empty where nothing in it stands for cases.
std::string wordsOnSelected(const AnalysisState& state, const GraphContent& graph,
                            std::span<const int> cases);
// As the plot's picture, with the selected cases standing out.
Picture pictureWith(const AnalysisState& state, const GraphContent& graph,
                    std::span<const int> cases);

}  // namespace tolmer
