// Redrawing the histograms at 500 cases and 1920 x 1000: settings, layout, bars and curve.
#include <benchmark/benchmark.h>

#include "filled_display.h"
#include "graphs/residual_histogram.h"
#include "graphs/standardized_histogram.h"

namespace tolmer {
namespace {

template <class Display>
void updateDisplay(benchmark::State& run) {
  FilledDisplay<Display> drawn(500, 10);
  for (auto _ : run) {
    drawn.display.UpdateDisplay();
    benchmark::DoNotOptimize(drawn.display.GraphPointer->picture());
  }
}

// As the report and the clipboard write it.
template <class Display>
void copyGraph(benchmark::State& run) {
  FilledDisplay<Display> drawn(500, 10);
  for (auto _ : run) drawn.display.CopyGraph();
}

BENCHMARK(updateDisplay<frmResidHist>)->Unit(benchmark::kMicrosecond);
BENCHMARK(updateDisplay<frmStdResidHist>)->Unit(benchmark::kMicrosecond);
BENCHMARK(copyGraph<frmResidHist>)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
