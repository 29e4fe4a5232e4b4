#include "base/program_words.h"

#include <algorithm>

namespace tolmer {

const char* programVersion() { return TOLMER_VERSION; }

std::string programAndVersion() { return std::string("Tolmer ") + programVersion(); }

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
