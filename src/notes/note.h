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
  edited,
  noIntercept,
  onePredictor,
  zeroStandardError,
  fewCases,
  smallP,
  influentialCase,
  unequalSpread,
  coarseScale,
  dataRounded,
  unconfirmed,
  allConfirmed,
};

// A cell that a note speaks of, rows and columns from 1.
struct NotedCell {
  std::string display;  // the form's name, "frmEstCoef"
  int row = 0;
  int column = 0;
  std::string remark{};  // on this cell by itself, "better: 1.0000"; mostly empty
  friend bool operator==(const NotedCell&, const NotedCell&) = default;
};

struct Note {
  // Page of the help, a number of "tolmod"; it has an entry for each kind, see helpEntryOf.
  static constexpr long helpTopic = 320;

  NoteKind kind{};
  std::string text{};              // one or two sentences
  std::vector<NotedCell> cells{};  // in the order of the tables
  std::vector<int> cases{};        // of the analysis, from 1
};

// The kind's name for programs, "noValidFit".
std::string_view nameOf(NoteKind kind);
// The entry of the help page on it, in a reader's words, "No valid fit".
std::string_view helpEntryOf(NoteKind kind);

}  // namespace tolmer
