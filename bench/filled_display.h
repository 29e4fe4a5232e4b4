// A display of a fitted model in a large window, with no program around it.
#pragma once

#include "displays/unattended_host.h"
#include "engine/pipeline.h"
#include "platform/headless/headless_desktop.h"
#include "support/regression_data.h"

namespace tolmer {

template <class Display>
class FilledDisplay {
 public:
  FilledDisplay(int cases, int predictors) : state_(noisyModel(cases, predictors)) {
    ComputeStatistics(state_, desktop_);
    FitRegression(state_, desktop_);
    display.reportInnerSize({pixels(1920), pixels(1000)});
  }

 private:
  HeadlessDesktop desktop_;
  UnattendedHost host_;
  AnalysisState state_;

 public:
  Display display{desktop_, state_, host_};
};

}  // namespace tolmer
