// What a reader should know of an analysis and no display tells.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tolmer {

// In order of weight.
enum class NoteKind {
  noValidFit,
  casesLeftOut,
  unconfirmed,
  dataRounded,
  zeroStandardError,
  noIntercept,
  fewCases,
  onePredictor,
  smallP,
  coarseScale,
  allConfirmed,
};

// Its name in the report's JSON and the entry of the help page: "noValidFit".
std::string_view nameOf(NoteKind kind);

// A cell that a note speaks of, rows and columns from 1.
struct NotedCell {
  std::string display;  // the form's name, "frmEstCoef"
  int row = 0;
  int column = 0;
  std::string remark{};  // of this cell by itself, "better: 1.0000"; mostly empty
  friend bool operator==(const NotedCell&, const NotedCell&) = default;
};

struct Note {
  // Page of the help, a number of "tolmod".
  static constexpr long helpTopic = 320;

  NoteKind kind{};
  std::string text{};  // one or two sentences
  std::vector<NotedCell> cells{};
  std::vector<int> cases{};  // from 1, of the analysis
};

}  // namespace tolmer
