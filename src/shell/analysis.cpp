#include "shell/analysis.h"

#include "engine/fitted_equation.h"
#include "engine/pipeline.h"

namespace tolmer {

Analysis::Analysis(AnalysisState& state, Desktop& desktop, AllDisplays& displays,
                   frmControlPanel& panel)
    : state_(state), desktop_(desktop), displays_(displays), panel_(panel) {
  panel_.updateScatterPlot = [this](int plot) {
    displays_.display(scatterDisplays, plot)->UpdateDisplay();
  };
}

void Analysis::RunAnalysis() {
  if (!hasModel(state_)) return;
  Analyse(state_, desktop_);
  raise(fitted);
  BuildFittedModelText();
  state_.bDisplaysReady = true;
  if (!state_.bStartingAnalysis && !bKeepDisplays) raise(RestoreInitialDisplays);
  UpdateAllDisplays();
  desktop_.doEvents();
}

void Analysis::BuildFittedModelText() {
  state_.bDisplaysReady = false;
  panel_.showModel(fittedEquation(state_), bKeepDisplays);
  state_.bDisplaysReady = true;
}

void Analysis::UpdateAllDisplays() {
  displays_.updateShown();
  panel_.SaveControlState();
  panel_.stopFlash();
}

}  // namespace tolmer
