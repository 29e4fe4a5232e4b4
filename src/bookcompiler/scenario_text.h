// The parameters line of a scenario.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "bookcompiler/source_lines.h"
#include "notebook/book.h"

namespace tolmer {

inline constexpr std::size_t scenarioParameterCount = 7;

// Where the seven parameters came from, and what they say of the files.
struct DataSetClaim {
  int line = 0;
  std::string dataFile;  // below the course's root, beginning with a backslash
  std::string infoFile;  // empty where there is none
  bool labeled = false;
  Int16 cases = 0;      // 0 where the file is to be counted
  Int16 columns = 0;    // likewise
  Int16 dependent = 0;  // its column, 0 for none
  int scenario = 0;     // row of the book's scenarios, 0 for the default scenario
};

// Whether a course path or a picture's name leads out of the folder that it stands below.
bool leavesItsFolder(std::string_view path);

// Cuts "data, info, True, False, 21, 4, 4" into its parts. nullopt after a complaint: a wrong
// count, paths that lead out of the course, flags that are not True or False, sizes below 1 (an
// empty one is to be counted), a dependent column outside 1 to the number of columns (0, for none,
// where the student chooses it).
std::optional<DataSetClaim> parseParameters(int line, const std::string& text, bool needsDependent,
                                            Scenario& scenario, Complaints& complaints);

}  // namespace tolmer
