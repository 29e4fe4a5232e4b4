#include "figures/figure_table.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/markup_text.h"
#include "report/table_parts.h"

namespace tolmer {
namespace {

std::string_view colourClass(const DisplayCell& cell) {
  static constexpr std::array names = {
      std::pair{colours::cyan, "cyan"}, std::pair{colours::green, "green"},
      std::pair{colours::red, "red"}, std::pair{colours::yellow, "yellow"}};
  for (const auto& [colour, name] : names)
    if (cell.back == colour) return name;
  return {};
}

std::string cellHtml(const DisplayCell& cell, bool isHead, std::string_view scope) {
  const std::string tag = isHead && !cell.text.empty() ? "th" : "td";
  std::string html = "<" + tag;
  if (tag == "th") html += " scope=\"" + std::string(scope) + "\"";
  std::string classes(cell.align == Align::right ? "right" : "");
  if (const auto colour = colourClass(cell); !colour.empty())
    classes += (classes.empty() ? "" : " ") + std::string(colour);
  if (!classes.empty()) html += " class=\"" + classes + "\"";
  return html + ">" + markupText(cell.text) + "</" + tag + ">";
}

std::string firstPart(const TableParts& parts) {
  std::string html = "<table>\n<thead>\n<tr>";
  for (const DisplayCell& head : parts.heads) html += cellHtml(head, true, "col");
  html += "</tr>\n</thead>\n<tbody>\n";
  for (const DisplayRow& row : parts.bodies.front()) {
    html += "<tr>";
    for (std::size_t column = 0; column < row.size(); ++column)
      html += cellHtml(row[column], column < parts.leadColumns, "row");
    html += "</tr>\n";
  }
  return html + "</tbody>\n</table>\n";
}

// Names at the left and figures at the right of one another.
std::string namedFigures(const std::vector<DisplayRow>& rows) {
  std::string html = "<table class=\"named\">\n<tbody>\n";
  for (const DisplayRow& row : rows) {
    html += "<tr>";
    for (const DisplayCell& cell : row)
      if (!cell.text.empty()) html += cellHtml(cell, cell.align == Align::left, "row");
    html += "</tr>\n";
  }
  return html + "</tbody>\n</table>\n";
}

bool isUsed(const DisplayTable& table, const DisplayCell& word) {
  return std::any_of(table.rows.begin(), table.rows.end(), [&](const DisplayRow& row) {
    return std::any_of(row.begin(), row.end(), [&](const DisplayCell& cell) {
      return cell.back == word.back && cell.text != word.text;
    });
  });
}

// Only colours that the table shows.
std::string colourKey(const DisplayTable& table, const TableParts& parts) {
  std::string html;
  for (const DisplayCell& word : parts.key)
    if (isUsed(table, word))
      html += " <span class=\"" + std::string(colourClass(word)) + "\">" + markupText(word.text) +
              "</span>";
  return html.empty() ? html : "<p class=\"key\">Key:" + html + "</p>\n";
}

}  // namespace

std::string figureTable(const DisplayTable& table) {
  const TableParts parts = partsOf(table);
  if (parts.bodies.empty()) return {};
  std::string html = firstPart(parts);
  for (std::size_t i = 1; i < parts.bodies.size(); ++i) html += namedFigures(parts.bodies[i]);
  return html + colourKey(table, parts);
}

}  // namespace tolmer
