// A sheet of 500 x 50 formulas, each of the one above, and a column of 500 averages; the measure
// is the same arithmetic as plain loops.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "formula/calculator.h"
#include "formula/rewrite.h"

namespace tolmer {
namespace {

constexpr SheetSize size;
constexpr int columns = size.variables + 1;

class PlainCells : public CellSource {
 public:
  CellValue cellValue(CellAddress cell) const override {
    return CellValue::ofNumber(values[cell.row * columns + cell.column]);
  }
  std::vector<double> values = std::vector<double>((size.rows + 1) * columns, 1.0);
};

std::string chainFormula(int row, int column) {
  return "=" + columnLetters(column) + std::to_string(row - 1) + "*1.001+1";
}

struct FullSheet {
  FullSheet() {
    for (int column = 1; column < columns; ++column)
      for (int row = 2; row <= size.rows; ++row)
        calculator.setFormula({row, column}, compileFormula(chainFormula(row, column), names, 1));
    for (int column = 1; column < columns; ++column) firstRow.push_back({1, column});
  }
  void recalculate() {
    calculator.recalculate(firstRow, cells, [&](CellAddress cell, const FormulaValue& value) {
      cells.values[cell.row * columns + cell.column] = value.number;
    });
  }
  SheetNames names{size, {}};
  Calculator calculator{size};
  PlainCells cells;
  std::vector<CellAddress> firstRow;
};

void plainChains(benchmark::State& run) {
  PlainCells cells;
  for (auto _ : run) {
    for (int row = 2; row <= size.rows; ++row)
      for (int column = 1; column < columns; ++column)
        cells.values[row * columns + column] =
            cells.values[(row - 1) * columns + column] * 1.001 + 1;
    benchmark::DoNotOptimize(cells.values.data());
    benchmark::ClobberMemory();
  }
}

void chains(benchmark::State& run) {
  FullSheet sheet;
  for (auto _ : run) sheet.recalculate();
}

void oneChain(benchmark::State& run) {
  FullSheet sheet;
  sheet.firstRow = {{1, 7}};
  for (auto _ : run) sheet.recalculate();
}

void plainAverages(benchmark::State& run) {
  PlainCells cells;
  for (auto _ : run)
    for (int row = 1; row <= size.rows; ++row) {
      double sum = 0;
      for (int other = 1; other <= size.rows; ++other) sum += cells.values[other * columns + 1];
      benchmark::DoNotOptimize(cells.values[row * columns + 2] = sum / size.rows);
    }
}

void averages(benchmark::State& run) {
  FullSheet sheet;
  for (int row = 2; row <= size.rows; ++row) {
    sheet.calculator.removeFormula({row, 1});
    sheet.calculator.setFormula({row, 2}, compileFormula("=AVERAGE(B:B)", sheet.names, 1));
  }
  sheet.firstRow = {{1, 1}};
  for (auto _ : run) sheet.recalculate();
}

void readAll(benchmark::State& run) {
  for (auto _ : run) {
    FullSheet sheet;
    benchmark::DoNotOptimize(sheet.calculator.formulaAt({2, 1}));
  }
}

void insertRow(benchmark::State& run) {
  const SheetNames names(size, {});
  for (auto _ : run)
    for (int column = 1; column < columns; ++column)
      for (int row = 2; row <= size.rows; ++row)
        benchmark::DoNotOptimize(withRowsInserted(chainFormula(row, column), names, 3, 1));
}

BENCHMARK(plainChains)->Unit(benchmark::kMicrosecond);
BENCHMARK(chains)->Unit(benchmark::kMicrosecond);
BENCHMARK(oneChain)->Unit(benchmark::kMicrosecond);
BENCHMARK(plainAverages)->Unit(benchmark::kMicrosecond);
BENCHMARK(averages)->Unit(benchmark::kMicrosecond);
BENCHMARK(readAll)->Unit(benchmark::kMicrosecond);
BENCHMARK(insertRow)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
