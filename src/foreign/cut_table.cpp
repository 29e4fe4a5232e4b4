#include "foreign/cut_table.h"

#include <charconv>
#include <chrono>
#include <cmath>

#include "formula/sheet_names.h"

namespace tolmer {
namespace {

std::string twoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string clockText(int seconds) {
  return twoDigits(seconds / 3600) + ":" + twoDigits(seconds / 60 % 60) + ":" +
         twoDigits(seconds % 60);
}

// No calendar reaches further; the digits say more then.
constexpr double mostDays = 3e6;

std::string dateText(double days) {
  using namespace std::chrono;
  if (!(std::fabs(days) < mostDays)) return shortestDigits(days);
  constexpr int secondsOfDay = 86400;
  const auto total = std::llround(days * secondsOfDay);
  const auto whole = static_cast<int>(std::floor(static_cast<double>(total) / secondsOfDay));
  const auto rest = static_cast<int>(total - static_cast<long long>(whole) * secondsOfDay);
  const year_month_day date(sys_days(year(1899) / 12 / 30) + std::chrono::days(whole));
  std::string year = std::to_string(static_cast<int>(date.year()));
  if (year.size() < 4 && year[0] != '-') year.insert(0, 4 - year.size(), '0');
  std::string text = year + "-" + twoDigits(static_cast<int>(static_cast<unsigned>(date.month()))) +
                     "-" + twoDigits(static_cast<int>(static_cast<unsigned>(date.day())));
  return rest == 0 ? text : text + " " + clockText(rest);
}

}  // namespace

std::string shortestDigits(double number) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), end};
}

// Of a formula's addresses column A is number 0.
std::string spreadsheetPlace(int row, int column) {
  return columnLetters(column - 1) + std::to_string(row);
}

std::vector<std::size_t> sheetsToRead(const CutBook& book) {
  std::vector<std::size_t> order;
  for (const bool hidden : {false, true})
    for (std::size_t sheet = 0; sheet < book.sheets.size(); ++sheet)
      if (book.sheets[sheet].hasCells && book.sheets[sheet].hidden == hidden)
        order.push_back(sheet);
  return order;
}

std::string CutTable::text(const CutField& field) const {
  if (field.text != noText) return texts[field.text];
  if (field.kind == CutKind::empty) return {};
  return field.kind == CutKind::date ? dateText(field.number) : shortestDigits(field.number);
}

std::string CutTable::place(int rowNumber, std::size_t column) const {
  if (namesApart) return "case " + std::to_string(rowNumber) + ", " + columns[column].name;
  return spreadsheetPlace(rowNumber, columns[column].number);
}

}  // namespace tolmer
