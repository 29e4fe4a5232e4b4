#include "bookcompiler/scenario_text.h"

#include <algorithm>

#include "base/trimmed.h"
#include "fieldfile/field_reader.h"

namespace tolmer {
namespace {

std::vector<std::string> cutAtCommas(std::string_view text) {
  std::vector<std::string> parts;
  for (;;) {
    const auto comma = text.find(',');
    parts.emplace_back(trimmed(text.substr(0, comma), " "));
    if (comma == std::string_view::npos) return parts;
    text.remove_prefix(comma + 1);
  }
}

// Reads one line's parameters; every complaint names the parameter.
class ParameterReader {
 public:
  ParameterReader(int line, Complaints& complaints) : line_(line), complaints_(complaints) {}

  bool flag(const std::string& text, const char* what) {
    if (text != "True" && text != "False") fail(std::string(what) + " must be True or False");
    return text == "True";
  }
  Int16 number(const std::string& text, const char* what, int lowest, int highest) {
    const auto value = integerFromText(text);
    if (value && *value >= lowest && *value <= highest) return *value;
    fail(std::string(what) + " must be a whole number from " + std::to_string(lowest) + " to " +
         std::to_string(highest) + ", not \"" + text + "\"");
    return 0;
  }
  // 0 for an empty text.
  Int16 size(const std::string& text, const char* what, int highest) {
    return text.empty() ? Int16{0} : number(text, what, 1, highest);
  }
  std::string path(const std::string& text, const char* what) {
    if (!text.starts_with('\\')) fail(std::string(what) + " must begin with a backslash");
    if (leavesItsFolder(text))
      fail(std::string(what) + " must not lead out of the course by \"..\"");
    return text;
  }
  void fail(std::string text) {
    complaints_.error(line_, std::move(text));
    failed_ = true;
  }
  bool failed() const { return failed_; }

 private:
  int line_;
  Complaints& complaints_;
  bool failed_ = false;
};

}  // namespace

bool leavesItsFolder(std::string_view path) {
  while (!path.empty()) {
    const auto end = std::min(path.find_first_of("\\/"), path.size());
    if (path.substr(0, end) == "..") return true;
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return false;
}

std::optional<DataSetClaim> parseParameters(int line, const std::string& text, bool needsDependent,
                                            Scenario& scenario, Complaints& complaints) {
  constexpr int highest = 32767;
  ParameterReader read(line, complaints);
  const auto parts = cutAtCommas(text);
  if (parts.size() != scenarioParameterCount) {
    read.fail("a scenario has 7 parameters, here are " + std::to_string(parts.size()));
    return std::nullopt;
  }
  for (std::size_t i = 0; i < parts.size(); ++i) scenario.tParameter[i + 1] = parts[i];
  DataSetClaim claim;
  claim.line = line;
  claim.dataFile = read.path(parts[0], "parameter 1, the data file,");
  if (read.flag(parts[2], "parameter 3, is there an information file,"))
    claim.infoFile = read.path(parts[1], "parameter 2, the information file,");
  claim.labeled = read.flag(parts[3], "parameter 4, are there labels,");
  claim.cases = read.size(parts[4], "parameter 5, the number of cases,", highest);
  claim.columns = read.size(parts[5], "parameter 6, the number of columns,", highest);
  const int last = claim.columns > 0 ? claim.columns : highest;
  claim.dependent =
      read.number(parts[6], "parameter 7, the dependent column,", needsDependent ? 1 : 0, last);
  return read.failed() ? std::nullopt : std::optional(claim);
}

}  // namespace tolmer
