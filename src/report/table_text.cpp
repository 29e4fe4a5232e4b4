#include "report/table_text.h"

#include <algorithm>
#include <string_view>

#include "report/table_parts.h"
#include "report/text_layout.h"

namespace tolmer {
namespace {

constexpr std::string_view indent = "  ";
constexpr std::string_view between = "  ";  // columns
constexpr std::string_view plain = "\x1b[0m";

struct Mark {
  Colour back;
  std::string_view mark;
  std::string_view escape;  // ECMA-48, select graphic rendition
};

constexpr Mark marks[] = {{colours::cyan, "**", "\x1b[46;30m"},
                          {colours::green, "*", "\x1b[42;30m"},
                          {colours::red, "!", "\x1b[41;97m"},
                          {Colour::rgb(255, 255, 0), "+", "\x1b[43;30m"}};

// Null for the ground of cells and headings.
const Mark* markOf(const DisplayCell& cell) {
  const auto* found = std::find_if(std::begin(marks), std::end(marks),
                                   [&cell](const Mark& mark) { return mark.back == cell.back; });
  return found == std::end(marks) ? nullptr : found;
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
  TableSetter(const DisplayTable& table, bool coloured)
      : parts_(partsOf(table)), coloured_(coloured), columns_(parts_.heads.size()) {
    measure(parts_.heads);
    for (const auto& body : parts_.bodies)
      for (const DisplayRow& row : body) measure(row);
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
    return lines;
  }

 private:
  void measure(const DisplayRow& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      columns_[i].text = std::max(columns_[i].text, terminalWidth(row[i].text));
      columns_[i].mark = std::max(columns_[i].mark, markText(row[i]).size());
    }
  }

  std::string_view markText(const DisplayCell& cell) const {
    const Mark* mark = parts_.explains(cell) ? markOf(cell) : nullptr;
    return mark ? mark->mark : std::string_view();
  }

  std::string inColour(const DisplayCell& cell, const std::string& text) const {
    const Mark* mark = coloured_ ? markOf(cell) : nullptr;
    return mark ? std::string(mark->escape) + text + std::string(plain) : text;
  }

  std::string cellText(const DisplayCell& cell, const Column& column) const {
    std::string text = inColour(cell, padded(cell.text, column.text, cell.align));
    if (column.mark > 0) text += " " + padded(markText(cell), column.mark, Align::left);
    return text;
  }

  std::string rowText(const DisplayRow& row, const ColumnBlock& block) const {
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
      for (const DisplayRow& row : body) lines += rowText(row, block);
    }
    return lines;
  }

  std::string keyText() const {
    std::string line(indent);
    for (const DisplayCell& word : parts_.key) {
      if (&word != &parts_.key.front()) line += "   ";
      line += std::string(markText(word)) + " " + inColour(word, word.text);
    }
    return line + "\n";
  }

  TableParts parts_;
  bool coloured_;
  std::vector<Column> columns_;
};

}  // namespace

std::string tableText(const DisplayTable& table, std::size_t width, bool coloured) {
  return TableSetter(table, coloured).text(width);
}

}  // namespace tolmer
