#include "help/help_topic.h"

#include <algorithm>
#include <charconv>

#include "help/help_text.h"

namespace tolmer {
namespace {

constexpr std::size_t longestName = 40;
constexpr std::size_t longestPage = std::size_t{1} << 20;  // bytes

bool isNamePart(char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-'; }

std::string place(const std::string& name, std::size_t line) {
  return name + ":" + std::to_string(line);
}

// An empty text is success.
std::string readAddresses(std::string_view value, HelpTopic& topic) {
  for (const std::string_view part : splitAt(value, ',')) {
    const auto address = parseHelpAddress(part);
    if (!address) return "\"" + std::string(part) + "\" is no help file with a number.";
    topic.opens.push_back(*address);
  }
  return {};
}

std::string readHeaderLine(std::string_view line, HelpTopic& topic) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos) return "A line before the text needs a key and a colon.";
  const std::string_view key = trimmedLine(line.substr(0, colon));
  const std::string_view value = trimmedLine(line.substr(colon + 1));
  if (key == "title") {
    topic.title = value;
  } else if (key == "keywords") {
    for (const std::string_view word : splitAt(value, ','))
      if (!word.empty()) topic.keywords.emplace_back(word);
  } else if (key == "opens") {
    return readAddresses(value, topic);
  } else {
    return "The key \"" + std::string(key) + "\" is unknown.";
  }
  return {};
}

}  // namespace

bool isTopicName(std::string_view name) {
  return !name.empty() && name.size() <= longestName && std::ranges::all_of(name, isNamePart);
}

std::optional<HelpAddress> parseHelpAddress(std::string_view text) {
  text = trimmedLine(text);
  const std::size_t blank = text.find(' ');
  const std::string_view file = text.substr(0, blank);
  if (!isTopicName(file)) return std::nullopt;
  if (blank == std::string_view::npos) return HelpAddress{std::string(file), 0};
  const std::string_view digits = trimmedLine(text.substr(blank));
  long number = 0;
  const auto [end, failed] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (failed != std::errc{} || end != digits.data() + digits.size() || number <= 0)
    return std::nullopt;
  return HelpAddress{std::string(file), number};
}

Result<HelpTopic> readTopic(const std::string& name, std::string_view text) {
  if (text.size() > longestPage) return Error{name, "The page is too long."};
  HelpTopic topic{.name = name};
  std::size_t lineNumber = 0;
  while (!text.empty()) {
    ++lineNumber;
    const std::size_t end = text.find('\n');
    const std::string_view line = trimmedLine(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.empty()) break;
    if (const std::string fault = readHeaderLine(line, topic); !fault.empty())
      return Error{place(name, lineNumber), fault};
  }
  if (topic.title.empty()) return Error{name, "The page has no title."};
  topic.body = text;
  return topic;
}

}  // namespace tolmer
