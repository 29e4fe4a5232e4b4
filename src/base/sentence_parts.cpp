#include "base/sentence_parts.h"

#include <array>
#include <cstddef>
#include <set>

namespace tolmer {

std::string counted(int count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

std::string ordinal(int place) {
  static constexpr std::array words = {"first", "second",  "third",  "fourth", "fifth",
                                       "sixth", "seventh", "eighth", "ninth",  "tenth"};
  if (place <= static_cast<int>(words.size())) return words[static_cast<std::size_t>(place) - 1];
  const int last = place / 10 % 10 == 1 ? 0 : place % 10;
  return std::to_string(place) + (last == 1 ? "st" : last == 2 ? "nd" : last == 3 ? "rd" : "th");
}

std::string listed(const std::vector<std::string>& words) {
  constexpr std::size_t most = 4;
  const std::size_t named = words.size() > most ? most - 1 : words.size();
  std::string text;
  for (std::size_t i = 0; i < named; ++i) {
    const bool isLast = i + 1 == words.size();
    text += (i == 0 ? "" : isLast ? " and " : ", ") + words[i];
  }
  if (named < words.size()) text += " and " + std::to_string(words.size() - named) + " more";
  return text;
}

std::string casesInWords(std::span<const int> cases, std::span<const std::string> labels) {
  std::vector<std::string> words;
  for (const int number : std::set<int>(cases.begin(), cases.end())) {
    const auto at = static_cast<std::size_t>(number) - 1;
    const bool isLabelled = at < labels.size() && !labels[at].empty();
    words.push_back(std::to_string(number) + (isLabelled ? " (" + labels[at] + ")" : ""));
  }
  return (words.size() == 1 ? "case " : "cases ") + listed(words);
}

}  // namespace tolmer
