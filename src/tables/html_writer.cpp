#include "tables/html_writer.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "base/markup_text.h"
#include "base/tabbed_text.h"
#include "platform/text_metrics.h"
#include "tables/mark_colours.h"
#include "tables/table_parts.h"

namespace tolmer {
namespace {

// How a table lies on paper. The room is that between the margins in parts of the letters' size
// (html_report.cpp), less a little for fonts wider than Noto Sans; a table of more rows does not
// fit on one page and may break between rows.
struct Setting {
  std::string_view name;
  double room;
  std::size_t mostRows;
};
struct Settings {
  Setting upright;
  Setting across;  // a landscape page, smaller letters
  Setting cut;     // blocks of columns below one another, smaller letters
};
constexpr Settings onA4{{"upright", 53, 38}, {"across", 89, 26}, {"cut", 60, 52}};
constexpr Settings onLetter{{"upright", 54, 35}, {"across", 83, 26}, {"cut", 61, 48}};

constexpr double cellPadding = 1;

double widthOf(const TableCell& cell, bool isBold) {
  constexpr float pixels = 100;
  return textWidth({FontFamily::interface, pixels, isBold}, cell.text) / pixels + cellPadding;
}

enum class Use { page, copy };

// Cells of a table, with looks from the page's style sheet or of their own.
class CellWriter {
 public:
  CellWriter(const TableParts& parts, Use use) : parts_(parts), use_(use) {}

  std::string columnHead(const TableCell& head) const {
    return head.text.empty() ? "<td></td>" : element("th", " scope=\"col\"", head);
  }
  std::string rowHead(const TableCell& cell) const { return element("th", " scope=\"row\"", cell); }
  std::string data(const TableCell& cell) const { return element("td", "", cell); }

  // Also for those who hear it.
  std::string sign(CellMark mark, std::string_view text) const {
    const std::string spoken(spokenMark(mark));
    return "<span class=\"sign\" role=\"img\" aria-label=\"" + spoken + "\" title=\"" + spoken +
           "\">" + std::string(text) + "</span>";
  }

 private:
  std::string element(std::string_view tag, std::string_view scope, const TableCell& cell) const {
    const bool isData = tag == "td";
    const std::string text = markupText(cell.text);
    const std::string_view shown = isData ? parts_.shownSign(cell) : std::string_view();
    return "<" + std::string(tag) + std::string(scope) +
           (use_ == Use::page ? pageLooks(cell, isData) : ownLooks(cell, isData)) + ">" +
           (use_ == Use::copy && !tintOf(cell).empty() ? "<b>" + text + "</b>" : text) +
           (shown.empty() ? "" : (use_ == Use::copy ? " " : "") + sign(cell.mark, shown)) + "</" +
           std::string(tag) + ">";
  }

  static std::string pageLooks(const TableCell& cell, bool isData) {
    std::string classes;
    const auto add = [&classes](bool is, const char* name) {
      if (is) classes += (classes.empty() ? "" : " ") + std::string(name);
    };
    add(cell.align == Align::right, "right");
    add(isData && isFramed(cell), "face");
    add(isData && !tintOf(cell).empty(), "marked");
    const std::string_view tint = tintOf(cell);
    return (classes.empty() ? "" : " class=\"" + classes + "\"") +
           (tint.empty() ? "" : " style=\"background:" + std::string(tint) + "\"");
  }

  static std::string ownLooks(const TableCell& cell, bool isData) {
    const std::string_view tint = tintOf(cell);
    return std::string(cell.align == Align::right ? " align=\"right\"" : " align=\"left\"") +
           spreadsheetMark(cell.text, isData && cell.role == CellRole::figure) +
           (tint.empty() ? "" : " bgcolor=\"" + std::string(tint) + "\"");
  }

