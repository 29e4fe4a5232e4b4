#include "bookcompiler/source_lines.h"

#include <algorithm>

#include "base/text_encoding.h"
#include "base/trimmed.h"

namespace tolmer {
namespace {

constexpr std::string_view blanks = " \t";

// The first line of `rest`, which loses it; line ends are LF, CR LF or CR.
std::string_view takeLine(std::string_view& rest) {
  const auto end = std::min(rest.find_first_of("\r\n"), rest.size());
  const std::string_view line = rest.substr(0, end);
  const bool two = rest.substr(end).starts_with("\r\n");
  rest.remove_prefix(std::min(end + (two ? 2 : 1), rest.size()));
  return line;
}

std::vector<std::string> words(std::string_view head) {
  std::vector<std::string> found;
  while (!(head = trimmed(head)).empty()) {
    const auto end = std::min(head.find_first_of(blanks), head.size());
    found.emplace_back(head.substr(0, end));
    head.remove_prefix(end);
  }
  return found;
}

bool isTwoWordKeyword(const std::string& first, const std::string& second) {
  return (first == "default" && (second == "scenario" || second == "database")) ||
         (first == "column" && second == "heading");
}

void checkCharacters(int line, std::string_view text, Complaints& complaints) {
  if (!isUtf8(text)) return complaints.error(line, "this line is not UTF-8 text");
  if (text.find('"') != std::string_view::npos)
    complaints.error(line, "a double quote cannot be written to the notebook; use ' or “ ”");
  const bool hasControl = std::any_of(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) < 0x20 && c != '\t') || c == 0x7F;
  });
  if (hasControl) complaints.error(line, "a control character stands in this line");
}

SourceEntry entryOf(int line, std::string_view content, std::size_t colon) {
  SourceEntry entry;
  entry.line = line;
  entry.modifiers = words(content.substr(0, colon));
  entry.text = trimmed(content.substr(colon + 1));
  auto& parts = entry.modifiers;
  if (parts.size() > 1 && isTwoWordKeyword(parts[0], parts[1])) {
    parts[0] += " " + parts[1];
    parts.erase(parts.begin() + 1);
  }
  if (!parts.empty()) {
    entry.keyword = parts.front();
    parts.erase(parts.begin());
  }
  return entry;
}

void goOn(int line, std::string_view text, SourceEntry& entry, Complaints& complaints) {
  const bool newLine = text.starts_with('|');
  if (newLine && entry.keyword != "text" && entry.keyword != "description")
    complaints.error(line, "only a text and a description may have lines of their own");
  if (newLine) text = trimmed(text.substr(1));
  if (!entry.text.empty()) entry.text += newLine ? '\n' : ' ';
  entry.text += text;
}

}  // namespace

std::vector<Complaint> Complaints::sorted() const {
  std::vector<Complaint> complaints = all_;
  std::stable_sort(complaints.begin(), complaints.end(),
                   [](const Complaint& a, const Complaint& b) { return a.line < b.line; });
  return complaints;
}

std::vector<SourceEntry> parseSource(std::string_view bytes, Complaints& complaints) {
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  std::vector<SourceEntry> entries;
  for (int line = 1; !bytes.empty(); ++line) {
    const std::string_view content = takeLine(bytes);
    const std::string_view text = trimmed(content);
    if (text.empty() || content.front() == '#') continue;
    checkCharacters(line, content, complaints);
    const bool goesOn = blanks.find(content.front()) != std::string_view::npos;
    const auto colon = content.find(':');
    if (goesOn && entries.empty())
      complaints.error(line, "this line goes on with a text, but there is none before it");
    else if (goesOn)
      goOn(line, text, entries.back(), complaints);
    else if (colon == std::string_view::npos)
      complaints.error(line,
                       "a keyword and a colon were expected, or a blank before a text that "
                       "goes on");
    else
      entries.push_back(entryOf(line, content, colon));
  }
  return entries;
}

}  // namespace tolmer
