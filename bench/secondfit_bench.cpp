// The second fit with the judgement of all shown numbers against the engine's whole analysis, timed
// in one run. The counter "share" is the least time of the former divided by the latter's: beside
// other load the least is the steadiest.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>

#include "engine/picture_text.h"
#include "engine/pipeline.h"
#include "secondfit/health.h"
#include "secondfit/shown_figures.h"
#include "support/recorded_messages.h"
#include "support/regression_data.h"

namespace tolmer {
namespace {

using Clock = std::chrono::steady_clock;

struct Cell {
  const char* display;
  int row, column;
  std::string text;
};

// Texts in the shape of the displays, from the second fit itself.
std::vector<Cell> cellsOf(const FigureSource& source) {
  std::vector<Cell> cells;
  for (const char* display : {"frmEstCoef", "frmANOVA", "frmResidList"})
    for (int row = 2; row <= std::max(source.fit.cases, source.fit.terms) + 1; ++row)
      for (int column = 2; column <= 8; ++column)
        if (const auto figure = shownFigure(source, display, row, column))
          cells.push_back({display, row, column, formatNumber(figure->value, "0.000")});
  return cells;
}

Health healthOf(const AnalysisState& state, const std::vector<Cell>& cells) {
  const ModelData data = heldData(state);
  const SecondFit fit = fitSecond(data, Extent::shownNumbers);
  const FigureSource source{data, fit, false};
  std::vector<ShownCell> shown;
  shown.reserve(cells.size());
  for (const Cell& cell : cells)
    shown.push_back({cell.display, cell.row, cell.column, cell.text,
                     *shownFigure(source, cell.display, cell.row, cell.column)});
  return checkCells(fit.condition, shown);
}

// Each iteration runs both, so that a change of clock speed or load meets both alike.
void secondFit(benchmark::State& run) {
  AnalysisState state = noisyModel(static_cast<int>(run.range(0)), static_cast<int>(run.range(1)));
  const ModelData data = heldData(state);
  const SecondFit first = fitSecond(data);
  const std::vector<Cell> cells = cellsOf({data, first, false});
  RecordedMessages messages;
  double second = 1e9;
  double engine = 1e9;
  int checked = 0;
  while (run.KeepRunning()) {
    const auto start = Clock::now();
    const Health health = healthOf(state, cells);
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    checked = health.checked;
    if (!health.unconfirmed.empty()) run.SkipWithError("a number is not confirmed");
    run.SetIterationTime(seconds);
    second = std::min(second, seconds);
    const auto between = Clock::now();
    ComputeStatistics(state, messages);
    FitRegression(state, messages);
    engine = std::min(engine, std::chrono::duration<double>(Clock::now() - between).count());
  }
  run.counters["second_ms"] = 1e3 * second;
  run.counters["engine_ms"] = 1e3 * engine;
  run.counters["share"] = second / engine;
  run.counters["cells"] = checked;
  run.counters["extended"] = first.extended ? 1 : 0;
}

BENCHMARK(secondFit)
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
