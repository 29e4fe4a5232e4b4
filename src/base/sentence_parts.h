// What sentences of the program are made of: counts, places and lists in words.
#pragma once

#include <span>
#include <string>
#include <vector>

namespace tolmer {

// "1 case", "2 cases".
std::string counted(int count, const std::string& noun);
// "first", "second" up to "tenth", then "11th", "22nd". From 1.
std::string ordinal(int place);
// "X1", "X1 and X2", "X1, X2 and X3", "X1, X2, X3 and 4 more".
std::string listed(const std::vector<std::string>& words);
// "case 21", "case 5 (Ohio)", "cases 3, 5 and 21". Cases count from 1, in any order; `labels` are
// those of all cases, empty where the data have none.
std::string casesInWords(std::span<const int> cases, std::span<const std::string> labels = {});

}  // namespace tolmer
