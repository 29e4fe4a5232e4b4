// Leaving the data editor with the data: which cases are complete, and what is wrong with them.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "base/data_limits.h"
#include "base/message_box.h"
#include "data/data_sources.h"
#include "sheet/data_sheet.h"

namespace tolmer {

struct CompleteCases {
  StudentData data;
  int iIncomplete = 0;
  std::vector<bool> bVarHasData;  // (0..V); an error of a formula counts, too
  int usedVariables = 0;          // up to the last used column
};

// A case is incomplete where a variable that has had content in this row or above has no value. So
// the rows above a variable's first content stay complete with 0 for it, and a row above all data
// is a case of zeros. An error of a formula is content without a value, so that its case is
// incomplete in any row. Rows below the last used one are no cases.
CompleteCases completeCases(const DataSheet& sheet);

// Refuses a variable whose first iObs values, of sVal(1..iObs), are all the same and not 0. A
// column of zeros passes: it is left out later. nullopt where the variable is good.
std::optional<MessageBox> CheckConstantVariable(std::span<const float> sVal,
                                                const std::string& tHeading, int iObs);

// Refuses a variable that has not two values. The first sighting of the second value does not
// count, so that a second value that occurs twice is refused and one that occurs once is not.
std::optional<MessageBox> CheckBinaryVariable(std::span<const float> sVal, int iObs);

struct ExitLimits {
  int miMinVariables = 0;  // the first so many must have data
  int miMinObservations = leastObservations;
};

struct ExitVerdict {
  bool valid = false;
  bool mbUserCancel = false;  // leave all the same, without the data
  StudentData data{};
};

// The whole check with its messages. Names the columns up to the last used one that have no name,
// which does not count as a change of the data.
ExitVerdict bfDataAreValid(DataSheet& sheet, const ExitLimits& limits, MessagePort& messages);

}  // namespace tolmer
