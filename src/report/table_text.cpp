#include "report/table_text.h"

#include <algorithm>
#include <string_view>

#include "report/text_layout.h"
#include "tables/mark_colours.h"
#include "tables/table_parts.h"

namespace tolmer {
namespace {

constexpr std::string_view indent = "  ";
constexpr std::string_view between = "  ";  // columns
constexpr std::string_view plain = "\x1b[0m";

struct TerminalColour {
  Colour back;
  std::string_view escape;  // ECMA-48, select graphic rendition
};

constexpr TerminalColour terminalColours[] = {{colours::cyan, "\x1b[46;30m"},
                                              {colours::green, "\x1b[42;30m"},
                                              {colours::red, "\x1b[41;97m"},
                                              {colours::yellow, "\x1b[43;30m"}};

// Empty for the ground of cells and headings.
std::string_view escapeOf(const TableCell& cell) {
  for (const TerminalColour& one : terminalColours)
    if (one.back == backOf(cell)) return one.escape;
  return {};
}

struct Column {
  std::size_t text = 0;
  std::size_t mark = 0;

  // With the blanks before the next one.
  double width() const {
    return static_cast<double>(text + (mark > 0 ? 1 + mark : 0) + between.size());
  }
};

class TableSetter {
 public:
  TableSetter(const TableContent& table, bool coloured)
      : parts_(partsOf(table)), coloured_(coloured), columns_(parts_.heads.size()) {
    measure(parts_.heads);
    for (const auto& body : parts_.bodies)
      for (const TableRow& row : body) measure(row);
  }

  std::string text(std::size_t width) const {
    std::vector<double> widths;
    for (const Column& column : columns_) widths.push_back(column.width());
    const std::size_t room = width - indent.size() + between.size();
    std::string lines;
    for (const ColumnBlock& block :
         columnBlocks(widths, parts_.leadColumns, static_cast<double>(room)))
      lines += (lines.empty() ? "" : "\n") + blockText(block);
    if (!parts_.key.empty()) lines += "\n" + keyText();
    for (const std::string& note : parts_.notes)
      lines += "\n" + wrapped(note, width, indent.size()) + "\n";
    return lines;
  }

 private:
  void measure(const TableRow& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      columns_[i].text = std::max(columns_[i].text, terminalWidth(row[i].text));
      columns_[i].mark = std::max(columns_[i].mark, parts_.shownSign(row[i]).size());
    }
  }

  std::string inColour(const TableCell& cell, const std::string& text) const {
    const std::string_view escape = coloured_ ? escapeOf(cell) : std::string_view();
    return escape.empty() ? text : std::string(escape) + text + std::string(plain);
  }

  std::string cellText(const TableCell& cell, const Column& column) const {
    std::string text = inColour(cell, padded(cell.text, column.text, cell.align));
    if (column.mark > 0) text += " " + padded(parts_.shownSign(cell), column.mark, Align::left);
    return text;
  }

  std::string rowText(const TableRow& row, const ColumnBlock& block) const {
    std::string line(indent);
    for (const std::size_t i : block) {
      if (i != block.front()) line += between;
      line += cellText(row[i], columns_[i]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
  }

  std::string blockText(const ColumnBlock& block) const {
    std::string lines = rowText(parts_.heads, block);
    for (const auto& body : parts_.bodies) {
      if (&body != &parts_.bodies.front()) lines += "\n";
      for (const TableRow& row : body) lines += rowText(row, block);
    }
    return lines;
  }

  std::string keyText() const {
    std::string line(indent);
    for (const TableCell& word : parts_.key) {
      if (&word != &parts_.key.front()) line += "   ";
      line += std::string(parts_.shownSign(word)) + " " + inColour(word, word.text);
    }
    return line + "\n";
  }

  TableParts parts_;
  bool coloured_;
  std::vector<Column> columns_;
};

}  // namespace

std::string tableText(const TableContent& table, std::size_t width, bool coloured) {
  return TableSetter(table, coloured).text(width);
}

}  // namespace tolmer
