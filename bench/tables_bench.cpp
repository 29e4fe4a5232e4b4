// Rewriting the tables at 500 cases, 49 predictors and 1920 x 1000: figures, cells, sizes of rows
// and columns. The measure beside it is the bare writing of as many figures.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>

#include "filled_display.h"
#include "tables/anova_table.h"
#include "tables/coefficient_table.h"
#include "tables/correlation_table.h"
#include "tables/data_list.h"
#include "tables/description_table.h"
#include "tables/residual_list.h"

namespace tolmer {
namespace {

template <class Display>
void updateDisplay(benchmark::State& run) {
  FilledDisplay<Display> table(500, 49);
  for (auto _ : run) {
    table.display.UpdateDisplay();
    benchmark::DoNotOptimize(table.display.grid().sheet());
  }
}

template <class Display>
void copyGraph(benchmark::State& run) {
  FilledDisplay<Display> table(500, 49);
  for (auto _ : run) table.display.CopyGraph();
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
BENCHMARK(updateDisplay<frmEstCoef>)->Unit(benchmark::kMicrosecond);
BENCHMARK(updateDisplay<frmANOVA>)->Unit(benchmark::kMicrosecond);
BENCHMARK(updateDisplay<frmDescStats>)->Unit(benchmark::kMicrosecond);
BENCHMARK(updateDisplay<frmCorrMatrix>)->Unit(benchmark::kMicrosecond);
BENCHMARK(updateDisplay<frmResidList>)->Unit(benchmark::kMicrosecond);
BENCHMARK(updateDisplay<frmDataList>)->Unit(benchmark::kMicrosecond);
BENCHMARK(copyGraph<frmEstCoef>)->Unit(benchmark::kMicrosecond);
BENCHMARK(copyGraph<frmDataList>)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
