#include "foreign/readers/cell_formats.h"

#include <algorithm>
#include <string_view>

namespace tolmer {
namespace {

struct FormatLetters {
  bool date = false;   // y or d
  bool month = false;  // m: a month, or minutes beside hours
  bool clock = false;  // h or s
  bool percent = false;
  bool currency = false;
};

char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// [h] counts hours, [$€-407] is a sign of currency, [Red] and [>100] say nothing here.
void takeBracket(std::string_view content, FormatLetters& seen) {
  const auto isClock = [](char c) { return small(c) == 'h' || small(c) == 'm' || small(c) == 's'; };
  if (!content.empty() && std::all_of(content.begin(), content.end(), isClock)) seen.clock = true;
  if (content.starts_with('$') && content.size() > 1 && content[1] != '-') seen.currency = true;
}

void takeLetter(char c, FormatLetters& seen) {
  c = small(c);
  if (c == 'y' || c == 'd') seen.date = true;
  if (c == 'm') seen.month = true;
  if (c == 'h' || c == 's') seen.clock = true;
  if (c == '%') seen.percent = true;
  if (c == '$') seen.currency = true;
}

// The letters that stand for themselves are left out; so are all sections but the first.
FormatLetters lettersOf(std::string_view code) {
  FormatLetters seen;
  for (std::size_t i = 0; i < code.size() && code[i] != ';'; ++i) {
    const char c = code[i];
    if (c == '"' || c == '[') {
      const auto end = std::min(code.find(c == '"' ? '"' : ']', i + 1), code.size());
      if (c == '[') takeBracket(code.substr(i + 1, end - i - 1), seen);
      i = end;
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else {
      takeLetter(c, seen);
    }
  }
  for (const std::string_view sign : {"\u20AC", "\u00A3", "\u00A5"})
    if (code.find(sign) != code.npos) seen.currency = true;
  return seen;
}

bool isGeneral(std::string_view code) {
  constexpr std::string_view general = "general";
  return code.size() >= general.size() &&
         std::equal(general.begin(), general.end(), code.begin(),
                    [](char wanted, char c) { return small(c) == wanted; });
}

}  // namespace

CutKind kindOfFormat(std::string_view code) {
  if (isGeneral(code)) return CutKind::number;
  const FormatLetters seen = lettersOf(code);
  if (seen.date || (seen.month && !seen.clock)) return CutKind::date;
  if (seen.clock) return CutKind::time;
  if (seen.percent) return CutKind::percent;
  return seen.currency ? CutKind::currency : CutKind::number;
}

CutKind kindOfBuiltInFormat(int number) {
  const auto within = [number](int first, int last) { return number >= first && number <= last; };
  if (within(14, 17) || number == 22 || within(27, 31) || number == 36 || within(50, 58))
    return CutKind::date;
  if (within(18, 21) || within(32, 35) || within(45, 47)) return CutKind::time;
  if (within(9, 10)) return CutKind::percent;
  return within(5, 8) || number == 42 || number == 44 ? CutKind::currency : CutKind::number;
}

}  // namespace tolmer
