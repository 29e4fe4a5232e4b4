#include "textimport/number_shape.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "base/trimmed.h"
#include "textimport/typed_number.h"

namespace tolmer {
namespace {

struct Spelling {
  std::string_view seen;
  std::string_view plain;
};

// UTF-8 of true minus and of the blanks that word processors and spreadsheets put into numbers.
constexpr std::array<Spelling, 6> spellings{{{"\xE2\x88\x92", "-"},
                                             {"\xC2\xA0", " "},
                                             {"\xE2\x80\xAF", " "},
                                             {"\xE2\x80\x89", " "},
                                             {"\xE2\x80\x87", " "},
                                             {"\xE2\x80\x99", "'"}}};
constexpr std::array<std::string_view, 4> currencies{"$", "\xE2\x82\xAC", "\xC2\xA3", "\xC2\xA5"};

// A number in its parts, blanks and signs taken off.
struct Parts {
  bool negative = false;
  bool groupedByBlanks = false;
  bool percent = false;
  bool currency = false;
  bool bracketed = false;
  std::string mantissa;  // digits, points and commas
  std::string exponent;  // "e-5" or empty
};

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isMark(char c) { return c == '.' || c == ','; }
bool isGap(char c) { return c == ' ' || c == '\''; }
bool belongsToNumber(char c) { return isDigit(c) || isMark(c) || isGap(c); }
bool allDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), isDigit); }

std::string inPlainSpelling(std::string_view field) {
  std::string plain;
  while (!field.empty()) {
    const auto found = std::find_if(
        spellings.begin(), spellings.end(),
        [field](const Spelling& spelling) { return field.starts_with(spelling.seen); });
    plain += found == spellings.end() ? field.substr(0, 1) : found->plain;
    field.remove_prefix(found == spellings.end() ? 1 : found->seen.size());
  }
  return plain;
}

bool takeFront(std::string_view& text, std::string_view what) {
  if (!text.starts_with(what)) return false;
  text = trimmed(text.substr(what.size()));
  return true;
}

bool takeBack(std::string_view& text, std::string_view what) {
  if (!text.ends_with(what)) return false;
  text = trimmed(text.substr(0, text.size() - what.size()));
  return true;
}

void takeSigns(std::string_view& text, Parts& parts) {
  if (text.empty() || (isDigit(text.front()) && isDigit(text.back()))) return;  // as most are
  const auto takeSign = [&] {
    if (takeFront(text, "-")) {
      parts.negative = true;
      return true;
    }
    return takeFront(text, "+");
  };
  const bool isBracketed = text.starts_with('(') && takeBack(text, ")");
  if (isBracketed) takeFront(text, "(");
  parts.bracketed = parts.negative = isBracketed;
  bool sign = isBracketed || takeSign();
  parts.percent = takeBack(text, "%");
  for (const auto currency : currencies)
    if (takeFront(text, currency) || takeBack(text, currency)) parts.currency = true;
  if (!sign) takeSign();
}

// Blanks and apostrophes stand before groups of three digits, or it is no number; and "2019 500" or
// "0 250" are two.
bool takeBlanks(std::string& digits, bool& grouped) {
  const auto first =
      static_cast<std::size_t>(std::find_if(digits.begin(), digits.end(), isGap) - digits.begin());
  if (first == digits.size()) return true;
  if (allDigits(std::string_view(digits).substr(0, first)) && (first > 3 || digits[0] == '0'))
    return false;
  std::string closed;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (!isGap(digits[i])) {
      closed += digits[i];
      continue;
    }
    const std::string_view after = std::string_view(digits).substr(i + 1);
    const bool divides = i > 0 && isDigit(digits[i - 1]) && after.size() >= 3 &&
                         allDigits(after.substr(0, 3)) && (after.size() == 3 || !isDigit(after[3]));
    if (!divides) return false;
    grouped = true;
  }
  digits = closed;
  return true;
}

std::optional<Parts> partsOf(std::string_view field) {
  std::string plain;
  std::string_view text = trimmed(field);
  if (std::any_of(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; })) {
    plain = inPlainSpelling(text);
    text = trimmed(plain);
  }
  Parts parts;
  takeSigns(text, parts);
  const auto exponent = std::min(text.find('e'), text.find('E'));
  parts.mantissa = text.substr(0, exponent);
  if (exponent != text.npos) parts.exponent = text.substr(exponent);
  if (!std::all_of(parts.mantissa.begin(), parts.mantissa.end(), belongsToNumber) ||
      std::none_of(parts.mantissa.begin(), parts.mantissa.end(), isDigit) ||
      !takeBlanks(parts.mantissa, parts.groupedByBlanks))
    return std::nullopt;
  // The exponent's form is tried with the simplest number.
  if (!parts.exponent.empty() &&
      readNumber("0" + parts.exponent).kind != NumberReading::Kind::number)
    return std::nullopt;
  return parts;
}

