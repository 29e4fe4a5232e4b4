// Where the data of an analysis come from, as far as the held singles do not tell it.
#pragma once

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

struct DataOrigin {
  std::vector<LeftOutCase> leftOut;  // in the order of the rows
  Matrix<double> written;  // as AnalysisState::sData, the numbers as they were written; empty where
                           // nobody kept them
};

}  // namespace tolmer
