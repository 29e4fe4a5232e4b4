// One analysis by the program's own state, pipeline and displays, on a desktop without a screen.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/working_copy.h"
#include "displays/unattended_host.h"
#include "platform/headless/headless_desktop.h"
#include "shell/analysis.h"

namespace tolmer {

// A display that has updated itself, under its key in the report.
struct ReportedDisplay {
  std::string_view name;
  DisplayWindow* window;
};

class ReportRun {
 public:
  ReportRun();

  HeadlessDesktop& desktop() { return desktop_; }
  // Accepts the model, fits it and lets every display update itself.
  void analyse(const WorkingCopy& copy);

  const AnalysisState& state() const { return state_; }
  const std::vector<AnsweredBox>& messages() const { return desktop_.boxes(); }
  const std::string& equation() const { return panel_.txtFittedModel.text(); }
  // In the order of the report. Empty before an analysis.
  std::vector<ReportedDisplay> displays();
  // Null where that display is not part of the program.
  DisplayWindow* display(int iCategory, int iIndex) { return displays_.display(iCategory, iIndex); }

 private:
  static AnalysisState startState();
  void place(DisplayWindow& display);

  HeadlessDesktop desktop_;
  AnalysisState state_ = startState();
  UnattendedHost host_;
  frmControlPanel panel_{desktop_, state_};
  AllDisplays displays_{desktop_, state_, host_};
  Analysis analysis_{state_, desktop_, displays_, panel_};
};

}  // namespace tolmer
