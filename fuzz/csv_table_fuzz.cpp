// Bytes as the table of a report. The first byte chooses which columns the model names.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

#include "base/text_encoding.h"
#include "report/csv_dataset.h"
#include "report/model_by_name.h"

namespace {

using namespace tolmer;

void require(bool holds) {
  if (!holds) std::abort();
}

void requirePrintable(const std::string& text) { require(onOneLine(text) == text); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const auto table =
      CsvTable::parse("t.csv", std::string(reinterpret_cast<const char*>(data) + 1, size - 1));
  if (!table) return 0;
  ReportOptions options;
  const int last = table->columns() - 1;
  options.y = table->name(data[0] % table->columns());
  if (data[0] & 64) options.labels = table->name(0);
  if (data[0] & 128) options.x = {table->name(last)};
  auto copy = dataSetFromTable(*table, options);
  if (!copy) return 0;
  require(copy->miNumCases == table->rows() && copy->miNumCols <= table->columns());
  for (int j = 1; j <= copy->miNumCols; ++j) requirePrintable(copy->otColName(j));
  if (copy->mbLabeledData)
    for (int i = 1; i <= copy->miNumCases; ++i) requirePrintable(copy->otCaseLabel(i));
  if (!chooseModelByName(*copy, options)) require(copy->miNumPredictors > 0);
  return 0;
}
