#include "data/scenario_parameters.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "base/data_limits.h"
#include "base/file_io.h"
#include "base/trimmed.h"
#include "fieldfile/field_reader.h"

namespace tolmer {
namespace {

std::optional<bool> booleanFromText(std::string_view text) {
  std::string word(text);
  std::transform(word.begin(), word.end(), word.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  if (word == "true" || word == "#true#") return true;
  if (word == "false" || word == "#false#") return false;
  if (const auto number = integerFromText(word)) return *number != 0;
  return std::nullopt;
}

// Asks for the parameters one by one and collects what is wrong with them.
class ParameterReader {
 public:
  ParameterReader(const std::function<std::string(int)>& parameter, std::string& faults)
      : parameter_(parameter), faults_(faults) {}

  bool boolean(int index, std::string_view meaning) {
    const std::string text = parameter_(index);
    const auto value = booleanFromText(trimmed(text, " "));
    if (!value) fault(index, meaning, text, "True or False");
    return value.value_or(false);
  }

  Int16 count(int index, std::string_view meaning) {
    return number(index, meaning, 0, 32767, "a whole number from 0 to 32767");
  }

  // One of the columns 1..numCols.
  Int16 column(int index, std::string_view meaning, Int16 numCols) {
    return number(index, meaning, 1, numCols, "the number of one of the variables");
  }

 private:
  Int16 number(int index, std::string_view meaning, int least, int most,
               std::string_view expected) {
    const std::string text = parameter_(index);
    const auto value = integerFromText(trimmed(text, " "));
    if (value && *value >= least && *value <= most) return *value;
    fault(index, meaning, text, expected);
    return 0;
  }

  void fault(int index, std::string_view meaning, std::string_view text,
             std::string_view expected) {
    if (!faults_.empty()) faults_ += ' ';
    faults_.append("Parameter ").append(1, static_cast<char>('0' + index)).append(" (");
    faults_.append(meaning).append(") is \"").append(text).append("\" and should be ");
    faults_.append(expected).append(".");
  }

  const std::function<std::string(int)>& parameter_;
  std::string& faults_;
};

// Every value takes at least two bytes of its file, so counts beyond this cannot be true, and
// memory for them need not be asked for.
bool fitsAnyFile(int numCases, int numCols) {
  const auto values = static_cast<std::size_t>(numCases) * static_cast<std::size_t>(numCols);
  return values <= maxFileBytes / 2;
}

}  // namespace

ScenarioParameters scenarioParameters(const std::function<std::string(int)>& parameter,
                                      bool isExample) {
  ScenarioParameters result;
  ParameterReader reader(parameter, result.faults);
  result.dataFile = parameter(1);
  result.infoFile = parameter(2);
  result.infoAvailable = reader.boolean(3, "variable information");
  result.labeledData = reader.boolean(4, "case labels");
  result.numCases = reader.count(5, "number of cases");
  result.numCols = reader.count(6, "number of variables");
  if (!fitsAnyFile(result.numCases, result.numCols)) {
    result.faults += result.faults.empty() ? "" : " ";
    result.faults += "Parameters 5 and 6 (cases and variables) are too large for a data file.";
    result.numCases = result.numCols = 0;
  }
  result.dataStamp = stampFromText(parameter(8));
  result.infoStamp = stampFromText(parameter(9));
  if (isExample) result.depVarCol = reader.column(7, "dependent variable", result.numCols);
  return result;
}

}  // namespace tolmer
