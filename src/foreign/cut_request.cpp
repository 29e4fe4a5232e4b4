#include "foreign/cut_request.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace tolmer {
namespace {

bool takeCount(std::string_view text, int least, int& count) {
  const auto read = std::from_chars(text.data(), text.data() + text.size(), count);
  return read.ec == std::errc() && read.ptr == text.data() + text.size() && count >= least;
}

bool takeList(std::string_view list, std::vector<int>& numbers) {
  while (!list.empty()) {
    const auto end = std::min(list.find(','), list.size());
    if (!takeCount(list.substr(0, end), 1, numbers.emplace_back())) return false;
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return true;
}

bool takeOption(std::string_view name, std::string_view value, CutRequest& request) {
  if (name == "--sheet") {
    request.sheet = value;
    return true;
  }
  if (name == "--head") return takeCount(value, 0, request.head);
  if (name == "--rows") return takeCount(value, 1, request.rows);
  if (name == "--every") return takeCount(value, 1, request.every);
  if (name == "--only") return takeList(value, request.only);
  return name == "--columns" && takeList(value, request.columns);
}

void addList(std::vector<std::string>& words, const std::string& name,
             const std::vector<int>& numbers) {
  if (numbers.empty()) return;
  std::string list;
  for (const int number : numbers) list += (list.empty() ? "" : ",") + std::to_string(number);
  words.push_back(name + "=" + list);
}

}  // namespace

std::vector<std::string> wordsOf(const CutRequest& request) {
  std::vector<std::string> words{"--head=" + std::to_string(request.head),
                                 "--rows=" + std::to_string(request.rows),
                                 "--every=" + std::to_string(request.every)};
  if (!request.sheet.empty()) words.push_back("--sheet=" + request.sheet);
  addList(words, "--columns", request.columns);
  addList(words, "--only", request.only);
  return words;
}

Result<CutRequest> requestFromWords(const std::vector<std::string>& words) {
  CutRequest request;
  for (const std::string_view word : words) {
    const auto equals = std::min(word.find('='), word.size());
    const auto value = word.substr(std::min(equals + 1, word.size()));
    if (!takeOption(word.substr(0, equals), value, request))
      return Error{"", "there is no " + std::string(word)};
  }
  return request;
}

}  // namespace tolmer
