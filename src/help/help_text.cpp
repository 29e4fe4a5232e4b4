#include "help/help_text.h"

namespace tolmer {
namespace {

bool isWordPart(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         static_cast<unsigned char>(c) >= 0x80;
}

std::vector<std::string_view> cut(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

}  // namespace

std::vector<std::string_view> splitAt(std::string_view text, char separator) {
  auto parts = cut(text, separator);
  for (auto& part : parts) part = trimmedLine(part);
  return parts;
}

std::vector<std::string_view> linesOf(std::string_view text) {
  auto lines = cut(text, '\n');
  for (auto& line : lines)
    if (line.ends_with('\r')) line.remove_suffix(1);
  return lines;
}

std::string lowered(std::string_view text) {
  std::string small(text);
  for (char& c : small)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return small;
}

std::vector<std::string> wordsOf(std::string_view text) {
  std::vector<std::string> words;
  bool inWord = false;
  for (const char c : text) {
    const bool part = isWordPart(c);
    if (part && !inWord) words.emplace_back();
    if (part) words.back() += c;
    inWord = part;
  }
  for (std::string& word : words) word = lowered(word);
  return words;
}

}  // namespace tolmer
