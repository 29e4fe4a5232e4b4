#include "report/report_run.h"

#include <cstddef>

#include "data/working_copy.h"
#include "engine/pipeline.h"
#include "graphs/scatter_plot.h"

namespace tolmer {

AnalysisState analysisOf(const WorkingCopy& copy, MessagePort& messages,
                         const std::vector<ChosenAxes>& axes) {
  AnalysisState state;
  state.bShowRegressionLine = true;
  state.bShowCorrelation = true;
  CopyModuleVarsToGlobal(copy, state);
  Analyse(state, messages);
  chooseStartAxes(state);
  for (const auto [plot, x, y] : axes) {
    state.iPlotXVar[static_cast<std::size_t>(plot)] = x;
    state.iPlotYVar[static_cast<std::size_t>(plot)] = y;
  }
  return state;
}

}  // namespace tolmer
