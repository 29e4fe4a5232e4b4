#include "report/text_layout.h"

#include <algorithm>
#include <vector>

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

// What stands behind a cell for its colour.
std::string_view markOf(const DisplayCell& cell) {
  if (cell.back == colours::cyan) return "**";
  if (cell.back == colours::green) return "*";
  if (cell.back == colours::red) return "!";
  return cell.isMarked() ? "+" : "";
}

std::string_view escapeOf(const DisplayCell& cell) {
  if (cell.back == colours::cyan) return "\x1b[46;30m";
  if (cell.back == colours::green) return "\x1b[42;30m";
  if (cell.back == colours::red) return "\x1b[41;97m";
  return "";
}

bool isBlank(const std::vector<DisplayCell>& row) {
  return std::all_of(row.begin(), row.end(),
                     [](const DisplayCell& cell) { return cell.text.empty(); });
}

// The key to the colours: texts on colours behind an empty first cell.
bool isLegend(const std::vector<DisplayCell>& row) {
  return !row.empty() && row.front().text.empty() &&
         std::any_of(row.begin(), row.end(),
                     [](const DisplayCell& cell) { return cell.isMarked(); });
}

struct Column {
  std::size_t text = 0;
  std::size_t mark = 0;
};

std::vector<Column> columnsOf(const DisplayTable& table) {
  std::vector<Column> columns;
  for (const auto& row : table.rows) {
    columns.resize(std::max(columns.size(), row.size()));
    if (isLegend(row)) continue;
    for (std::size_t i = 0; i < row.size(); ++i) {
      columns[i].text = std::max(columns[i].text, terminalWidth(row[i].text));
      columns[i].mark = std::max(columns[i].mark, markOf(row[i]).size());
    }
  }
  return columns;
}

std::string cellText(const DisplayCell& cell, Align align, const Column& column, bool coloured) {
  std::string text = padded(cell.text, column.text, align);
  if (coloured && cell.isMarked()) text = std::string(escapeOf(cell)) + text + "\x1b[0m";
  if (column.mark > 0) text += " " + padded(markOf(cell), column.mark, Align::left);
  return text;
}

std::string withoutTrailingBlanks(std::string text) {
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

// Heads stand over their columns as the cells below them do.
std::string rowText(const std::vector<DisplayCell>& row, const std::vector<DisplayCell>& alignedAs,
                    const std::vector<Column>& columns, bool coloured) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i)
    line += (i > 0 ? "  " : "") + cellText(row[i], alignedAs[i].align, columns[i], coloured);
  return line;
}

std::string legendText(const std::vector<DisplayCell>& row, bool coloured) {
  std::string line;
  for (const DisplayCell& cell : row)
    if (cell.isMarked())
      line += (line.empty() ? "" : "   ") + std::string(markOf(cell)) + " " +
              (coloured ? std::string(escapeOf(cell)) + cell.text + "\x1b[0m" : cell.text);
  return line;
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
    const auto end = std::min(text.find(' '), text.size());
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

std::string tableText(const DisplayTable& table, bool coloured) {
  const std::vector<Column> columns = columnsOf(table);
  std::string text;
  std::size_t blankLines = 0;
  for (const auto& row : table.rows) {
    if (isBlank(row)) {
      ++blankLines;
      continue;
    }
    // Only between lines: a grid's empty last rows are no lines of a report.
    text.append(text.empty() ? 0 : blankLines, '\n');
    blankLines = 0;
    const bool isHead = &row == &table.rows.front();
    const auto& alignedAs = isHead && table.rows.size() > 1 ? table.rows[1] : row;
    const std::string line =
        isLegend(row) ? legendText(row, coloured) : rowText(row, alignedAs, columns, coloured);
    text += "  " + withoutTrailingBlanks(line) + "\n";
  }
  return text;
}

std::string barText(int eighths) {
  static constexpr std::string_view parts[] = {"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};
  std::string bar;
  for (int i = 0; i < eighths / 8; ++i) bar += "█";
  return bar + std::string(parts[eighths % 8]);
}

}  // namespace tolmer
