// The notes on an analysis.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "notes/note.h"
#include "secondfit/health.h"
#include "secondfit/second_fit.h"
#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// A table as it stands on the screen or in a report.
struct ShownTable {
  std::string_view display;  // the form's name
  const TableContent* content = nullptr;
};

// The second fit and what it says of the shown numbers: once an analysis, since it takes up to half
// of the fit's time.
struct Examination {
  ModelData data;
  SecondFit fit;                          // Extent::shownNumbers
  std::vector<Combination> combinations;  // why there is no valid fit, or nearly none
  Health health;                          // empty after a failed fit
  std::vector<Unconfirmed> moved;         // confirmed, but others with the data as written
};

// Looks at those of the tables that hold numbers of the fit; others may be among them.
Examination examine(const AnalysisState& state, std::span<const ShownTable> tables);
// With the tables made for it.
Examination examine(const AnalysisState& state);

// In order of weight; none before the first fit.
std::vector<Note> notesOf(const AnalysisState& state, const Examination& examination);

}  // namespace tolmer
