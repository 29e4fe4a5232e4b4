// A whole analysis against the same steps as plain loops, timed in one run. The counter "ratio" is
// the time of the plain loops divided by the engine's.
#include <benchmark/benchmark.h>

#include <chrono>

#include "base/message_box.h"
#include "engine/pipeline.h"
#include "support/literal_pipeline.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

using Clock = std::chrono::steady_clock;
using Step = void (*)(AnalysisState&, MessagePort&);

double analyse(AnalysisState& state, Step statistics, Step fit) {
  MessageLog messages;
  const auto start = Clock::now();
  statistics(state, messages);
  fit(state, messages);
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// Each iteration runs both, so that a change of clock speed or load meets both alike.
void analysis(benchmark::State& run) {
  AnalysisState state = noisyModel(static_cast<int>(run.range(0)), static_cast<int>(run.range(1)));
  AnalysisState plainState = state;
  double engine = 0;
  double plain = 0;
  while (run.KeepRunning()) {
    const double seconds = analyse(state, ComputeStatistics, FitRegression);
    run.SetIterationTime(seconds);
    engine += seconds;
    plain += analyse(plainState, literal::ComputeStatistics, literal::FitRegression);
  }
  run.counters["plain_ms"] = 1e3 * plain / static_cast<double>(run.iterations());
  run.counters["ratio"] = plain / engine;
}

BENCHMARK(analysis)
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
