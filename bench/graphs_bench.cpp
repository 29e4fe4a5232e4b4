// Redrawing the histograms at 500 cases and 1920 x 1000: settings, layout, bars and curve.
#include <benchmark/benchmark.h>

#include "filled_display.h"

namespace tolmer {
namespace {

void updateDisplay(benchmark::State& run, const char* form) {
  FilledDisplay drawn(form, 500, 10);
  for (auto _ : run) drawn.window.UpdateDisplay();
}

// As the report and the clipboard write it.
void copyGraph(benchmark::State& run, const char* form) {
  FilledDisplay drawn(form, 500, 10);
  for (auto _ : run) drawn.window.CopyGraph();
}

BENCHMARK_CAPTURE(updateDisplay, frmResidHist, "frmResidHist")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(updateDisplay, frmStdResidHist, "frmStdResidHist")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(copyGraph, frmResidHist, "frmResidHist")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
