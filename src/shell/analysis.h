// From the data and the model in the state to the displays on the screen.
#pragma once

#include <functional>

#include "platform/desktop.h"
#include "shell/all_displays.h"
#include "shell/control_panel.h"
#include "state/analysis_state.h"

namespace tolmer {

class Analysis {
 public:
  Analysis(AnalysisState& state, Desktop& desktop, AllDisplays& displays, frmControlPanel& panel);

  // The whole pipeline, or nothing where no model stands. Messages of the fit do not stop it: what
  // follows runs on what the arrays hold.
  void RunAnalysis();
  // UpdateDisplay of every display that is shown; nothing is then pending in the panel.
  void UpdateAllDisplays();
  // The equation's text and the scatter plots' start selection, into the panel.
  void BuildFittedModelText();

  // Whether quadrants and axes of scatter plots stay as they are through another fit.
  bool bKeepDisplays = false;

  // Arranges the start layout again; not called during the first analysis
  // or where displays are kept.
  std::function<void()> RestoreInitialDisplays;
  // Another fit stands; before the displays show it.
  std::function<void()> fitted;

 private:
  AnalysisState& state_;
  Desktop& desktop_;
  AllDisplays& displays_;
  frmControlPanel& panel_;
};

}  // namespace tolmer
