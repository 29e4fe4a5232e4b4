#include "foreign/readers/date_cells.h"

#include <charconv>
#include <chrono>
#include <string>

#include "textimport/typed_number.h"

namespace tolmer {
namespace {

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

double daysOfSerial(double serial, bool from1904) {
  constexpr double daysTo1904 = 1462;
  constexpr double firstOfMarch1900 = 61;
  if (from1904) return serial + daysTo1904;
  return serial < firstOfMarch1900 ? serial + 1 : serial;
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
