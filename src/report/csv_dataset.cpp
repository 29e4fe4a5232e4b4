#include "report/csv_dataset.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "fieldfile/number_text.h"

namespace tolmer {
namespace {

using Fault = std::optional<ModelFault>;

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string namesOf(const CsvTable& table) {
  std::string names;
  for (int column = 0; column < table.columns(); ++column)
    names += (column > 0 ? ", " : "") + table.name(column);
  return names;
}

ModelFault unknownName(const CsvTable& table, std::string_view name) {
  return {{table.fileName(),
           "there is no column " + quoted(name) + "; the columns are " + namesOf(table)},
          true};
}

// Turns one table with its options into a data set.
class Builder {
 public:
  Builder(const CsvTable& table, const ReportOptions& options) : table_(table), options_(options) {}

  Fault build(WorkingCopy& copy) {
    if (auto fault = findLabels()) return fault;
    if (auto fault = readColumns()) return fault;
    describe(copy);
    fillData(copy);
    return chooseModel(copy);
  }

 private:
  Fault findLabels() {
    if (options_.labels.empty()) return std::nullopt;
    labelColumn_ = table_.find(options_.labels);
    if (labelColumn_ < 0) return unknownName(table_, options_.labels);
    return std::nullopt;
  }

  Fault readColumns() {
    columnOf_.assign(static_cast<std::size_t>(table_.columns()), 0);
    for (int column = 0; column < table_.columns(); ++column)
      if (column != labelColumn_)
        if (auto fault = readColumn(column)) return fault;
    return std::nullopt;
  }

  Fault readColumn(int column) {
    std::vector<float> values;
    int firstText = -1;
    for (int row = 0; row < table_.rows(); ++row) {
      if (const auto value = singleFromText(table_.cell(row, column)))
        values.push_back(*value);
      else if (firstText < 0)
        firstText = row;
    }
    if (values.empty()) return std::nullopt;
    if (firstText >= 0) return notANumber(firstText, column);
    numbers_.push_back(std::move(values));
    columnOf_[static_cast<std::size_t>(column)] = static_cast<Int16>(numbers_.size());
    names_.push_back(table_.name(column));
    return std::nullopt;
  }

  Fault notANumber(int row, int column) const {
    const std::string_view text = table_.cell(row, column);
    return ModelFault{table_.errorAt(row, column,
                                     text.empty() ? "the cell is empty"
                                                  : quoted(text) + " is no number this program "
                                                                   "can hold"),
                      false};
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
    setInterceptColumn(copy);
    for (int j = 1; j <= copy.miNumCols; ++j) {
      const auto at = static_cast<std::size_t>(j) - 1;
      copy.otColName(j) = names_[at];
      for (int i = 1; i <= copy.miNumCases; ++i)
        copy.osData(i, j) = numbers_[at][static_cast<std::size_t>(i) - 1];
    }
    if (copy.mbLabeledData)
      for (int i = 1; i <= copy.miNumCases; ++i)
        copy.otCaseLabel(i) = table_.cell(i - 1, labelColumn_);
  }

  Fault chooseModel(WorkingCopy& copy) {
    if (auto fault = numericColumn(options_.y, copy.miDepVarCol)) return fault;
    copy.mbDepVarSpecified = true;
    for (const std::string& name : options_.x) {
      Int16 column = 0;
      if (auto fault = numericColumn(name, column)) return fault;
      if (column == copy.miDepVarCol)
        return ModelFault{{"", quoted(name) + " cannot explain itself: --y and --x both name it"},
                          true};
      copy.obIsIndepVar(column) = true;
    }
    if (options_.x.empty())
      for (int j = 1; j <= copy.miNumCols; ++j) copy.obIsIndepVar(j) = j != copy.miDepVarCol;
    copy.miNumPredictors = listIndepVars(copy);
    if (copy.miNumPredictors > 0) return std::nullopt;
    return ModelFault{{table_.fileName(), "there is no other numeric column to explain " +
                                              quoted(options_.y) + " with"},
                      false};
  }

  // The data set's column of that name.
  Fault numericColumn(const std::string& name, Int16& found) const {
    if (name.empty())
      return ModelFault{{"", "--y is missing; the columns are " + namesOf(table_)}, true};
    const int column = table_.find(name);
    if (column < 0) return unknownName(table_, name);
    if (column == labelColumn_)
      return ModelFault{{"", quoted(name) + " gives the labels and cannot be in the model"}, true};
    found = columnOf_[static_cast<std::size_t>(column)];
    if (found > 0) return std::nullopt;
    return notANumber(0, column);
  }

  const CsvTable& table_;
  const ReportOptions& options_;
  int labelColumn_ = -1;
  std::vector<Int16> columnOf_;  // per column of the table: that of the data set, 0 for text
  std::vector<std::vector<float>> numbers_;
  std::vector<std::string> names_;
};

}  // namespace

std::variant<WorkingCopy, ModelFault> dataSetFromTable(const CsvTable& table,
                                                       const ReportOptions& options) {
  WorkingCopy copy;
  if (auto fault = Builder(table, options).build(copy)) return *fault;
  copy.mbUseIntercept = options.intercept;
  return copy;
}

}  // namespace tolmer
