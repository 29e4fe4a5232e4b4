#include "report/report_run.h"

#include <cstddef>
#include <utility>

#include "data/working_copy.h"
#include "engine/pipeline.h"
#include "graphs/scatter_plot.h"

namespace tolmer {

AnalysisState analysisOf(WorkingCopy copy, MessagePort& messages,
                         const std::vector<ChosenAxes>& axes) {
  AnalysisState state;
  state.bShowRegressionLine = true;
  state.bShowCorrelation = true;
  DataOrigin origin = std::move(copy.origin);
  CopyModuleVarsToGlobal(copy, state);
  state.uOrigin = std::move(origin);
  copy = {};  // the analysis can use its memory
  Analyse(state, messages);
  chooseStartAxes(state);
  for (const auto [plot, x, y] : axes) {
    state.iPlotXVar[static_cast<std::size_t>(plot)] = x;
    state.iPlotYVar[static_cast<std::size_t>(plot)] = y;
  }
  return state;
}

}  // namespace tolmer
