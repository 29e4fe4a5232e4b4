// Rewriting the tables at 500 cases, 49 predictors and 1920 x 1000: figures, cells, sizes of rows
// and columns. The measure beside it is the bare writing of as many figures.
#include <benchmark/benchmark.h>

#include <array>
#include <charconv>

#include "engine/pipeline.h"
#include "platform/headless/headless_desktop.h"
#include "support/regression_data.h"
#include "tables/anova_table.h"
#include "tables/coefficient_table.h"

namespace tolmer {
namespace {

class NoHost : public DisplayHost {
 public:
  void controlsDisabled() override {}
  void controlsEnabled() override {}
  void openDisplayMenu() override {}
};

template <class Display>
class FilledTable {
 public:
  FilledTable() {
    ComputeStatistics(state_, desktop_);
    FitRegression(state_, desktop_);
    display.reportInnerSize({pixels(1920), pixels(1000)});
  }

 private:
  HeadlessDesktop desktop_;
  NoHost host_;
  AnalysisState state_ = noisyModel(500, 49);

 public:
  Display display{desktop_, state_, host_};
};

template <class Display>
void updateDisplay(benchmark::State& run) {
  FilledTable<Display> table;
  for (auto _ : run) {
    table.display.UpdateDisplay();
    benchmark::DoNotOptimize(table.display.grid().sheet());
  }
}

template <class Display>
void copyGraph(benchmark::State& run) {
  FilledTable<Display> table;
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
BENCHMARK(copyGraph<frmEstCoef>)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
