#include "report/csv_dataset.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/text_encoding.h"
#include "fieldfile/field_reader.h"

namespace tolmer {
namespace {

using Fault = std::optional<Error>;

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

class Builder {
 public:
  Builder(const CsvTable& table, const ReportOptions& options) : table_(table), options_(options) {}

  Fault build(WorkingCopy& copy) {
    if (!options_.labels.empty()) labelColumn_ = table_.find(options_.labels);
    for (int column = 0; column < table_.columns(); ++column)
      if (column != labelColumn_)
        if (auto fault = readColumn(column)) return fault;
    describe(copy);
    fillData(copy);
    return std::nullopt;
  }

 private:
  bool isInModel(const std::string& name) const {
    return name == options_.y ||
           std::find(options_.x.begin(), options_.x.end(), name) != options_.x.end();
  }

  // Where --x names the predictors, a column outside the model need not hold numbers.
  bool mayBeLeftOut(int column, bool holdsNumbers) const {
    return !isInModel(table_.name(column)) && (!holdsNumbers || !options_.x.empty());
  }

  // Adds the column to the variables, or leaves it out.
  Fault readColumn(int column) {
    std::vector<TextNumber> values;
    values.reserve(static_cast<std::size_t>(table_.rows()));
    int firstText = -1;
    for (int row = 0; row < table_.rows(); ++row) {
      if (const auto value = textNumberOf(table_.cell(row, column)))
        values.push_back(*value);
      else if (firstText < 0)
        firstText = row;
    }
    if (firstText >= 0)
      return mayBeLeftOut(column, !values.empty()) ? std::nullopt
                                                   : Fault(notANumber(firstText, column));
    numbers_.push_back(std::move(values));
    names_.push_back(table_.name(column));
    return std::nullopt;
  }

  Error notANumber(int row, int column) const {
    const std::string_view text = table_.cell(row, column);
    return table_.errorAt(
        row, column,
        text.empty() ? "the cell is empty" : quoted(text) + " is no number this program can hold");
  }

  void describe(WorkingCopy& copy) const {
    copy.miNumCases = static_cast<Int16>(table_.rows());
    copy.miNumCols = static_cast<Int16>(numbers_.size());
    copy.mtDataFileName = table_.fileName();
    copy.mtDataFileInfoName = "None";
    copy.mbLabeledData = labelColumn_ >= 0;
    if (copy.mbLabeledData) copy.mtLabelColName = table_.name(labelColumn_);
  }

  void fillData(WorkingCopy& copy) const {
    DimensionModelDesignerArrays(copy);
    copy.origin.written.resize(copy.miNumCases, copy.miNumCols);
    setInterceptColumn(copy);
    for (int j = 1; j <= copy.miNumCols; ++j) {
      const auto at = static_cast<std::size_t>(j) - 1;
      copy.otColName(j) = names_[at];
      for (int i = 1; i <= copy.miNumCases; ++i) {
        const TextNumber& number = numbers_[at][static_cast<std::size_t>(i) - 1];
        copy.osData(i, j) = number.held;
        copy.origin.written(i, j) = number.written;
      }
    }
    if (copy.mbLabeledData)
      for (int i = 1; i <= copy.miNumCases; ++i)
        copy.otCaseLabel(i) = onOneLine(std::string(table_.cell(i - 1, labelColumn_)));
  }

  const CsvTable& table_;
  const ReportOptions& options_;
  int labelColumn_ = -1;
  std::vector<std::vector<TextNumber>> numbers_;
  std::vector<std::string> names_;
};

}  // namespace

Result<WorkingCopy> dataSetFromTable(const CsvTable& table, const ReportOptions& options) {
  WorkingCopy copy;
  if (auto fault = Builder(table, options).build(copy)) return *fault;
  return copy;
}

}  // namespace tolmer
