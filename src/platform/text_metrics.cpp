#include "platform/text_metrics.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "platform/font_advances.h"

namespace tolmer {
namespace {

// The code point that begins at `at`, which moves behind it. A byte that belongs to no valid
// sequence stands for itself, so that every text can be measured.
char32_t nextCodePoint(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  const unsigned lead = byte(at++);
  const std::size_t tail = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  char32_t code = tail == 0 ? lead : lead & (0x3FU >> tail);
  for (std::size_t i = 0; i < tail; ++i) {
    if ((byte(at + i) & 0xC0U) != 0x80U) return lead;
    code = code << 6U | (byte(at + i) & 0x3FU);
  }
  at += tail;
  return code;
}

bool isCombining(char32_t code) { return code >= 0x300 && code <= 0x36F; }

int tabulatedAdvance(const FontAdvances& table, char32_t code) {
  std::size_t offset = 0;
  for (const CodePointRange& range : advanceRanges) {
    if (code >= range.first && code <= range.last)
      return table.advances[offset + (code - range.first)];
    offset += range.last - range.first + 1;
  }
  return 0;
}

// In font units.
int advanceOf(const FontAdvances& table, char32_t code) {
  if (isCombining(code)) return 0;
  const int advance = tabulatedAdvance(table, code);
  return advance > 0 ? advance : tabulatedAdvance(table, U'x');
}

// Of the letter that begins at `at`, which moves behind it.
int nextAdvance(const FontAdvances& table, std::string_view text, std::size_t& at) {
  constexpr CodePointRange plain = advanceRanges.front();
  static_assert(plain.last <= 0x7F);
  const auto byte = static_cast<unsigned char>(text[at]);
  if (byte < plain.first || byte > plain.last) return advanceOf(table, nextCodePoint(text, at));
  ++at;
  const int advance = table.advances[byte - plain.first];
  return advance > 0 ? advance : advanceOf(table, byte);
}

double pixelsPerUnit(const Font& font, const FontAdvances& table) {
  return static_cast<double>(font.pixels) / table.unitsPerEm;
}

// Breaks one paragraph; all lengths in font units.
class LineBreaker {
 public:
  LineBreaker(const FontAdvances& table, double room, std::vector<std::string>& lines)
      : table_(table), room_(room), lines_(lines) {}

  void addWord(std::string_view word) {
    const long gap = advanceOf(table_, U' ');
    const long width = widthOf(word);
    if (begun_ && fits(gap + width))
      append(" ", gap);
    else if (begun_)
      endLine();
    begun_ = true;
    if (fits(width))
      append(word, width);
    else
      addByCharacters(word);
  }
  void endLine() {
    lines_.push_back(std::move(line_));
    line_.clear();
    width_ = 0;
    begun_ = false;
  }

 private:
  bool fits(long more) const { return static_cast<double>(width_ + more) <= room_; }
  long widthOf(std::string_view text) const {
    long width = 0;
    for (std::size_t at = 0; at < text.size();) width += nextAdvance(table_, text, at);
    return width;
  }
  void append(std::string_view text, long width) {
    line_ += text;
    width_ += width;
  }
  void addByCharacters(std::string_view word) {
    for (std::size_t at = 0; at < word.size();) {
      const std::size_t start = at;
      const long width = nextAdvance(table_, word, at);
      if (!line_.empty() && !fits(width)) endLine();
      append(word.substr(start, at - start), width);
    }
  }

  const FontAdvances& table_;
  double room_;
  std::vector<std::string>& lines_;
  std::string line_;
  long width_ = 0;
  bool begun_ = false;  // the line holds a word, be it the empty one before a blank
};

void wrapParagraph(const FontAdvances& table, std::string_view text, double room,
                   std::vector<std::string>& lines) {
  LineBreaker breaker(table, room, lines);
  while (true) {
    const std::size_t blank = std::min(text.find(' '), text.size());
    breaker.addWord(text.substr(0, blank));
    if (blank == text.size()) break;
    text.remove_prefix(blank + 1);
  }
  breaker.endLine();
}

}  // namespace

double textWidth(const Font& font, std::string_view text) {
  const FontAdvances& table = fontAdvances(font.family, font.bold);
  long units = 0;
  for (std::size_t at = 0; at < text.size();) units += nextAdvance(table, text, at);
  return static_cast<double>(units) * pixelsPerUnit(font, table);
}

double lineHeight(const Font& font) {
  const FontAdvances& table = fontAdvances(font.family, font.bold);
  const double scale = pixelsPerUnit(font, table);
  // Text layouts round a line's height up and put the rounded gap between lines.
  return std::ceil((table.ascent + table.descent) * scale) + std::round(table.lineGap * scale);
}

std::vector<std::string> wrapText(const Font& font, std::string_view text, double width) {
  const FontAdvances& table = fontAdvances(font.family, font.bold);
  const double room = width / pixelsPerUnit(font, table);
  std::vector<std::string> lines;
  while (true) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view paragraph = text.substr(0, end);
    if (paragraph.ends_with('\r')) paragraph.remove_suffix(1);
    wrapParagraph(table, paragraph, room, lines);
    if (end == text.size()) return lines;
    text.remove_prefix(end + 1);
  }
}

double wrappedHeight(const Font& font, std::string_view text, double width) {
  return static_cast<double>(wrapText(font, text, width).size()) * lineHeight(font);
}

std::string withoutMnemonic(std::string_view caption) {
  std::string text;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    text += caption[i];
  }
  return text;
}

int mnemonicOf(std::string_view caption) {
  const auto mark = caption.find('&');
  if (mark == caption.npos || mark + 1 == caption.size()) return 0;
  return std::toupper(static_cast<unsigned char>(caption[mark + 1]));
}

}  // namespace tolmer
