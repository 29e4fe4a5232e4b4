#include "report/new_cases.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "base/text_encoding.h"

namespace tolmer {
namespace {

bool isOneOf(const std::vector<std::string>& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

// The whole file, by the columns of these names alone; words where the data had them.
ReportOptions optionsFor(const ReportOptions& options, const std::vector<std::string>& names) {
  ReportOptions result;
  result.file = options.predict;
  result.x = names;
  result.import = options.import;
  result.import.sheet.clear();
  for (const auto& [column, made] : options.madeDummies) {
    if (std::ranges::none_of(made.names, [&](const auto& name) { return isOneOf(names, name); }))
      continue;
    result.dummies.push_back(column);
    result.madeDummies.emplace(column, made);
  }
  return result;
}

class NewCasesTable {
 public:
  NewCasesTable(SourcedTable table, const std::map<std::string, DummyColumns>& dummies)
      : source_(std::move(table)), dummies_(dummies) {
    for (std::string& name : source_.table.names) name = onOneLine(std::move(name));
  }

  Result<NewCases> cases(const std::vector<std::string>& names) const {
    NewCases cases{names,
                   std::vector<std::vector<double>>(static_cast<std::size_t>(source_.table.rows))};
    for (const std::string& name : names)
      if (auto fault = addColumn(name, cases)) return *fault;
    return cases;
  }

 private:
  std::optional<Error> addColumn(const std::string& name, NewCases& cases) const {
    const auto& all = source_.table.names;
    const auto found = std::ranges::find(all, name);
    if (found == all.end())
      return fault("there is no column \"" + name + "\"" + orItsWords(name) +
                   ", which the model needs");
    if (std::find(found + 1, all.end(), name) != all.end())
      return fault("a second column is named \"" + name + "\"");
    const auto at = static_cast<std::size_t>(found - all.begin());
    if (!source_.table.isVariable(at)) return fault("the column \"" + name + "\" has no numbers");
    for (std::size_t row = 0; row < cases.rows.size(); ++row) {
      const TextNumber& number = source_.table.numbers[at][row];
      if (isGap(number)) return fault("row " + std::to_string(row + 1) + " has a gap in " + name);
      cases.rows[row].push_back(number.held);
    }
    return std::nullopt;
  }
  Error fault(std::string text) const { return {source_.name, std::move(text)}; }

  std::string orItsWords(const std::string& name) const {
    for (const auto& [column, made] : dummies_)
      if (column != name && isOneOf(made.names, name)) return " and none \"" + column + "\"";
    return {};
  }

  SourcedTable source_;
  const std::map<std::string, DummyColumns>& dummies_;
};

}  // namespace

Result<NewCases> readNewCases(const ReportOptions& options, const std::vector<std::string>& names,
                              const TableSource& source) {
  auto table = readTable(optionsFor(options, names), source);
  if (!table) return table.error();
  return NewCasesTable(*std::move(table), options.madeDummies).cases(names);
}

}  // namespace tolmer
