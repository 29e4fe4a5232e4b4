// What every program says of itself on its command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolmer {

// "Tolmer 2.0", with the version that the top CMakeLists.txt has.
std::string programAndVersion();

// The answer to --help (-h) or --version where one of them is among the words before "--": the
// usage, or one line with the program's name. nullopt where neither is asked for.
std::optional<std::string> answerAboutProgram(const std::vector<std::string>& words,
                                              std::string_view program, std::string_view usage);

}  // namespace tolmer
