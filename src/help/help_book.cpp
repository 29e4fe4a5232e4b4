#include "help/help_book.h"

#include <algorithm>
#include <set>

#include "base/file_io.h"
#include "base/text_encoding.h"
#include "help/help_text.h"

namespace tolmer {
namespace {

constexpr const char* contentsFile = "contents.txt";
constexpr std::size_t mostTopics = 1000;
constexpr int deepestLevel = 8;
constexpr std::size_t blanksOfALevel = 2;

struct ContentsLine {
  std::string name;
  int level = 0;
};

// Adds the line's page; an empty text is success.
std::string readContentsLine(std::string_view line, std::vector<ContentsLine>& contents) {
  const std::size_t blanks = line.find_first_not_of(' ');
  const std::string_view name = trimmedLine(line);
  if (!isTopicName(name)) return "\"" + std::string(name.substr(0, 60)) + "\" is no page's name.";
  const int level = static_cast<int>(std::min<std::size_t>(blanks / blanksOfALevel, 100));
  const int deepest = contents.empty() ? 0 : contents.back().level + 1;
  if (blanks % blanksOfALevel != 0 || level > std::min(deepest, deepestLevel))
    return "The line begins with " + std::to_string(blanks) + " blanks.";
  if (contents.size() == mostTopics) return "There are too many pages.";
  contents.push_back({std::string(name), level});
  return {};
}

Result<std::vector<ContentsLine>> readContents(const std::string& file, std::string_view text) {
  std::vector<ContentsLine> contents;
  std::size_t number = 0;
  for (const std::string_view line : linesOf(text)) {
    ++number;
    if (trimmedLine(line).empty() || line.starts_with('#')) continue;
    if (const std::string fault = readContentsLine(line, contents); !fault.empty())
      return Error{file + ":" + std::to_string(number), fault};
  }
  if (contents.empty()) return Error{file, "It names no page."};
  std::set<std::string> names;
  for (const ContentsLine& line : contents)
    if (!names.insert(line.name).second)
      return Error{file, "The page \"" + line.name + "\" stands in it twice."};
  return contents;
}

Result<HelpTopic> readTopicFile(const std::string& folder, const std::string& name) {
  auto bytes = readWholeFile(folder + "/" + name + ".txt");
  if (!bytes) return bytes.error();
  return readTopic(name, utf8FromFile(std::move(*bytes)));
}

HelpBook bookAbout(const Error& error) {
  return HelpBook({{.name = "missing",
                    .title = "The help cannot be shown",
                    .body = "Its pages belong into the program's folder and could not be read "
                            "there. Installing the program anew should bring them back.\n\n" +
                            error.message()}});
}

}  // namespace

std::optional<std::size_t> HelpBook::find(const HelpAddress& address) const {
  for (std::size_t i = 0; i < topics_.size(); ++i)
    if (std::ranges::find(topics_[i].opens, address) != topics_[i].opens.end()) return i;
  return std::nullopt;
}

Result<HelpBook> readHelpBook(const std::string& folder) {
  const std::string file = folder + "/" + contentsFile;
  auto bytes = readWholeFile(file);
  if (!bytes) return bytes.error();
  const auto contents = readContents(file, utf8FromFile(std::move(*bytes)));
  if (!contents) return contents.error();
  std::vector<HelpTopic> topics;
  std::vector<Error> faults;
  for (const ContentsLine& line : *contents) {
    auto topic = readTopicFile(folder, line.name);
    if (!topic) {
      faults.push_back(topic.error());
      topic = HelpTopic{.name = line.name, .title = line.name, .body = topic.error().message()};
    }
    topic->level = line.level;
    topics.push_back(std::move(*topic));
  }
  HelpBook book(std::move(topics));
  book.faults = std::move(faults);
  return book;
}

HelpBook helpBookIn(const std::string& folder) {
  auto book = readHelpBook(folder);
  return book ? std::move(*book) : bookAbout(book.error());
}

}  // namespace tolmer
