// One analysis by the program's own state and pipeline, and what all displays say of it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/message_box.h"
#include "data/working_copy.h"
#include "displays/display_list.h"
#include "report/model_by_name.h"

namespace tolmer {

// The analysis of a data set with its model; axes and options of the scatter plots are those that
// the program starts with.
AnalysisState analysisOf(const WorkingCopy& copy, MessagePort& messages);

struct ReportedDisplay {
  const Display* display;
  std::string title;
  DisplayContent content;
};

class ReportRun {
 public:
  // Scatter plots that `axes` does not name have those that the program starts with. The usual size
  // of a graph is about that of a maximised one on a small screen, wide enough for every label.
  explicit ReportRun(const WorkingCopy& copy, const std::vector<ChosenAxes>& axes = {},
                     ViewSize graphSize = {960, 500});

  const AnalysisState& state() const { return state_; }
  const std::vector<AnsweredBox>& messages() const { return messages_.boxes(); }
  // Their texts for a reader: one that follows itself is told once, with "(3 times)".
  std::vector<std::string> messageTexts() const;
  // The data file's name without its folders, which are no reader's business.
  std::string_view dataFile() const;
  std::string equation() const;
  // As displayList().
  const std::vector<ReportedDisplay>& displays() const { return displays_; }
  std::vector<const ReportedDisplay*> inReadingOrder() const;

 private:
  MessageLog messages_;
  AnalysisState state_;
  std::vector<ReportedDisplay> displays_;
};

}  // namespace tolmer
