// The data editor's sheet at its largest, 500 cases of 50 variables: each action of a user with its
// undoing where there is one. The measures beside them, in the same run: copying the cells once,
// and one pass that looks at every cell.
#include <benchmark/benchmark.h>

#include "editor/data_sheet.h"
#include "editor/exit_check.h"

namespace tolmer {
namespace {

constexpr int cases = 500;
constexpr int variables = 50;

PasteTable fullTable() {
  PasteTable table;
  table.cells.resize(cases - 1, variables - 1);
  unsigned noise = 1;
  for (int r = 0; r < cases; ++r)
    for (int c = 0; c < variables; ++c) {
      noise = noise * 1664525U + 1013904223U;
      table.cells(r, c) = {.kind = DataCell::Kind::number,
                           .number = static_cast<double>(noise >> 8U) / (1U << 24U)};
    }
  return table;
}

constexpr CellRange firstValue{{1, 1}, {1, 1}};

void copyCells(benchmark::State& run) {
  DataSheet sheet;
  sheet.paste(firstValue, fullTable());
  for (auto _ : run) {
    SheetContent copy = sheet.content();
    benchmark::DoNotOptimize(copy);
  }
}

void lookAtCells(benchmark::State& run) {
  DataSheet sheet;
  sheet.paste(firstValue, fullTable());
  for (auto _ : run) {
    double sum = 0;
    for (int r = 1; r <= cases; ++r)
      for (int c = 1; c <= variables; ++c) sum += sheet.value(r, c).value_or(0);
    benchmark::DoNotOptimize(sum);
  }
}

void pasteAll(benchmark::State& run) {
  DataSheet sheet;
  const PasteTable table = fullTable();
  for (auto _ : run) {
    sheet.paste(firstValue, table);
    sheet.undo();
  }
}

void sortCases(benchmark::State& run) {
  DataSheet sheet;
  sheet.paste(firstValue, fullTable());
  int key = 0;
  for (auto _ : run) sheet.sort(1 + key++ % variables, true, SortedFormulas::moved);
}

void insertAndDeleteRow(benchmark::State& run) {
  DataSheet sheet;
  sheet.paste(firstValue, fullTable());
  for (auto _ : run) {
    sheet.insertRows(1, 1);
    sheet.deleteRows(1, 1);
  }
}

class NoMessages : public MessagePort {
 public:
  Answer messageBox(const MessageBox&) override { return Answer::ok; }
};

void checkAtExit(benchmark::State& run) {
  DataSheet sheet;
  sheet.paste(firstValue, fullTable());
  NoMessages messages;
  for (auto _ : run)
    if (!bfDataAreValid(sheet, {}, messages).valid) run.SkipWithError("the check failed");
}

void showAll(benchmark::State& run) {
  DataSheet sheet;
  sheet.paste(firstValue, fullTable());
  for (auto _ : run)
    for (int r = 1; r <= cases; ++r)
      for (int c = 1; c <= variables; ++c) benchmark::DoNotOptimize(sheet.shownText(r, c));
}

// A column in which every formula needs the one above; its first value changes.
void recalculateColumn(benchmark::State& run) {
  DataSheet sheet;
  PasteTable table = fullTable();
  sheet.paste(firstValue, table);
  for (int r = 2; r <= cases; ++r)
    sheet.enter(r, 1, "=B" + std::to_string(r - 1) + "*0.5+C" + std::to_string(r));
  int number = 0;
  for (auto _ : run) {
    sheet.enter(1, 1, std::to_string(number));
    number = 1 - number;
  }
}

BENCHMARK(copyCells)->Unit(benchmark::kMicrosecond);
BENCHMARK(lookAtCells)->Unit(benchmark::kMicrosecond);
// Fixed rounds: every one adds to what can be undone.
BENCHMARK(pasteAll)->Unit(benchmark::kMicrosecond)->Iterations(100);
BENCHMARK(sortCases)->Unit(benchmark::kMicrosecond)->Iterations(100);
BENCHMARK(insertAndDeleteRow)->Unit(benchmark::kMicrosecond)->Iterations(100);
BENCHMARK(checkAtExit)->Unit(benchmark::kMicrosecond);
BENCHMARK(showAll)->Unit(benchmark::kMicrosecond);
BENCHMARK(recalculateColumn)->Unit(benchmark::kMicrosecond)->Iterations(1000);

}  // namespace
}  // namespace tolmer

BENCHMARK_MAIN();
