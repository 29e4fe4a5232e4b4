// Redrawing the histograms at 500 cases and 1920 x 1000: settings, layout, bars and curve.
#include <benchmark/benchmark.h>

#include "engine/pipeline.h"
#include "graphs/residual_histogram.h"
#include "graphs/standardized_histogram.h"
#include "platform/headless/headless_desktop.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

class NoHost : public DisplayHost {
 public:
  void controlsDisabled() override {}
  void controlsEnabled() override {}
  void openDisplayMenu() override {}
};

template <class Display>
class DrawnDisplay {
 public:
  DrawnDisplay() {
    ComputeStatistics(state_, desktop_);
    FitRegression(state_, desktop_);
    display.reportInnerSize({pixels(1920), pixels(1000)});
  }

 private:
  HeadlessDesktop desktop_;
  NoHost host_;
  AnalysisState state_ = noisyModel(500, 10);

 public:
  Display display{desktop_, state_, host_};
};

template <class Display>
void updateDisplay(benchmark::State& run) {
  DrawnDisplay<Display> drawn;
  for (auto _ : run) {
    drawn.display.UpdateDisplay();
    benchmark::DoNotOptimize(drawn.display.GraphPointer->picture());
  }
}

// As the report and the clipboard write it.
template <class Display>
void copyGraph(benchmark::State& run) {
  DrawnDisplay<Display> drawn;
  for (auto _ : run) drawn.display.CopyGraph();
}

BENCHMARK(updateDisplay<frmResidHist>)->Unit(benchmark::kMicrosecond);
BENCHMARK(updateDisplay<frmStdResidHist>)->Unit(benchmark::kMicrosecond);
BENCHMARK(copyGraph<frmResidHist>)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