// One to three digits, then groups of three divided by the mark.
bool isGrouped(std::string_view digits, char mark) {
  const auto first = std::min(digits.find(mark), digits.size());
  if (first < 1 || first > 3 || !allDigits(digits.substr(0, first))) return false;
  for (digits.remove_prefix(first); !digits.empty(); digits.remove_prefix(4))
    if (digits.size() < 4 || digits[0] != mark || !allDigits(digits.substr(1, 3))) return false;
  return true;
}

// With this decimal mark and the other one between thousands, the digits with a point at most;
// empty where it does not fit.
std::string digitsWith(const std::string& mantissa, char decimal) {
  const char other = decimal == '.' ? ',' : '.';
  const auto at = std::min(mantissa.find(decimal), mantissa.size());
  const std::string_view all = mantissa;
  const auto whole = all.substr(0, at);
  const auto fraction = all.substr(std::min(at + 1, all.size()));
  if (!allDigits(fraction) || (!allDigits(whole) && !isGrouped(whole, other))) return {};
  std::string digits;
  std::copy_if(whole.begin(), whole.end(), std::back_inserter(digits), isDigit);
  return at == all.size() ? digits : digits + "." + std::string(fraction);
}

// 1.234 and its like: what fits both as decimals and as thousands.
bool fitsBoth(const Parts& parts, char mark) {
  return parts.exponent.empty() && !parts.groupedByBlanks && parts.mantissa.front() != '0' &&
         isGrouped(parts.mantissa, mark) &&
         std::count(parts.mantissa.begin(), parts.mantissa.end(), mark) == 1;
}

NumberShape::Marks marksOf(const Parts& parts) {
  using Marks = NumberShape::Marks;
  const auto points = std::count(parts.mantissa.begin(), parts.mantissa.end(), '.');
  const auto commas = std::count(parts.mantissa.begin(), parts.mantissa.end(), ',');
  if (points + commas == 0) return Marks::plain;
  if (fitsBoth(parts, '.')) return Marks::eitherPoint;
  if (fitsBoth(parts, ',')) return Marks::eitherComma;
  if (points + commas == 1) return points == 1 ? Marks::point : Marks::comma;
  if (!digitsWith(parts.mantissa, '.').empty()) return Marks::point;
  if (!digitsWith(parts.mantissa, ',').empty()) return Marks::comma;
  return Marks::noNumber;
}

// Only an exponent or a great many digits can make it so.
bool isTooLarge(const Parts& parts) {
  constexpr std::size_t surelyFits = 300;
  if (parts.exponent.empty() && parts.mantissa.size() < surelyFits) return false;
  for (const char mark : {'.', ','})
    if (const auto digits = digitsWith(parts.mantissa, mark); !digits.empty())
      return readNumber(digits + parts.exponent).kind == NumberReading::Kind::tooLarge;
  return false;
}

}  // namespace

NumberShape numberShape(std::string_view field) {
  const auto parts = partsOf(field);
  if (!parts || isTooLarge(*parts)) return {};
  return {marksOf(*parts),
          std::count_if(parts->mantissa.begin(), parts->mantissa.end(), isMark) > 1,
          parts->groupedByBlanks,
          parts->percent,
          parts->currency,
          parts->bracketed};
}

std::optional<double> fieldNumber(std::string_view field, char decimalMark, Percent percent) {
  const auto parts = partsOf(field);
  if (!parts) return std::nullopt;
  const std::string digits = digitsWith(parts->mantissa, decimalMark);
  if (digits.empty()) return std::nullopt;
  const bool divided = parts->percent && percent == Percent::divided;
  // A division would leave 12.3% a little off 0.123.
  const std::string exponent = divided && parts->exponent.empty() ? "e-2" : parts->exponent;
  const auto read = readNumber((parts->negative ? "-" : "") + digits + exponent);
  if (read.kind != NumberReading::Kind::number) return std::nullopt;
  return divided && !parts->exponent.empty() ? read.number / 100 : read.number;
}

std::optional<double> dayOfDate(std::string_view field) {
  using namespace std::chrono;
  if (field.size() != 10 || field[4] != '-' || field[7] != '-') return std::nullopt;
  int parts[] = {0, 0, 0};
  constexpr std::size_t begins[] = {0, 5, 8};
  for (int part = 0; part < 3; ++part)
    for (std::size_t at = begins[part]; at < field.size() && field[at] != '-'; ++at) {
      if (field[at] < '0' || field[at] > '9') return std::nullopt;
      parts[part] = 10 * parts[part] + (field[at] - '0');
    }
  const year_month_day date(year(parts[0]), month(static_cast<unsigned>(parts[1])),
                            day(static_cast<unsigned>(parts[2])));
  if (!date.ok()) return std::nullopt;
  return (sys_days(date) - sys_days(year(1899) / 12 / 30)).count();
}

}  // namespace tolmer
