// Tables of tests as texts.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolmer::test {

// "key<between>text" again and again, divided by " | " or line ends.
inline std::vector<std::pair<std::string, std::string>> pairsIn(std::string_view all,
                                                                std::string_view between = " -> ") {
  std::vector<std::pair<std::string, std::string>> pairs;
  while (!all.empty()) {
    const std::string_view line = all.substr(0, all.find('\n'));
    const std::string_view one = line.substr(0, line.find(" | "));
    all.remove_prefix(std::min(all.size(), one.size() + (one == line ? 1 : 3)));
    const auto from = one.find_first_not_of(' '), cut = one.find(between);
    if (from == one.npos) continue;
    if (cut == one.npos) throw std::invalid_argument(std::string(one));
    pairs.emplace_back(one.substr(from, cut - from), one.substr(cut + between.size()));
  }
  return pairs;
}

}  // namespace tolmer::test
