#include "report/report_run.h"

#include <array>

#include "data/model_transfer.h"

namespace tolmer {
namespace {

// About a maximised display on a small screen: wide enough for every label.
constexpr Twips displayWidth = pixels(960);
constexpr Twips displayHeight = pixels(500);

}  // namespace

ReportRun::ReportRun() {
  displays_.created = [this](DisplayWindow& display) { place(display); };
}

// The panel's commands follow the data source, so there must be one.
AnalysisState ReportRun::startState() {
  AnalysisState state;
  state.iDataSource = scenarioExample;
  return state;
}

// The display is updated once, by the analysis, not also by its change of size.
void ReportRun::place(DisplayWindow& display) {
  state_.bProcessResize = false;
  state_.bStartingUp = true;
  display.setPlace({0, 0, displayWidth, displayHeight});
  display.PositionControls();
  state_.bStartingUp = false;
  state_.bProcessResize = true;
}

void ReportRun::analyse(const WorkingCopy& copy) {
  CopyModuleVarsToGlobal(copy, state_);
  InitDisplayTable(state_);
  for (const auto [iCategory, iIndex] : AllDisplays::ids())
    state_.iDisplayState(iCategory, iIndex) = displayShown;
  state_.bStartingAnalysis = true;
  analysis_.RunAnalysis();
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
