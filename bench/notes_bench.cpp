// Notes on an analysis, with the second fit and the judgement of all shown numbers, against the
// engine's whole analysis, timed in one run. The tables are those that the displays show anyway.
// The counter "share" is the least time of the former divided by the latter's: beside other load
// the least is the steadiest.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>

#include "base/message_box.h"
#include "engine/pipeline.h"
#include "notes/notes.h"
#include "support/regression_data.h"
#include "tables/anova_table.h"
#include "tables/case_lists.h"
#include "tables/coefficient_table.h"

namespace tolmer {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Each iteration runs both, so that a change of clock speed or load meets both alike.
void notes(benchmark::State& run) {
  AnalysisState state = noisyModel(static_cast<int>(run.range(0)), static_cast<int>(run.range(1)));
  MessageLog messages;
  Analyse(state, messages);
  const TableContent coefficients = coefficientTable(state);
  const TableContent variances = anovaTable(state);
  const TableContent residuals = residualList(state);
  const std::array<ShownTable, 3> tables = {ShownTable{"frmEstCoef", &coefficients},
                                            ShownTable{"frmANOVA", &variances},
                                            ShownTable{"frmResidList", &residuals}};
  double noting = 1e9;
  double engine = 1e9;
  int checked = 0;
  while (run.KeepRunning()) {
    const auto start = Clock::now();
    const Examination examination = examine(state, tables);
    benchmark::DoNotOptimize(notesOf(state, examination));
    run.SetIterationTime(secondsSince(start));
    noting = std::min(noting, secondsSince(start));
    checked = examination.health->checked;
    const auto between = Clock::now();
    ComputeStatistics(state, messages);
    FitRegression(state, messages);
    engine = std::min(engine, secondsSince(between));
  }
  run.counters["notes_ms"] = 1e3 * noting;
  run.counters["engine_ms"] = 1e3 * engine;
  run.counters["share"] = noting / engine;
  run.counters["cells"] = checked;
}

BENCHMARK(notes)
    ->Args({24, 4})
    ->Args({100, 10})
    ->Args({500, 10})
    ->Args({500, 49})
    ->ArgNames({"cases", "predictors"})
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
