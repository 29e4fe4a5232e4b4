#include "foreign/date_text.h"

#include <chrono>
#include <cmath>

#include "foreign/cut_table.h"

namespace tolmer {
namespace {

std::string twoDigits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string clockText(int seconds) {
  return twoDigits(seconds / 3600) + ":" + twoDigits(seconds / 60 % 60) + ":" +
         twoDigits(seconds % 60);
}

// No calendar reaches further; the digits say more then.
constexpr double mostDays = 3e6;

}  // namespace

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

}  // namespace tolmer
