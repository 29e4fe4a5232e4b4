// What every program says of itself on its command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolmer {

// "2.0.0", as the top CMakeLists.txt has it.
const char* programVersion();
// "Tolmer 2.0.0".
std::string programAndVersion();

// The web site of the courseware, as the top CMakeLists.txt has it.
const char* webAddress();

// The day as "2026-11-22": today, or what the variable SOURCE_DATE_EPOCH says, so that a report can
// be made again byte for byte (reproducible-builds.org).
std::string today();

// The answer to --help (-h) or --version where one of them is among the words before "--": the
// usage, or one line with the program's name. nullopt where neither is asked for.
std::optional<std::string> answerAboutProgram(const std::vector<std::string>& words,
                                              std::string_view program, std::string_view usage);

}  // namespace tolmer