  const TableParts& parts_;
  Use use_;
};

// Below a table: what its signs mean, and its notes.
std::string linesBelow(const TableParts& parts, Use use) {
  const CellWriter cells(parts, use);
  std::string html;
  for (const TableCell& word : parts.key) {
    const std::string tint(tintOf(word));
    html += (html.empty() ? "<p class=\"key\">Key: " : ", ") +
            (use == Use::page ? "<span style=\"background:" + tint + "\">" : std::string()) +
            cells.sign(word.mark, signOf(word.mark)) + " " + markupText(word.text) +
            (use == Use::page ? "</span>" : "");
  }
  if (!html.empty()) html += "</p>\n";
  for (const std::string& note : parts.notes)
    html += "<p class=\"note\">" + markupText(note) + "</p>\n";
  return html;
}

class TableWriter {
 public:
  TableWriter(const TableContent& table, std::string_view title, const Settings& settings)
      : parts_(partsOf(table)), title_(markupText(title)) {
    const std::vector<double> widths = columnWidths();
    const double whole = std::accumulate(widths.begin(), widths.end(), 0.0);
    setting_ = whole <= settings.upright.room  ? settings.upright
               : whole <= settings.across.room ? settings.across
                                               : settings.cut;
    blocks_ = columnBlocks(widths, parts_.leadColumns, setting_.room);
  }

  std::string html() const {
    if (parts_.heads.empty()) return "<h2>" + title_ + "</h2>\n";
    std::string html = "<div class=\"" + std::string(setting_.name) + "\">\n";
    for (const ColumnBlock& block : blocks_) html += blockHtml(block);
    for (std::size_t i = 1; i < parts_.bodies.size(); ++i) html += figuresHtml(parts_.bodies[i]);
    return html + linesBelow(parts_, Use::page) + "</div>\n";
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

  // Regions of a page need names that differ.
  std::string regionName(const ColumnBlock& block) const {
    const auto before = &block - &blocks_.front();
    return title_ + (before > 0 ? ", part " + std::to_string(before + 1) : "");
  }

  std::string cellHtml(const TableCell& cell, std::size_t column) const {
    return column < parts_.leadColumns && !cell.text.empty() ? cells_.rowHead(cell)
                                                             : cells_.data(cell);
  }

  std::string blockHtml(const ColumnBlock& block) const {
    std::string html = isLong() ? "<div class=\"table long\"" : "<div class=\"table\"";
    // On a screen it may have to scroll, which the keyboard must be able to.
    if (setting_.name != "upright")
      html += " tabindex=\"0\" role=\"region\" aria-label=\"" + regionName(block) + "\"";
    html += "><table>\n" + captionHtml(block) + "<thead>\n<tr>";
    for (const std::size_t column : block) html += cells_.columnHead(parts_.heads[column]);
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
        html += cell.align == Align::left ? cells_.rowHead(cell) : cells_.data(cell);
      }
      html += "</tr>\n";
    }
    return html + "</tbody>\n</table></div>\n";
  }

  TableParts parts_;
  CellWriter cells_{parts_, Use::page};
  std::string title_;
  Setting setting_ = onA4.upright;
  std::vector<ColumnBlock> blocks_;
};

}  // namespace

std::string tableHtml(const TableContent& table, std::string_view title, Paper paper) {
  return TableWriter(table, title, paper == Paper::a4 ? onA4 : onLetter).html();
}

std::string copiedTableHtml(const TableContent& table) {
  const TableParts parts = partsOf(table);
  const CellWriter cells(parts, Use::copy);
  std::string html = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\">\n<tr>";
  for (const TableCell& head : parts.heads) html += cells.columnHead(head);
  html += "</tr>\n";
  for (const auto& body : parts.bodies)
    for (const TableRow& row : body) {
      html += "<tr>";
      for (const TableCell& cell : row)
        html += cell.role == CellRole::heading ? cells.rowHead(cell) : cells.data(cell);
      html += "</tr>\n";
    }
  return html + "</table>\n" + linesBelow(parts, Use::copy);
}

}  // namespace tolmer
