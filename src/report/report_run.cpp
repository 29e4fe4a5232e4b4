#include "report/report_run.h"

#include <cstddef>

#include "data/model_transfer.h"
#include "engine/fitted_equation.h"
#include "engine/pipeline.h"
#include "graphs/axis_choice.h"

namespace tolmer {

AnalysisState analysisOf(const WorkingCopy& copy, MessagePort& messages) {
  AnalysisState state;
  state.bShowRegressionLine = true;
  state.bShowCorrelation = true;
  CopyModuleVarsToGlobal(copy, state);
  Analyse(state, messages);
  chooseStartAxes(state);
  return state;
}

ReportRun::ReportRun(const WorkingCopy& copy, const std::vector<ChosenAxes>& axes,
                     ViewSize graphSize)
    : state_(analysisOf(copy, messages_)) {
  for (const auto [plot, x, y] : axes) {
    state_.iPlotXVar[static_cast<std::size_t>(plot)] = x;
    state_.iPlotYVar[static_cast<std::size_t>(plot)] = y;
  }
  displays_.reserve(displayList().size());
  for (const Display& display : displayList())
    displays_.push_back(
        {&display, titleOf(display, state_), contentOf(display, state_, graphSize, messages_)});
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

std::string ReportRun::equation() const { return fittedEquation(state_); }

std::vector<const ReportedDisplay*> ReportRun::inReadingOrder() const {
  std::vector<const ReportedDisplay*> ordered;
  for (const Display* display : tolmer::inReadingOrder())
    ordered.push_back(&displays_[static_cast<std::size_t>(display - displayList().data())]);
  return ordered;
}

}  // namespace tolmer
