// A display of a fitted model in a large window, with no program around it.
#pragma once

#include "engine/pipeline.h"
#include "platform/headless/headless_desktop.h"
#include "shell/all_displays.h"
#include "support/recording_host.h"
#include "support/regression_data.h"

namespace tolmer {

class FilledDisplay {
 public:
  FilledDisplay(const char* form, int cases, int predictors)
      : state_(noisyModel(cases, predictors)), window(displays_.display(*findDisplay(form))) {
    ComputeStatistics(state_, desktop_);
    FitRegression(state_, desktop_);
    window.reportInnerSize({pixels(1920), pixels(1000)});
  }

 private:
  HeadlessDesktop desktop_;
  test::RecordingHost host_;
  AnalysisState state_;
  AllDisplays displays_{desktop_, state_, host_};

 public:
  DisplayWindow& window;
};

}  // namespace tolmer
