// How much data and how large files the program takes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tolmer {

// Of the sheet that the course uses, and so of data that the editor takes over.
inline constexpr int editorObservations = 500;
inline constexpr int editorVariables = 50;
// Complete ones, without which the editor hands nothing to the analysis.
inline constexpr int leastObservations = 3;
// That a column can show: a double has 15 digits that are all its own.
inline constexpr std::int16_t maxDecimals = 15;
// Of the sheet of new cases beside an analysis.
inline constexpr int mostNewCases = 200;
// Completed fits of a run that are kept to be compared; beyond that the oldest is forgotten.
inline constexpr int mostKeptModels = 100;
// Of a report: its table of correlations has a cell for every two.
inline constexpr int mostPredictorsOfReport = 500;
// What keeps an analysis below a second and 64 MiB.
inline constexpr std::size_t mostCellsOfReport = 2'000'000;

inline constexpr std::size_t mebibyte = std::size_t{1} << 20;
// Of any file that is read whole. None of the course or of a student comes near; it keeps a device
// or a wrong file from filling the memory.
inline constexpr std::size_t maxFileBytes = 64 * mebibyte;
// Of a file in the data editor's own format.
inline constexpr std::size_t maxEditorFileBytes = 500000;
// Of a text file with data, and of a pasted text. Of a longer text a program of statistics makes a
// file that can be read in part.
inline constexpr std::size_t mostTextBytes = 16 * mebibyte;
// Of a workbook or a statistics file, and of the table that is taken of it.
inline constexpr std::size_t mostForeignFileBytes = 256 * mebibyte;
inline constexpr std::size_t mostCutFields = 1'000'000;
inline constexpr std::size_t mostCutTextBytes = 6 * mebibyte;
inline constexpr std::size_t longestCutText = 1000;  // bytes

}  // namespace tolmer
