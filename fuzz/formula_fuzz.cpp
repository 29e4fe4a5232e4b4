// Any text as a formula: it never breaks, its value is a finite number or an error, it asks the
// sheet for cells inside alone, and what could be read can be read after every rewriting.
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "formula/formula.h"
#include "formula/rewrite.h"

namespace tolmer {
namespace {

constexpr SheetSize size{20, 26};

void require(bool holds) {
  if (!holds) std::abort();
}

const std::array<std::string, 5> texts = {"North", " \xC3\xA4pfel ", ">=2", "<>*o?th", "-1e999"};

// Numbers small and large, empty cells, texts and errors, by place.
class MixedCells : public CellSource {
 public:
  CellValue cellValue(CellAddress cell) const override {
    require(size.holds(cell));
    switch ((cell.row * 7 + cell.column) % 9) {
      case 0:
        return CellValue::empty();
      case 1:
        return cell.column == 0 ? CellValue::ofText(texts[cell.row % texts.size()])
                                : CellValue::ofNumber(-1e308);
      case 2:
        return CellValue::ofNumber(1e-308);
      case 3:
        return cell.row == 20 ? CellValue::ofError(FormulaError::cycle) : CellValue::empty();
      default:
        return CellValue::ofNumber(cell.row - cell.column * 0.1);
    }
  }
};

const SheetNames& names() {
  static const SheetNames sheet(
      size, {"Label", "Var1", "X1", "two words", "a]b", "\xC3\x84pfel", "same", "SAME", "E5"});
  return sheet;
}

void check(std::string_view text, const SheetNames& sheet, bool isReadable, int row) {
  const Formula formula = compileFormula(text, sheet, 5);
  // A single cell as B1:$B1 may become several by moving.
  require(!isReadable || !formula.problem || formula.problem->error == FormulaError::value);
  const MixedCells cells;
  const FormulaValue value = evaluate(formula, cells, row);
  require(std::isfinite(value.number) && (value.error == FormulaError::none || value.number == 0));
  for (const CellRange& range : references(formula, row))
    require(size.holds(range.first) && size.holds(range.last) && range.holds(range.first));
}

// Each of the fuzzed choices, once made: names are slower to build than formulas to read.
const SheetNames& renamed(int column, const std::string& heading) {
  static std::map<std::pair<int, std::string>, SheetNames> made;
  const auto place = made.find({column, heading});
  if (place != made.end()) return place->second;
  return made.emplace(std::pair(column, heading), names().renamed(column, heading)).first->second;
}

constexpr std::array<const char*, 6> headings = {"", "B1", "a [b]", "same", "Sum", "\xC3\xA4PFEL"};

}  // namespace
}  // namespace tolmer

// Five bytes choose what is done to the text, the others are the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t length) {
  using namespace tolmer;
  if (length < 5) return 0;
  std::string text(reinterpret_cast<const char*>(data) + 5, length - 5);
  const int row = 1 + data[0] % size.rows, at = 1 + data[1] % size.rows;
  const int rows = data[2] % 41 - 20, columns = data[3] % 53 - 26;
  const int count = 1 + data[2] % size.rows, column = data[3] % (size.variables + 1);
  // As it is kept where it is typed: half of all columns are unused.
  const auto typed =
      parseFormula(text, names(), 5, [](CellAddress cell) { return cell.column % 2 == 1; });
  if (typed) text = typed->text;
  const bool isReadable = typed || !compileFormula(text, names(), 5).problem;

  check(text, names(), isReadable, row);
  switch (data[4] % 5) {
    case 0:
      require(movedFormula(text, names(), 0, 0) == text || !isReadable);
      break;
    case 1:
      check(movedFormula(text, names(), rows, columns), names(), isReadable, row);
      break;
    case 2:
      check(withRowsInserted(text, names(), at, count), names(), isReadable, row);
      break;
    case 3:
      check(withRowsDeleted(text, names(), at, count), names(), isReadable, row);
      break;
    default:
      const char* heading = headings[data[1] % headings.size()];
      check(withVariableRenamed(text, names(), column, heading), renamed(column, heading),
            isReadable, row);
  }
  return 0;
}
