// Rewriting the tables at 500 cases, 49 predictors and 1920 x 1000: figures, cells, sizes of rows
// and columns. The measure beside it is the bare writing of as many figures.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>

#include "filled_display.h"

namespace tolmer {
namespace {

void updateDisplay(benchmark::State& run, const char* form) {
  FilledDisplay table(form, 500, 49);
  for (auto _ : run) table.window.UpdateDisplay();
}

void copyGraph(benchmark::State& run, const char* form) {
  FilledDisplay table(form, 500, 49);
  for (auto _ : run) table.window.CopyGraph();
}

void writeFigures(benchmark::State& run) {
  std::array<char, 32> digits;
  for (auto _ : run)
    for (int i = 0; i < 50 * 7; ++i) {
      const float value = 0.37F * static_cast<float>(i + 1);
      benchmark::DoNotOptimize(std::to_chars(digits.begin(), digits.end(), value));
      benchmark::ClobberMemory();
    }
}

BENCHMARK(writeFigures)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(updateDisplay, frmEstCoef, "frmEstCoef")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(updateDisplay, frmANOVA, "frmANOVA")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(updateDisplay, frmDescStats, "frmDescStats")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(updateDisplay, frmCorrMatrix, "frmCorrMatrix")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(updateDisplay, frmResidList, "frmResidList")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(updateDisplay, frmDataList, "frmDataList")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(copyGraph, frmEstCoef, "frmEstCoef")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(copyGraph, frmDataList, "frmDataList")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
