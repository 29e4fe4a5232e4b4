// What divides the fields of a text: guessed, and asked about where it is in doubt.
#include <algorithm>

#include "textimport/import_guesses.h"

namespace tolmer {
namespace {

std::string separatorName(char separator) {
  switch (separator) {
    case '\t':
      return "Tabs";
    case ';':
      return "Semicolons";
    case ',':
      return "Commas";
    case ' ':
      return "Blanks";
    default:
      return "Nothing: it is one column";
  }
}

// Blank lines apart.
bool hasInEveryLine(std::string_view text, char separator) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    if (!line.empty() && line.find(separator) == line.npos) return false;
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
  return true;
}

// "1,5" in every line with a comma: one number with a decimal comma, or two numbers.
bool couldBeDecimals(const std::string& text, TextOrigin origin) {
  constexpr std::size_t beginning = 20000;  // of a long text it mostly settles it
  if (text.size() > beginning) {
    const auto first = textTable(text.substr(0, beginning), ',', origin);
    if (first && first->columns() > 3) return false;  // a title may be cut in two
  }
  const auto table = textTable(text, ',', origin);
  if (!table || table->columns() != 2) return false;
  for (std::size_t row = 0; row < table->rows.size(); ++row)
    for (std::size_t column = 0; column < 2; ++column)
      if (numberShape(table->field(row, column)).marks != NumberShape::Marks::plain) return false;
  return true;
}

}  // namespace

std::optional<char> ImportFindings::chooseSeparator(const std::string& text) {
  if (target_.hints.separator) return target_.hints.separator;
  return target_.origin == TextOrigin::clipboard ? separatorOfClipboard(text)
                                                 : separatorOfFile(text);
}

// Spreadsheets put tabs on the clipboard; anything else there is doubtful, but for a single line,
// which is the text of a cell.
std::optional<char> ImportFindings::separatorOfClipboard(const std::string& text) {
  if (text.find('\t') != std::string::npos) return '\t';
  const auto lastLine = text.find_last_not_of("\r\n");
  if (lastLine == std::string::npos || text.find_first_of("\r\n") > lastLine) return noSeparator;
  const auto even = evenSeparators(text, target_.origin);
  if (even.empty())
    return hasInEveryLine(text, ';') ? askSeparator({';'}, std::nullopt) : noSeparator;
  const bool clear = even.size() == 1 && even[0] != ' ' &&
                     !(even[0] == ',' && couldBeDecimals(text, target_.origin));
  return askSeparator(even, clear ? std::optional(0) : std::nullopt);
}

std::optional<char> ImportFindings::separatorOfFile(const std::string& text) {
  auto even = evenSeparators(text, target_.origin);
  if (even == std::vector{' '}) return askSeparator(even, std::nullopt);
  std::erase(even, ' ');
  if (!even.empty() && even[0] == '\t') return '\t';
  if (even.size() == 1 && !(even[0] == ',' && couldBeDecimals(text, target_.origin))) {
    notes_.push_back("Fields are divided by " +
                     std::string(even[0] == ',' ? "commas." : "semicolons."));
    return even[0];
  }
  if (!even.empty()) return askSeparator(even, even.size() > 1 ? std::optional(0) : std::nullopt);
  std::vector<char> seen;
  const std::string_view firstLine = std::string_view(text).substr(0, text.find_first_of("\r\n"));
  for (const char separator : {'\t', ';', ','})
    if (firstLine.find(separator) != firstLine.npos) seen.push_back(separator);
  if (seen.empty()) return noSeparator;
  return askSeparator(seen, seen.size() == 1 ? std::optional(0) : std::nullopt);
}

std::optional<char> ImportFindings::askSeparator(const std::vector<char>& candidates,
                                                 std::optional<int> preset) {
  std::vector<std::string> choices;
  choices.reserve(candidates.size() + 1);
  for (const char separator : candidates) choices.push_back(separatorName(separator));
  choices.push_back(separatorName(noSeparator));
  const auto chosen = ask(ImportDoubt::separator, "What divides the columns?", choices, preset);
  if (!chosen) return std::nullopt;
  const auto index = static_cast<std::size_t>(*chosen);
  return index < candidates.size() ? candidates[index] : noSeparator;
}

}  // namespace tolmer
