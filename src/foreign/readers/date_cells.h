// What dates and times of foreign files become: days since 1899-12-30, the time as a fraction.
#pragma once

#include <optional>
#include <string_view>

namespace tolmer {

// Of the number that a date is in a workbook. The first calendar of spreadsheets has a 29th of
// February 1900; the other one counts from 1904-01-01.
double daysOfSerial(double serial, bool from1904);

// "2024-03-05", "2024-03-05T14:30:00", with a fraction of a second or a Z: in days since
// 1899-12-30.
std::optional<double> daysOfIsoDate(std::string_view text);

// "PT14H30M00S" in days.
std::optional<double> daysOfIsoDuration(std::string_view text);

inline constexpr double secondsOfDay = 24 * 60 * 60;
// Where statistics programs begin to count.
inline constexpr double epochOfSav = -115859;  // 1582-10-14
inline constexpr double epochOfDta = 21916;    // 1960-01-01

}  // namespace tolmer
