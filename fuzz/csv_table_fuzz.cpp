// Bytes as the table of a report. The first byte chooses which columns the model names. What the
// quick way reads, the import must read alike.
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>

#include "base/text_encoding.h"
#include "report/model_by_name.h"
#include "report/table_dataset.h"
#include "report/table_source.h"
#include "textimport/plain_table.h"

namespace {

using namespace tolmer;

void require(bool holds) {
  if (!holds) std::abort();
}

void requirePrintable(const std::string& text) { require(onOneLine(text) == text); }

void requireAlike(const NamedTable& quick, const NamedTable& whole) {
  require(quick.rows == whole.rows && quick.names == whole.names && quick.labels == whole.labels);
  for (std::size_t column = 0; column < quick.numbers.size(); ++column) {
    require(quick.numbers[column].size() == whole.numbers[column].size());
    for (std::size_t row = 0; row < quick.numbers[column].size(); ++row) {
      const TextNumber& one = quick.numbers[column][row];
      const TextNumber& other = whole.numbers[column][row];
      require(isGap(one) == isGap(other));
      require(isGap(one) ||
              (std::bit_cast<std::uint64_t>(one.written) ==
                   std::bit_cast<std::uint64_t>(other.written) &&
               std::bit_cast<std::uint32_t>(one.held) == std::bit_cast<std::uint32_t>(other.held)));
    }
  }
}

// The quick way's table, and how many columns it has; 0 where it is not taken.
int requireSameByImport(const std::string& bytes, const ReportOptions& options) {
  auto text = foreignText(bytes);
  if (!text) return 0;
  const std::string before = *text;
  const auto plain = PlainTable::take(*text);
  if (!plain) require(*text == before);
  const auto quick = plain ? plain->named(columnsOf(options)) : std::nullopt;
  if (!quick) return 0;
  ImportTarget target{.observations = 100000, .variables = 100000};
  target.hints.wanted = columnsOf(options);
  const auto import = TextImport::read(bytes, target);
  const auto whole = import ? import->named({}) : Result<NamedTable>(import.error());
  require(static_cast<bool>(whole));
  requireAlike(*quick, *whole);
  return plain->columns();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  ReportOptions options;
  requireSameByImport(bytes, options);
  options.import.answers = {{ImportDoubt::words, 0},
                            {ImportDoubt::shortRows, 0},
                            {ImportDoubt::percent, 1},
                            {ImportDoubt::heading, data[0] & 1}};
  const auto all = tableFromText("t.csv", bytes, options);
  if (!all) return 0;
  const auto& names = all->names;
  options.y = names[data[0] % names.size()];
  if (data[0] & 64) options.labels = names.front();
  if (data[0] & 128) options.x = {names.back()};
  requireSameByImport(bytes, options);
  const auto table = tableFromText("t.csv", bytes, options);
  if (!table) return 0;
  auto copy = dataSetFromTable(*table, "t.csv", options);
  if (!copy) return 0;
  const auto leftOut = static_cast<int>(copy->origin.leftOut.size());
  require(copy->miNumCases + leftOut == table->rows);
  for (int j = 1; j <= copy->miNumCols; ++j) requirePrintable(copy->otColName(j));
  if (copy->mbLabeledData)
    for (int i = 1; i <= copy->miNumCases; ++i) requirePrintable(copy->otCaseLabel(i));
  if (!chooseModelByName(*copy, options)) require(copy->miNumPredictors > 0);
  return 0;
}
