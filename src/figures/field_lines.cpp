#include "figures/field_lines.h"

#include <algorithm>

#include "base/trimmed.h"

namespace tolmer {
namespace {

std::vector<std::string> fieldsOf(std::string_view line) {
  std::vector<std::string> fields;
  for (std::size_t begin = 0; begin <= line.size();) {
    const std::size_t end = std::min(line.find('|', begin), line.size());
    fields.emplace_back(trimmedLine(line.substr(begin, end - begin)));
    begin = end + 1;
  }
  return fields;
}

}  // namespace

std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    if (end > begin) words.emplace_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return words;
}

std::string lineOf(const std::string& fileName, const FieldLine& entry) {
  return fileName + ":" + std::to_string(entry.line);
}

Result<std::vector<FieldLine>> fieldLines(const std::string& fileName, std::string_view text,
                                          std::size_t count) {
  std::vector<FieldLine> entries;
  int number = 0;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string_view line = trimmedLine(text.substr(begin, end - begin));
    begin = end + 1;
    ++number;
    if (line.empty() || line.starts_with('#')) continue;
    FieldLine entry{number, fieldsOf(line)};
    if (entry.fields.size() != count)
      return Error{lineOf(fileName, entry), "there are " + std::to_string(entry.fields.size()) +
                                                " fields where there must be " +
                                                std::to_string(count)};
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace tolmer
