// The parameters line of a scenario.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "bookcompiler/complaints.h"
#include "notebook/book.h"

namespace tolmer {

inline constexpr std::size_t scenarioParameterCount = 7;

// Where the seven parameters came from, and what they say of the files.
struct DataSetClaim {
  int line = 0;
  std::string dataFile;  // below the course's root, beginning with a backslash
  std::string infoFile;  // empty where there is none
  bool labeled = false;
  Int16 cases = 0;
  Int16 columns = 0;
};

// Cuts "data, info, True, False, 21, 4, 4" into its parts. nullopt after a complaint: a wrong
// count, flags that are not True or False, sizes below 1, a dependent column outside 1 to the
// number of columns (0, for none, where the student chooses it).
std::optional<DataSetClaim> parseParameters(int line, const std::string& text, bool needsDependent,
                                            Scenario& scenario, Complaints& complaints);

}  // namespace tolmer
