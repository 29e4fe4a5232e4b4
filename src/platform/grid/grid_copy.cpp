#include "platform/grid/grid_copy.h"

#include <algorithm>
#include <string_view>

#include "base/markup_text.h"
#include "base/tabbed_text.h"

namespace tolmer {
namespace {

// "#00ffff"; nothing for white and for colours of the system's theme, which paper does not have.
std::string paperColour(Colour colour) {
  if (colour.kind != Colour::Kind::rgb || colour == colours::white) return {};
  return hexColour(colour.red, colour.green, colour.blue);
}

std::string_view alignName(Align align) {
  return align == Align::left ? "left" : align == Align::centre ? "center" : "right";
}

// A table cell has no line ends of its own.
std::string htmlLines(std::string_view text) {
  std::string html;
  for (const char c : markupText(text)) html += c == '\n' ? "<br>" : std::string(1, c);
  return html;
}

std::string htmlCell(const Cell& cell) {
  const std::string tag = cell.style.heading ? "th" : "td";
  std::string html =
      '<' + tag + " align=\"" + std::string(alignName(cell.style.align)) + '"' +
      spreadsheetMark(cell.text, !cell.style.heading && cell.style.align != Align::left);
  if (const std::string back = paperColour(cell.style.back); !back.empty())
    html += " bgcolor=\"" + back + '"';
  return html + '>' + htmlLines(cell.text) + "</" + tag + '>';
}

}  // namespace

std::string copyText(const Sheet& sheet, const CellBlock& block) {
  std::string text;
  for (int row = block.row; row <= block.row2; ++row)
    for (int col = block.col; col <= block.col2; ++col) {
      text += tabbedCell(sheet.at(row, col).text);
      text += col < block.col2 ? '\t' : '\n';
    }
  return text;
}

std::string copyHtml(const Sheet& sheet, const CellBlock& block) {
  std::string html = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\">\n";
  for (int row = block.row; row <= block.row2; ++row) {
    html += "<tr>";
    for (int col = block.col; col <= block.col2; ++col) html += htmlCell(sheet.at(row, col));
    html += "</tr>\n";
  }
  return html + "</table>\n";
}

ClipboardContent copyOf(const Sheet& sheet) {
  return {.text = copyText(sheet, sheet.body()), .html = copyHtml(sheet, sheet.body())};
}

}  // namespace tolmer
