// The values that a scenario of the notebook carries, as text turned into what they mean.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "fieldfile/file_stamp.h"
#include "state/analysis_state.h"

namespace tolmer {

struct ScenarioParameters {
  std::string dataFile;  // below the course's root folder, beginning with a backslash
  std::string infoFile;
  bool infoAvailable = false;
  bool labeledData = false;
  Int16 numCases = 0;
  Int16 numCols = 0;
  Int16 depVarCol = 0;                 // 0 where it was not asked for
  std::optional<FileStamp> dataStamp;  // parameter 8, written by nbocompile
  std::optional<FileStamp> infoStamp;  // parameter 9, likewise
  std::string faults;  // a sentence for each parameter that makes no sense; empty where all do
};

// Asks for parameters 1 to 6, 8 and 9, and for an example also for 7. A parameter at fault is left
// at its default. Booleans are "True" and "False" in any case, "#TRUE#" and "#FALSE#", or a whole
// number of which 0 means False; blanks around a value do not count.
ScenarioParameters scenarioParameters(const std::function<std::string(int)>& parameter,
                                      bool isExample);

}  // namespace tolmer
