#include "report/html_table.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "base/markup_text.h"
#include "platform/text_metrics.h"
#include "report/table_parts.h"

namespace tolmer {
namespace {

// How a table lies on paper. The room is that between the margins of A4 in parts of the letters'
// size (html_report.cpp), less a little for fonts wider than Noto Sans; a table of more rows does
// not fit on one page and may break between rows.
struct Setting {
  std::string_view name;
  double room;
  std::size_t mostRows;
};
constexpr Setting upright{"upright", 53, 38};
constexpr Setting across{"across", 89, 26};  // a landscape page, smaller letters
constexpr Setting cut{"cut", 60, 52};        // blocks of columns below one another, smaller letters

constexpr double cellPadding = 1;

double widthOf(const TableCell& cell, bool isBold) {
  constexpr float pixels = 100;
  return textWidth({FontFamily::interface, pixels, isBold}, cell.text) / pixels + cellPadding;
}

std::string_view alignClass(Align align) { return align == Align::right ? "right" : ""; }

// "th" or "td" with classes, divided by blanks.
std::string element(std::string_view tag, std::string_view attributes, std::string_view classes,
                    const TableCell& cell) {
  std::string html = "<" + std::string(tag) + std::string(attributes);
  if (!classes.empty()) html += " class=\"" + std::string(classes) + "\"";
  if (isColoured(cell)) html += " style=\"background:" + std::string(backName(cell)) + "\"";
  return html + ">" + markupText(cell.text) + "</" + std::string(tag) + ">";
}

std::string dataCell(const TableCell& cell) {
  std::string classes(alignClass(cell.align));
  const auto add = [&classes](const char* name) {
    classes += (classes.empty() ? "" : " ") + std::string(name);
  };
  if (isFramed(cell)) add("face");
  if (isColoured(cell)) add("marked");
  return element("td", "", classes, cell);
}

std::string columnHead(const TableCell& head) {
  if (head.text.empty()) return "<td></td>";
  return element("th", " scope=\"col\"", alignClass(head.align), head);
}

std::string rowHead(const TableCell& cell) {
  return element("th", " scope=\"row\"", alignClass(cell.align), cell);
}

class TableWriter {
 public:
  TableWriter(const TableContent& table, std::string_view title)
      : parts_(partsOf(table)), title_(markupText(title)) {
    const std::vector<double> widths = columnWidths();
    const double whole = std::accumulate(widths.begin(), widths.end(), 0.0);
    setting_ = whole <= upright.room ? upright : whole <= across.room ? across : cut;
    blocks_ = columnBlocks(widths, parts_.leadColumns, setting_.room);
  }

  std::string html() const {
    if (parts_.heads.empty()) return "<h2>" + title_ + "</h2>\n";
    std::string html = "<div class=\"" + std::string(setting_.name) + "\">\n";
    for (const ColumnBlock& block : blocks_) html += blockHtml(block);
    for (std::size_t i = 1; i < parts_.bodies.size(); ++i) html += figuresHtml(parts_.bodies[i]);
    return html + keyHtml() + "</div>\n";
  }

 private:
  // In parts of the letters' size.
  std::vector<double> columnWidths() const {
    std::vector<double> widths;
    for (std::size_t column = 0; column < parts_.heads.size(); ++column) {
      double widest = widthOf(parts_.heads[column], true);
      for (const TableRow& row : firstBody())
        widest = std::max(widest, widthOf(row[column], column < parts_.leadColumns));
      widths.push_back(widest);
    }
    return widths;
  }

  const std::vector<TableRow>& firstBody() const {
    static const std::vector<TableRow> none;
    return parts_.bodies.empty() ? none : parts_.bodies.front();
  }

  bool isLong() const { return firstBody().size() > setting_.mostRows; }

  // The first table carries the heading of the display, the others say where they go on.
  std::string captionHtml(const ColumnBlock& block) const {
    if (&block == &blocks_.front()) return "<caption><h2>" + title_ + "</h2></caption>\n";
    const std::string& first = parts_.heads[block[parts_.leadColumns]].text;
    const std::string& last = parts_.heads[block.back()].text;
    return "<caption>" + title_ + ", continued: " + markupText(first) +
           (block.size() > parts_.leadColumns + 1 ? " to " + markupText(last) : std::string()) +
           "</caption>\n";
  }

  std::string cellHtml(const TableCell& cell, std::size_t column) const {
    return column < parts_.leadColumns && !cell.text.empty() ? rowHead(cell) : dataCell(cell);
  }

  std::string blockHtml(const ColumnBlock& block) const {
    std::string html = isLong() ? "<div class=\"table long\"" : "<div class=\"table\"";
    // On a screen it may have to scroll, which the keyboard must be able to.
    if (setting_.name != upright.name)
      html += " tabindex=\"0\" role=\"region\" aria-label=\"" + title_ + "\"";
    html += "><table>\n" + captionHtml(block) + "<thead>\n<tr>";
    for (const std::size_t column : block) html += columnHead(parts_.heads[column]);
    html += "</tr>\n</thead>\n<tbody>\n";
    for (const TableRow& row : firstBody()) {
      html += "<tr>";
      for (const std::size_t column : block) html += cellHtml(row[column], column);
      html += "</tr>\n";
    }
    return html + "</tbody>\n</table></div>\n";
  }

  // Names at the left and figures at the right of one another.
  std::string figuresHtml(const std::vector<TableRow>& rows) const {
    std::string html = "<div class=\"table figures\"><table>\n<caption class=\"unseen\">" + title_ +
                       ": summary figures</caption>\n<tbody>\n";
    for (const TableRow& row : rows) {
      html += "<tr>";
      for (const TableCell& cell : row) {
        if (cell.text.empty()) continue;
        html += cell.align == Align::left ? rowHead(cell) : dataCell(cell);
      }
      html += "</tr>\n";
    }
    return html + "</tbody>\n</table></div>\n";
  }

  std::string keyHtml() const {
    if (parts_.key.empty()) return {};
    std::string html = "<p class=\"key\">Key: ";
    for (const TableCell& word : parts_.key) {
      if (&word != &parts_.key.front()) html += " ";
      html += "<span style=\"background:" + std::string(backName(word)) + "\">" +
              markupText(word.text) + "</span>";
    }
    return html + "</p>\n";
  }

  TableParts parts_;
  std::string title_;
  Setting setting_ = upright;
  std::vector<ColumnBlock> blocks_;
};

}  // namespace

std::string tableHtml(const TableContent& table, std::string_view title) {
  return TableWriter(table, title).html();
}

}  // namespace tolmer
