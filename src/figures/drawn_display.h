// Any display of the program, drawn at any size from one analysis.
#pragma once

#include <memory>
#include <string>

#include "base/error.h"
#include "displays/unattended_host.h"
#include "figures/course_model.h"
#include "platform/headless/headless_desktop.h"
#include "report/report_run.h"

namespace tolmer {

struct DisplaySize {
  int width = 960;  // of the display's inside, in pixels
  int height = 500;
};

// What a list writes behind the name of a display.
struct DisplayChoice {
  std::string name;  // of its window: "frmResidHist"
  std::string x;     // axes of a scatter plot; empty for those that it starts with
  std::string y;
  bool regressionLine = true;
  bool correlation = true;
};

// "frmScatterPlot1 Fitted:Residuals no-line no-correlation": axes and both words may be missing.
// X may be "Entry", the order of entry.
Result<DisplayChoice> displayChoice(std::string_view text);

// An analysis and the displays drawn from it.
class AnalysedModel {
 public:
  static Result<std::unique_ptr<AnalysedModel>> open(const CourseModel& model,
                                                     const std::string& dataFolder);

  const std::string& equation() const { return run_.equation(); }
  const std::vector<AnsweredBox>& messages() const { return run_.messages(); }
  // The display stands until the next call.
  Result<DisplayWindow*> draw(const DisplayChoice& choice, DisplaySize size = {});

 private:
  explicit AnalysedModel(const WorkingCopy& copy) : copy_(copy) {}
  std::optional<Error> chooseAxes(const DisplayChoice& choice);

  WorkingCopy copy_;
  ReportRun run_;
  // What is drawn is a second reader of the record: axes and options are chosen in a copy of it.
  HeadlessDesktop desktop_;
  AnalysisState state_;
  UnattendedHost host_;
  std::unique_ptr<AllDisplays> displays_;
};

}  // namespace tolmer
