#include "report/table_dataset.h"
#include "base/data_limits.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace tolmer {
namespace {

// Cases and variables are counted with 16 signed bits.
constexpr std::size_t most = std::numeric_limits<Int16>::max();

std::optional<std::string> doubleName(const NamedTable& table) {
  std::set<std::string_view> taken;
  for (const std::string& name : table.names)
    if (!taken.insert(name).second) return name;
  return std::nullopt;
}

class Builder {
 public:
  Builder(const NamedTable& table, const ReportOptions& options)
      : table_(table), wanted_(columnsOf(options)) {
    for (std::size_t column = 0; column < table.names.size(); ++column)
      if (table.isVariable(column) && (options.columns.empty() || isInModel(table.names[column])))
        variables_.push_back(column);
    const auto every = static_cast<std::size_t>(options.every);
    const auto rows = static_cast<std::size_t>(table.rows);
    const auto first = options.first > 0 ? static_cast<std::size_t>(options.first) : rows;
    for (std::size_t row = 0; row < rows && rows_.size() < first; row += every)
      rows_.push_back(row);
  }

  std::optional<std::string> limitFault() const {
    const auto tooMany = [](std::size_t count, const char* what, std::size_t room) {
      return std::to_string(count) + what + ", there is room for " + std::to_string(room) +
             "; choose with --first, --every or --columns";
    };
    if (rows_.size() > most) return tooMany(rows_.size(), " cases", most);
    if (variables_.size() > most) return tooMany(variables_.size(), " variables", most);
    const std::size_t cells = rows_.size() * variables_.size();
    if (cells > mostCellsOfReport) return tooMany(cells, " cells", mostCellsOfReport);
    return std::nullopt;
  }

  void build(WorkingCopy& copy) {
    auto leftOut = leaveOutIncomplete();
    copy.miNumCases = static_cast<Int16>(rows_.size());
    copy.miNumCols = static_cast<Int16>(variables_.size());
    copy.mtDataFileInfoName = noDataFile;
    copy.mbLabeledData = !table_.labels.empty();
    if (copy.mbLabeledData) copy.mtLabelColName = wanted_.labels;
    fillData(copy);
    copy.origin.leftOut = std::move(leftOut);
  }

 private:
  bool isInModel(const std::string& name) const {
    return wanted_.others ||
           std::find(wanted_.numbers.begin(), wanted_.numbers.end(), name) != wanted_.numbers.end();
  }

  std::vector<LeftOutCase> leaveOutIncomplete() {
    std::vector<LeftOutCase> leftOut;
    std::vector<std::size_t> model;
    std::copy_if(variables_.begin(), variables_.end(), std::back_inserter(model),
                 [this](std::size_t column) { return isInModel(table_.names[column]); });
    std::erase_if(rows_, [&](std::size_t row) {
      std::string gaps;
      for (const std::size_t column : model)
        if (isGap(table_.numbers[column][row]))
          gaps += (gaps.empty() ? "a gap in " : ", a gap in ") + table_.names[column];
      if (!gaps.empty()) leftOut.push_back({numberOf(row), labelOf(row), gaps});
      return !gaps.empty();
    });
    return leftOut;
  }

  int numberOf(std::size_t row) const {
    return table_.caseNumbers.empty() ? static_cast<int>(row) + 1 : table_.caseNumbers[row];
  }
  std::string labelOf(std::size_t row) const {
    return table_.labels.empty() ? std::string() : table_.labels[row];
  }

  void fillData(WorkingCopy& copy) const {
    DimensionModelDesignerArrays(copy);
    copy.origin.written.resize(copy.miNumCases, copy.miNumCols);
    setInterceptColumn(copy);
    for (int j = 1; j <= copy.miNumCols; ++j) {
      const std::size_t column = variables_[static_cast<std::size_t>(j) - 1];
      copy.otColName(j) = table_.names[column];
      for (int i = 1; i <= copy.miNumCases; ++i) {
        const TextNumber& number = table_.numbers[column][rows_[static_cast<std::size_t>(i) - 1]];
        copy.osData(i, j) = number.held;
        copy.origin.written(i, j) = number.written;
      }
    }
    if (copy.mbLabeledData)
      for (int i = 1; i <= copy.miNumCases; ++i)
        copy.otCaseLabel(i) = labelOf(rows_[static_cast<std::size_t>(i) - 1]);
  }

  const NamedTable& table_;
  WantedColumns wanted_;
  std::vector<std::size_t> variables_;  // their columns
  std::vector<std::size_t> rows_;       // the cases taken, without the incomplete ones in the end
};

}  // namespace

WantedColumns columnsOf(const ReportOptions& options) {
  const auto& numbers = options.x.empty() ? options.columns : options.x;
  WantedColumns wanted{numbers, numbers.empty(), options.labels};
  if (!options.y.empty()) wanted.numbers.push_back(options.y);
  wanted.dummies = options.dummies;
  wanted.references = options.references;
  for (const auto& [name, made] : options.madeDummies) {
    wanted.categories[name] = made.categories;
    wanted.references[name] = made.reference;
  }
  return wanted;
}

Result<ReportOptions> withDummies(ReportOptions options, const NamedTable& table) {
  for (const std::string& name : options.dummies)
    if (!table.dummies.contains(name)) {
      const auto& names = table.names;
      const bool isThere = std::find(names.begin(), names.end(), name) != names.end();
      return Error{"", isThere ? "the column \"" + name + "\" has not two categories"
                               : "there is no column \"" + name + "\" for dummy variables"};
    }
  for (std::vector<std::string>* list : {&options.x, &options.columns}) {
    std::vector<std::string> names;
    for (const std::string& name : *list) {
      const auto dummies = table.dummies.find(name);
      if (dummies == table.dummies.end())
        names.push_back(name);
      else
        names.insert(names.end(), dummies->second.names.begin(), dummies->second.names.end());
    }
    *list = std::move(names);
  }
  options.madeDummies = table.dummies;
  return options;
}

Result<WorkingCopy> dataSetFromTable(const NamedTable& table, const std::string& fileName,
                                     const ReportOptions& options) {
  if (const auto name = doubleName(table))
    return Error{fileName, "a second column is named \"" + *name + "\""};
  Builder builder(table, options);
  if (const auto fault = builder.limitFault()) return Error{fileName, *fault};
  WorkingCopy copy;
  copy.mtDataFileName = fileName;
  builder.build(copy);
  if (copy.miNumCases > 0 || table.rows == 0) return copy;
  return Error{fileName, "no case is complete: row 1 has " + copy.origin.leftOut.front().why};
}

}  // namespace tolmer
