#include "report/text_layout.h"

#include <algorithm>

namespace tolmer {
namespace {

struct CodeRange {
  char32_t first;
  char32_t last;
};

// The blocks that matter in names of people, places and things; The Unicode Standard, annex 11.
constexpr CodeRange wideRanges[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF},   {0xAC00, 0xD7A3},
                                    {0xF900, 0xFAFF}, {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
                                    {0xFFE0, 0xFFE6}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};
constexpr CodeRange markRanges[] = {{0x0300, 0x036F}, {0x200B, 0x200F}, {0x20D0, 0x20FF}};

template <std::size_t count>
bool isIn(const CodeRange (&ranges)[count], char32_t code) {
  return std::any_of(std::begin(ranges), std::end(ranges), [code](const CodeRange& range) {
    return code >= range.first && code <= range.last;
  });
}

// The character at `at`, which moves behind it. Text inside the program is valid UTF-8.
char32_t nextCode(std::string_view text, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(text[at++]);
  if (lead < 0x80) return lead;
  const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  char32_t code = lead & (0x3FU >> more);
  for (std::size_t i = 0; i < more && at < text.size(); ++i)
    code = (code << 6U) | (static_cast<unsigned char>(text[at++]) & 0x3FU);
  return code;
}

}  // namespace

std::size_t terminalWidth(std::string_view text) {
  std::size_t width = 0;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code = nextCode(text, at);
    width += isIn(markRanges, code) ? 0 : isIn(wideRanges, code) ? 2 : 1;
  }
  return width;
}

std::string padded(std::string_view text, std::size_t width, Align align) {
  const std::size_t own = terminalWidth(text);
  const std::size_t missing = width > own ? width - own : 0;
  const std::size_t before = align == Align::right    ? missing
                             : align == Align::centre ? missing / 2
                                                      : 0;
  return std::string(before, ' ') + std::string(text) + std::string(missing - before, ' ');
}

std::string wrapped(std::string_view text, std::size_t width, std::size_t indent) {
  std::string lines;
  std::size_t column = 0;
  while (!text.empty()) {
    const auto end = std::min(text.find_first_of(" \t\r\n"), text.size());
    const std::string_view word = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (word.empty()) continue;
    const std::size_t wide = terminalWidth(word);
    if (column == 0 || column + 1 + wide > width) {
      lines += (lines.empty() ? "" : "\n") + std::string(indent, ' ');
      column = indent;
    } else {
      lines += ' ';
      ++column;
    }
    lines += word;
    column += wide;
  }
  return lines;
}

std::string barText(int eighths) {
  static constexpr std::string_view parts[] = {"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
  std::string bar;
  for (int i = 0; i < eighths / 8; ++i) bar += "█";
  return bar + std::string(parts[eighths % 8]);
}

}  // namespace tolmer
