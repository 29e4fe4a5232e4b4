#include "formula/comparison.h"

#include <array>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

#include "formula/scalar_functions.h"
#include "formula/sheet_names.h"

namespace tolmer {
namespace {

using Kind = CellValue::Kind;

std::optional<double> numberIn(std::string_view text) {
  const std::string folded = foldedName(text);
  std::string_view digits = folded;
  if (digits.starts_with('+')) digits.remove_prefix(1);
  // from_chars knows "inf" and "nan", too.
  if (digits.find_first_not_of("0123456789.e+-") != digits.npos) return std::nullopt;
  double number = 0;
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, number);
  if (read.ec != std::errc{} || read.ptr != end) return std::nullopt;
  return number;
}

std::optional<double> numberOf(const CellValue& value) {
  if (value.kind == Kind::number) return value.number;
  return value.kind == Kind::text ? numberIn(*value.text) : std::nullopt;
}

bool isEmpty(const CellValue& value) {
  return value.kind == Kind::empty || (value.kind == Kind::text && foldedName(*value.text).empty());
}

bool isSame(const CellValue& left, const CellValue& right) {
  if (isEmpty(left) || isEmpty(right)) return isEmpty(left) && isEmpty(right);
  if (left.kind == Kind::text && right.kind == Kind::text)
    return foldedName(*left.text) == foldedName(*right.text);
  const auto one = numberOf(left), other = numberOf(right);
  return one && other && areNearlyEqual(*one, *other);
}

// Behind one whole character of UTF-8.
std::size_t pastCharacter(std::string_view text, std::size_t at) {
  do {
    ++at;
  } while (at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80);
  return at;
}

// Where nothing fits, the last "*" takes one letter more; earlier ones need not be tried again.
bool matches(std::string_view text, std::string_view pattern) {
  std::size_t at = 0, of = 0, star = pattern.npos, taken = 0;
  while (at < text.size()) {
    if (of < pattern.size() && pattern[of] == '*') {
      star = ++of;
      taken = at;
    } else if (of < pattern.size() && pattern[of] == '?') {
      at = pastCharacter(text, at);
      ++of;
    } else if (of < pattern.size() && pattern[of] == text[at]) {
      ++at;
      ++of;
    } else if (star != pattern.npos) {
      at = taken = pastCharacter(text, taken);
      of = star;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', of) == pattern.npos;
}

}  // namespace

CellValue comparedWithText(char symbol, const CellValue& left, const CellValue& right) {
  if (symbol != '=' && symbol != 'n') return CellValue::ofError(FormulaError::value);
  return CellValue::ofNumber(isSame(left, right) == (symbol == '=') ? 1 : 0);
}

Criterion::Criterion(const CellValue& wanted) : number_(wanted.number) {
  if (wanted.kind == Kind::error) error_ = wanted.error;
  if (wanted.kind != Kind::text) return;
  constexpr std::array<std::pair<std::string_view, char>, 6> signs = {
      {{">=", 'g'}, {"<=", 'l'}, {"<>", 'n'}, {">", '>'}, {"<", '<'}, {"=", '='}}};
  pattern_ = foldedName(*wanted.text);
  for (const auto& [sign, symbol] : signs) {
    if (!pattern_.starts_with(sign)) continue;
    symbol_ = symbol;
    pattern_ = foldedName(std::string_view(pattern_).substr(sign.size()));
    break;
  }
  const auto number = numberIn(pattern_);
  isNumber_ = number.has_value();
  number_ = number.value_or(0);
  if (!isNumber_ && symbol_ != '=' && symbol_ != 'n') error_ = FormulaError::value;
}

bool Criterion::isMetBy(const CellValue& cell) const {
  const bool wantsSame = symbol_ == '=';
  if (cell.kind == Kind::error) return false;
  if (!isNumber_ && pattern_.empty()) return isEmpty(cell) == wantsSame;
  if (isEmpty(cell)) return false;
  if (isNumber_) {
    const auto number = numberOf(cell);
    return number ? binaryResult(symbol_, *number, number_).number != 0 : symbol_ == 'n';
  }
  return (cell.kind == Kind::text && matches(foldedName(*cell.text), pattern_)) == wantsSame;
}

}  // namespace tolmer
