// Where the data of an analysis come from, as far as the held singles do not tell it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "state/matrix.h"

namespace tolmer {

// A case that was read and is not among the data.
struct LeftOutCase {
  int row = 0;  // in the file or sheet, from 1, the heading not counted
  std::string label;
  std::string why;  // "a gap in Price"
  friend bool operator==(const LeftOutCase&, const LeftOutCase&) = default;
};

// That the data were taken into the editor from a data set of the course.
struct DataCopy {
  std::string of;           // its name
  int differing = 0;        // values that are others there, or are missing on either side
  std::string first{};      // of these: "AirFlow of case 3 is 81, there 80"
  std::vector<int> rows{};  // of the sheet, from 1, that hold such values
  friend bool operator==(const DataCopy&, const DataCopy&) = default;
};

struct DataOrigin {
  std::vector<LeftOutCase> leftOut;  // in the order of the rows
  Matrix<double> written;  // as AnalysisState::sData, the numbers as they were written; empty where
                           // nobody kept them
  std::optional<DataCopy> copy{};
};

}  // namespace tolmer
