// One analysis by the program's own state, pipeline and displays, on a desktop without a screen.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/working_copy.h"
#include "displays/unattended_host.h"
#include "platform/headless/headless_desktop.h"
#include "report/plot_axes.h"
#include "shell/analysis.h"

namespace tolmer {

// A display that has updated itself, under its key in the report.
struct ReportedDisplay {
  std::string_view name;
  DisplayWindow* window;
};

class ReportRun {
 public:
  // Every display has that inner size; the default is about a maximised one on a small screen, wide
  // enough for every label.
  explicit ReportRun(Size displaySize = {pixels(960), pixels(500)});

  HeadlessDesktop& desktop() { return desktop_; }
  // Accepts the model, fits it and lets every display update itself, once. Scatter plots that
  // `plots` does not name show the axes that the program starts with.
  void analyse(const WorkingCopy& copy, const std::vector<PlotAxes>& plots = {});

  const AnalysisState& state() const { return state_; }
  const std::vector<AnsweredBox>& messages() const { return desktop_.boxes(); }
  // Their texts for a reader: one that follows itself is told once, with "(3 times)".
  std::vector<std::string> messageTexts() const;
  // The data file's name without its folders, which are no reader's business.
  std::string_view dataFile() const;
  const std::string& equation() const { return panel_.txtFittedModel.text(); }
  // In the order of the report. Empty before an analysis.
  std::vector<ReportedDisplay> displays();
  // Null where that display is not part of the program.
  DisplayWindow* display(int iCategory, int iIndex) { return displays_.display(iCategory, iIndex); }

 private:
  static AnalysisState startState();
  void place(DisplayWindow& display);
  void showScatterPlots();

  Size displaySize_;
  HeadlessDesktop desktop_;
  AnalysisState state_ = startState();
  UnattendedHost host_;
  frmControlPanel panel_{desktop_, state_};
  AllDisplays displays_{desktop_, state_, host_};
  Analysis analysis_{state_, desktop_, displays_, panel_};
};

}  // namespace tolmer
