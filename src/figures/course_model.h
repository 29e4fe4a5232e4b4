// Models of the course's data sets and displays of them, as lists write them down.
#pragma once

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "base/error.h"
#include "base/message_box.h"
#include "data/working_copy.h"
#include "displays/display_list.h"
#include "textimport/named_table.h"

namespace tolmer {

struct CourseModel {
  std::string dataSet;         // "stakloss" for stakloss.csv
  std::string y;               // dependent variable
  std::vector<std::string> x;  // independent variables; empty for all others
  bool intercept = true;

  friend bool operator<(const CourseModel& a, const CourseModel& b) {
    return std::tie(a.dataSet, a.y, a.x, a.intercept) < std::tie(b.dataSet, b.y, b.x, b.intercept);
  }
};

// From three fields of a list: the data set, the dependent variable, and the independent ones
// divided by commas or "all". The last of them may be "no intercept".
CourseModel courseModel(const std::string& dataSet, const std::string& y, std::string_view x);

// A data set of the course. A first column that does not hold numbers names the cases.
Result<NamedTable> courseTable(const std::string& fileName);

// The data set out of that folder (with its separator) with the model chosen.
Result<WorkingCopy> modelledData(const CourseModel& model, const std::string& dataFolder);

// What a list writes behind the name of a display.
struct DisplayChoice {
  const Display* display = nullptr;
  std::string x;  // axes of a scatter plot; empty for those that it starts with
  std::string y;
  bool regressionLine = true;
  bool correlation = true;
};

// "frmScatterPlot1 Fitted:Residuals no-line no-correlation": axes and both words may be missing.
// X may be "Entry", the order of entry.
Result<DisplayChoice> displayChoice(std::string_view text);

// An analysis that its displays can be asked of.
class AnalysedModel {
 public:
  static Result<AnalysedModel> open(const CourseModel& model, const std::string& dataFolder);

  std::string equation() const;
  Result<DisplayContent> draw(const DisplayChoice& choice, ViewSize size = {960, 500}) const;

 private:
  explicit AnalysedModel(const WorkingCopy& copy);

  WorkingCopy copy_;
  AnalysisState state_;
};

}  // namespace tolmer
