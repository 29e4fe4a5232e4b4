#include "textimport/case_condition.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/trimmed.h"
#include "formula/sheet_names.h"
#include "textimport/number_shape.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

// Behind the quoted text that begins there, or one letter further.
std::size_t pastQuoted(std::string_view text, std::size_t at) {
  if (text[at] != '"') return at + 1;
  const auto end = text.find('"', at + 1);
  return end == text.npos ? text.size() : end + 1;
}

bool isBlank(char c) { return c == ' ' || c == '\t'; }

bool isAnd(std::string_view text, std::size_t at) {
  return at > 0 && at + 4 < text.size() && isBlank(text[at - 1]) && isBlank(text[at + 3]) &&
         foldedName(text.substr(at, 3)) == "and";
}

std::vector<std::string_view> partsOf(std::string_view text) {
  std::vector<std::string_view> parts;
  std::size_t begin = 0;
  for (std::size_t at = 0; at < text.size(); at = pastQuoted(text, at)) {
    if (!isAnd(text, at)) continue;
    parts.push_back(text.substr(begin, at - begin));
    begin = at + 3;
  }
  parts.push_back(text.substr(begin));
  return parts;
}

std::string_view unquoted(std::string_view text) {
  text = trimmed(text);
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') return text;
  return text.substr(1, text.size() - 2);
}

std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::optional<double> valueOf(std::string_view text) {
  const NumberReading read = readNumber(text);
  if (read.kind == NumberReading::Kind::number) return read.number;
  return dayOfDate(text);
}

}  // namespace

Result<CaseCondition> CaseCondition::of(std::string_view text,
                                        const std::vector<std::string>& names) {
  if (trimmed(text).empty()) return Error{"", "nothing is written, such as Age >= 18"};
  CaseCondition condition;
  for (const std::string_view part : partsOf(text)) {
    auto comparison = comparisonOf(part, names);
    if (!comparison) return comparison.error();
    condition.comparisons_.push_back(std::move(*comparison));
  }
  return condition;
}

Result<CaseCondition::Comparison> CaseCondition::comparisonOf(
    std::string_view text, const std::vector<std::string>& names) {
  constexpr std::array<std::pair<std::string_view, Sign>, 8> signs = {{{"<=", Sign::atMost},
                                                                       {">=", Sign::atLeast},
                                                                       {"<>", Sign::unequal},
                                                                       {"!=", Sign::unequal},
                                                                       {"==", Sign::equal},
                                                                       {"=", Sign::equal},
                                                                       {"<", Sign::less},
                                                                       {">", Sign::greater}}};
  std::size_t at = 0;
  while (at < text.size() && std::string_view("<>=!").find(text[at]) == std::string_view::npos)
    at = pastQuoted(text, at);
  const auto sign = std::find_if(signs.begin(), signs.end(), [&](const auto& one) {
    return text.substr(std::min(at, text.size())).starts_with(one.first);
  });
  if (sign == signs.end())
    return Error{"", inQuotes(trimmed(text)) +
                         " is no comparison: write a variable, one of = <> < <= > >=, and a value"};
  const std::string_view name = unquoted(text.substr(0, at));
  const std::string_view value = unquoted(text.substr(at + sign->first.size()));
  const auto named = [&](const std::string& other) {
    return foldedName(other) == foldedName(name);
  };
  const auto column = std::find_if(names.begin(), names.end(), named);
  if (column == names.end()) return Error{"", "there is no variable " + inQuotes(name)};
  if (std::find_if(column + 1, names.end(), named) != names.end())
    return Error{"", "two variables are called " + inQuotes(name)};
  if (value.empty()) return Error{"", inQuotes(name) + " is compared with nothing"};
  Comparison comparison{static_cast<std::size_t>(column - names.begin()), sign->second,
                        valueOf(value), foldedName(value)};
  if (!comparison.number && sign->second != Sign::equal && sign->second != Sign::unequal)
    return Error{"", inQuotes(value) + " is no number: words are compared by = and <> alone"};
  return comparison;
}

std::vector<std::size_t> CaseCondition::columns() const {
  std::vector<std::size_t> columns;
  for (const Comparison& comparison : comparisons_) columns.push_back(comparison.column);
  std::sort(columns.begin(), columns.end());
  columns.erase(std::unique(columns.begin(), columns.end()), columns.end());
  return columns;
}

bool CaseCondition::Comparison::isMetBy(const ConditionField& field) const {
  if (field.isMissing) return false;
  const bool areNumbers = number && field.number;
  const bool isSame = areNumbers ? *field.number == *number
                                 : foldedName(field.text) == word ||
                                       (!field.label.empty() && foldedName(field.label) == word);
  if (sign == Sign::equal) return isSame;
  if (sign == Sign::unequal) return !isSame;
  if (!areNumbers) return false;
  if (sign == Sign::less) return *field.number < *number;
  if (sign == Sign::atMost) return *field.number <= *number;
  if (sign == Sign::greater) return *field.number > *number;
  return *field.number >= *number;
}

}  // namespace tolmer
