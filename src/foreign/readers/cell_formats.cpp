#include "foreign/readers/cell_formats.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <string>

#include "textimport/typed_number.h"

namespace tolmer {
namespace {

struct FormatLetters {
  bool date = false;   // y or d
  bool month = false;  // m: a month, or minutes beside hours
  bool clock = false;  // h or s
  bool percent = false;
  bool currency = false;
};

char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// [h] counts hours, [$€-407] is a sign of currency, [Red] and [>100] say nothing here.
void takeBracket(std::string_view content, FormatLetters& seen) {
  const auto isClock = [](char c) { return small(c) == 'h' || small(c) == 'm' || small(c) == 's'; };
  if (!content.empty() && std::all_of(content.begin(), content.end(), isClock)) seen.clock = true;
  if (content.starts_with('$') && content.size() > 1 && content[1] != '-') seen.currency = true;
}

void takeLetter(char c, FormatLetters& seen) {
  c = small(c);
  if (c == 'y' || c == 'd') seen.date = true;
  if (c == 'm') seen.month = true;
  if (c == 'h' || c == 's') seen.clock = true;
  if (c == '%') seen.percent = true;
  if (c == '$') seen.currency = true;
}

// The letters that stand for themselves are left out; so are all sections but the first.
FormatLetters lettersOf(std::string_view code) {
  FormatLetters seen;
  for (std::size_t i = 0; i < code.size() && code[i] != ';'; ++i) {
    const char c = code[i];
    if (c == '"' || c == '[') {
      const auto end = std::min(code.find(c == '"' ? '"' : ']', i + 1), code.size());
      if (c == '[') takeBracket(code.substr(i + 1, end - i - 1), seen);
      i = end;
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else {
      takeLetter(c, seen);
    }
  }
  for (const std::string_view sign : {"\u20AC", "\u00A3", "\u00A5"})
    if (code.find(sign) != code.npos) seen.currency = true;
  return seen;
}

bool isGeneral(std::string_view code) {
  constexpr std::string_view general = "general";
  return code.size() >= general.size() &&
         std::equal(general.begin(), general.end(), code.begin(),
                    [](char wanted, char c) { return small(c) == wanted; });
}

// Takes a whole number and the character behind it off the front.
std::optional<int> takeWhole(std::string_view& text, char behind) {
  int number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(read.ptr - text.data()));
  if (behind == '\0') return number;
  if (!text.starts_with(behind)) return std::nullopt;
  text.remove_prefix(1);
  return number;
}

constexpr double minutesOfDay = 24 * 60;
constexpr double secondsOfDay = minutesOfDay * 60;

std::optional<double> daysOfClock(std::string_view text) {
  const auto hours = takeWhole(text, ':');
  const auto minutes = hours ? takeWhole(text, '\0') : std::nullopt;
  if (!minutes) return std::nullopt;
  double seconds = 0;
  if (text.starts_with(':')) {
    const auto read = readNumber(text.substr(1));
    if (read.kind != NumberReading::Kind::number) return std::nullopt;
    seconds = read.number;
  }
  return (*hours * 3600.0 + *minutes * 60.0 + seconds) / secondsOfDay;
}

}  // namespace

CutKind kindOfFormat(std::string_view code) {
  if (isGeneral(code)) return CutKind::number;
  const FormatLetters seen = lettersOf(code);
  if (seen.date || (seen.month && !seen.clock)) return CutKind::date;
  if (seen.clock) return CutKind::time;
  if (seen.percent) return CutKind::percent;
  return seen.currency ? CutKind::currency : CutKind::number;
}

CutKind kindOfBuiltInFormat(int number) {
  const auto within = [number](int first, int last) { return number >= first && number <= last; };
  if (within(14, 17) || number == 22 || within(27, 31) || number == 36 || within(50, 58))
    return CutKind::date;
  if (within(18, 21) || within(32, 35) || within(45, 47)) return CutKind::time;
  if (within(9, 10)) return CutKind::percent;
  return within(5, 8) || number == 42 || number == 44 ? CutKind::currency : CutKind::number;
}

std::optional<double> daysOfIsoDate(std::string_view text) {
  using namespace std::chrono;
  if (text.ends_with('Z')) text.remove_suffix(1);
  const auto year = takeWhole(text, '-');
  const auto month = year ? takeWhole(text, '-') : std::nullopt;
  const auto day = month ? takeWhole(text, '\0') : std::nullopt;
  constexpr int lastYear = 9999;
  if (!day || *year < -lastYear || *year > lastYear || *month < 1 || *day < 1) return std::nullopt;
  const year_month_day date(std::chrono::year(*year),
                            std::chrono::month(static_cast<unsigned>(*month)),
                            std::chrono::day(static_cast<unsigned>(*day)));
  if (!date.ok()) return std::nullopt;
  const auto whole =
      static_cast<double>((sys_days(date) - sys_days(std::chrono::year(1899) / 12 / 30)).count());
  if (text.empty()) return whole;
  if (text[0] != 'T' && text[0] != ' ') return std::nullopt;
  const auto clock = daysOfClock(text.substr(1));
  return clock ? std::optional(whole + *clock) : std::nullopt;
}

std::optional<double> daysOfIsoDuration(std::string_view text) {
  const bool isNegative = text.starts_with('-');
  if (isNegative) text.remove_prefix(1);
  if (!text.starts_with("PT")) return std::nullopt;
  text.remove_prefix(2);
  double seconds = 0;
  while (!text.empty()) {
    const auto unit = text.find_first_of("HMS");
    if (unit == text.npos) return std::nullopt;
    const auto read = readNumber(text.substr(0, unit));
    if (read.kind != NumberReading::Kind::number) return std::nullopt;
    seconds += read.number * (text[unit] == 'H' ? 3600 : text[unit] == 'M' ? 60 : 1);
    text.remove_prefix(unit + 1);
  }
  return (isNegative ? -seconds : seconds) / secondsOfDay;
}

}  // namespace tolmer
