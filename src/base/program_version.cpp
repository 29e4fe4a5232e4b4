#include "base/program_version.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <ctime>

#include "system/running_program.h"

namespace tolmer {
namespace {

std::string twoDigits(int number) {
  return {static_cast<char>('0' + number / 10 % 10), static_cast<char>('0' + number % 10)};
}

}  // namespace

const char* programVersion() { return TOLMER_VERSION; }

std::string programAndVersion() { return std::string("Tolmer ") + programVersion(); }

const char* webAddress() { return TOLMER_WEB_ADDRESS; }

std::string today() {
  std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  const char* fixed = std::getenv("SOURCE_DATE_EPOCH");
  const std::string_view seconds = fixed ? fixed : "";
  const bool isFixed =
      !seconds.empty() &&
      std::from_chars(seconds.data(), seconds.data() + seconds.size(), now).ec == std::errc();
  const std::tm day = isFixed ? host::universalTime(now) : host::localTime(now);
  if (day.tm_mday == 0) return {};
  return std::to_string(day.tm_year + 1900) + "-" + twoDigits(day.tm_mon + 1) + "-" +
         twoDigits(day.tm_mday);
}

std::optional<std::string> answerAboutProgram(const std::vector<std::string>& words,
                                              std::string_view program, std::string_view usage) {
  const auto end = std::find(words.begin(), words.end(), "--");
  const auto asked = std::find_if(words.begin(), end, [](std::string_view word) {
    return word == "--help" || word == "-h" || word == "--version";
  });
  if (asked == end) return std::nullopt;
  if (*asked != "--version") return std::string(usage);
  return std::string(program) + " (" + programAndVersion() + ")\n";
}

}  // namespace tolmer
