#include "report/report_run.h"

#include "data/model_transfer.h"

namespace tolmer {
ReportRun::ReportRun(Size displaySize) : displaySize_(displaySize) {
  displays_.created = [this](DisplayWindow& display) { place(display); };
}

// The panel's commands follow the data source, so there must be one; the scatter plots have the
// regression line and the correlation that are ticked when the program starts.
AnalysisState ReportRun::startState() {
  AnalysisState state;
  state.iDataSource = scenarioExample;
  state.bShowRegressionLine = true;
  state.bShowCorrelation = true;
  return state;
}

// The display is updated once, by the analysis, not also by its change of size.
void ReportRun::place(DisplayWindow& display) {
  state_.bProcessResize = false;
  state_.bStartingUp = true;
  display.setPlace({0, 0, displaySize_.width, displaySize_.height});
  display.PositionControls();
  state_.bStartingUp = false;
  state_.bProcessResize = true;
}

void ReportRun::analyse(const WorkingCopy& copy, const std::vector<PlotAxes>& plots) {
  CopyModuleVarsToGlobal(copy, state_);
  InitDisplayTable(state_);
  for (const auto [iCategory, iIndex] : AllDisplays::ids())
    if (iCategory != scatterDisplays) state_.iDisplayState(iCategory, iIndex) = displayShown;
  state_.bStartingAnalysis = true;
  analysis_.RunAnalysis();
  for (const auto [plot, x, y] : plots) {
    state_.iPlotXVar[static_cast<std::size_t>(plot)] = x;
    state_.iPlotYVar[static_cast<std::size_t>(plot)] = y;
  }
  showScatterPlots();
}

// A scatter plot draws the axes of the plot that was last activated, which is itself when it comes
// to the screen. The start axes stand only after the analysis, so these displays are shown then.
void ReportRun::showScatterPlots() {
  for (const auto [iCategory, iIndex] : AllDisplays::ids()) {
    if (iCategory != scatterDisplays) continue;
    state_.iDisplayState(iCategory, iIndex) = displayShown;
    DisplayWindow* window = displays_.display(iCategory, iIndex);
    window->UpdateControls();
    window->UpdateDisplay();
  }
}

std::vector<std::string> ReportRun::messageTexts() const {
  std::vector<std::string> texts;
  const auto& boxes = messages();
  for (std::size_t i = 0, next = 0; i < boxes.size(); i = next) {
    const std::string& text = boxes[i].box.text;
    for (next = i + 1; next < boxes.size() && boxes[next].box.text == text;) ++next;
    texts.push_back(next - i == 1 ? text : text + " (" + std::to_string(next - i) + " times)");
  }
  return texts;
}

std::string_view ReportRun::dataFile() const {
  const std::string_view name = state_.tDataFileName;
  return name.substr(name.find_last_of("/\\") + 1);
}

std::vector<ReportedDisplay> ReportRun::displays() {
  std::vector<ReportedDisplay> reported;
  for (const auto [iCategory, iIndex] : AllDisplays::ids()) {
    DisplayWindow* window = displays_.display(iCategory, iIndex);
    reported.push_back({window->name(), window});
  }
  return reported;
}

}  // namespace tolmer
