// The notes on an analysis.
#pragma once

#include <optional>
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
// of the fit's time. Empty before the first fit.
struct Examination {
  ModelData data;
  SecondFit fit;
  std::optional<Health> health;           // none after a failed fit
  std::vector<Unconfirmed> moved;         // confirmed, but others with the data as written
  std::vector<int> alikeRows;             // of frmEstCoef whose limits read like the coefficient
  std::vector<Combination> combinations;  // why there is no valid fit, or hardly one
};

// Looks at the tables with numbers of the fit, those that are not among `tables` made for it. Notes
// need no more than the extent noticeable.
Examination examine(const AnalysisState& state, std::span<const ShownTable> tables = {},
                    Extent extent = Extent::noticeable);

// What can be looked into; null after a failed fit, and where the second fit is not determined.
const SecondFit* validFit(const AnalysisState& state, const Examination& examination);

// In order of weight; none before the first fit.
std::vector<Note> notesOf(const AnalysisState& state, const Examination& examination);

}  // namespace tolmer
