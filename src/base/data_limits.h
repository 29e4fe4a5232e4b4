// How much data the program takes.
#pragma once

namespace tolmer {

// Of the sheet that the course uses, and so of data that the editor takes over.
inline constexpr int editorObservations = 500;
inline constexpr int editorVariables = 50;
// Complete ones, without which the editor hands nothing to the analysis.
inline constexpr int leastObservations = 3;
// Of the sheet of new cases beside an analysis.
inline constexpr int mostNewCases = 200;
// Of a report: its table of correlations has a cell for every two.
inline constexpr int mostPredictorsOfReport = 500;

}  // namespace tolmer
