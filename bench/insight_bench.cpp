// What looking into a fit costs: all of its influence beside the fit without it, a refit without a
// case, and the test of the spread.
#include <benchmark/benchmark.h>

#include <array>

#include "insight/unequal_spread.h"
#include "insight/without_cases.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

ModelData dataOf(const benchmark::State& run) {
  return heldData(noisyModel(static_cast<int>(run.range(0)), static_cast<int>(run.range(1))));
}

void fitWithoutInfluence(benchmark::State& run) {
  const ModelData data = dataOf(run);
  for (auto _ : run) benchmark::DoNotOptimize(fitSecond(data, Extent::shownNumbers));
}

void fitWithInfluence(benchmark::State& run) {
  const ModelData data = dataOf(run);
  for (auto _ : run) benchmark::DoNotOptimize(fitSecond(data));
}

void refitWithoutACase(benchmark::State& run) {
  const ModelData data = dataOf(run);
  const SecondFit fit = fitSecond(data);
  for (auto _ : run) benchmark::DoNotOptimize(refitWithout(data, fit, std::array{7}));
}

void spreadTest(benchmark::State& run) {
  const ModelData data = dataOf(run);
  const SecondFit fit = fitSecond(data);
  for (auto _ : run) benchmark::DoNotOptimize(breuschPagan(data, fit));
}

void sizes(benchmark::internal::Benchmark* bench) {
  bench->Args({24, 4})
      ->Args({500, 49})
      ->ArgNames({"cases", "predictors"})
      ->Unit(benchmark::kMicrosecond);
}
BENCHMARK(fitWithoutInfluence)->Apply(sizes);
BENCHMARK(fitWithInfluence)->Apply(sizes);
BENCHMARK(refitWithoutACase)->Apply(sizes);
BENCHMARK(spreadTest)->Apply(sizes);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
