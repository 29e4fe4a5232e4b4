#include "report/printed_table.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <string_view>
#include <vector>

#include "base/trimmed.h"
#include "platform/text_metrics.h"
#include "tables/mark_colours.h"
#include "tables/table_parts.h"

namespace tolmer {
namespace {

constexpr double tailGap = 4;  // above the key

// "#RRGGBB"
Colour colourOf(std::string_view tint) {
  const auto part = [tint](std::size_t at) {
    int value = 0;
    std::from_chars(tint.data() + at, tint.data() + at + 2, value, 16);
    return value;
  };
  return Colour::rgb(part(1), part(3), part(5));
}

// Letters of a table and the room around them, in points.
struct Setting {
  PrintedLook look;
  double side = 0;   // left and right of a text
  double above = 0;  // and below
  bool isAcross = false;
};

constexpr Setting settingOf(float size, double above, bool isAcross) {
  return {{.size = size, .lineSpacing = 1.25}, size / 2, size * above, isAcross};
}
constexpr Setting upright = settingOf(9, 0.25, false);
constexpr Setting across = settingOf(8, 0.25, true);
constexpr Setting small = settingOf(8, 0.15, false);  // where it does not fit, cut

// One of the table's cells as it lies in a row. Names that would take more than their share of the
// paper have lines.
struct SetCell {
  const TableCell* cell;
  std::vector<std::string> lines;
  double width = 0;
  std::string_view sign{};
  double signRoom = 0;  // in its column, right of the figures
  Colour ground = colours::white;
  bool isBold = false;
};
using SetRow = std::vector<SetCell>;

class RowSetter {
 public:
  RowSetter(PageWriter& pages, const Setting& setting) : pages_(pages), setting_(setting) {}

  double widthOf(const std::string& text, bool isBold) const {
    return textWidth({FontFamily::interface, setting_.look.size, isBold}, text) + 2 * setting_.side;
  }

  SetCell cell(const TableCell& cell, double width, Colour ground, bool isBold) const {
    return {&cell,
            wrapText({FontFamily::interface, setting_.look.size, isBold}, cell.text,
                     width - 2 * setting_.side + 0.01),
            width,
            {},
            0,
            ground,
            isBold};
  }

  double heightOf(const SetRow& row) const {
    std::size_t lines = 1;
    for (const SetCell& cell : row) lines = std::max(lines, cell.lines.size());
    return static_cast<double>(lines) * setting_.look.line() + 2 * setting_.above;
  }

  // With the line below it.
  void print(const SetRow& row, Colour line) const {
    const double height = heightOf(row);
    double x = pages_.left();
    for (const SetCell& cell : row) {
      if (cell.ground != colours::white)
        pages_.put(PrintedBox{x, pages_.top(), cell.width, height, cell.ground});
      printText(cell, x);
      x += cell.width;
    }
    const double width = x - pages_.left();
    pages_.put(PrintedBox{pages_.left(), pages_.top() + height - printed::hairline, width,
                          printed::hairline, line});
    pages_.skip(height);
  }

 private:
  void printText(const SetCell& cell, double x) const {
    PrintedLook look = setting_.look;
    look.isBold = cell.isBold;
    const bool isRight = cell.cell->align == Align::right;
    const double at = isRight ? x + cell.width - setting_.side - cell.signRoom : x + setting_.side;
    double top = pages_.top() + setting_.above;
    for (const std::string& line : cell.lines) {
      pages_.put(PrintedText{at, look.baseLine(top), line, look.font(), look.colour,
                             isRight ? Align::right : Align::left,
                             cell.width - cell.signRoom - 2 * setting_.side});
      top += look.line();
    }
    if (cell.sign.empty()) return;
    const double end = isRight ? at : at + textWidth(look.font(), cell.lines.back());
    pages_.put(PrintedText{.x = end + 1,
                           .baseLine = look.baseLine(top - look.line()),
                           .text = std::string(cell.sign),
                           .font = setting_.look.font(),
                           .colour = look.colour});
  }

  PageWriter& pages_;
  const Setting& setting_;
};

class TablePrinter {
 public:
  TablePrinter(PageWriter& pages, const TableContent& table, const std::string& title)
      : pages_(pages), parts_(partsOf(table)), title_(title) {
    const std::vector<double> widths = naturalWidths(upright);
    const std::vector<double> smallWidths = naturalWidths(across);
    const auto fits = [&pages](const std::vector<double>& all, bool isAcross) {
      return std::accumulate(all.begin(), all.end(), 0.0) <= pages.widthOf(isAcross);
    };
    setting_ = fits(widths, false) && !needsSmallRows()               ? upright
               : fits(smallWidths, true) && !fits(smallWidths, false) ? across
                                                                      : small;
    widths_ = setting_.look.size == upright.look.size ? widths : smallWidths;
    for (std::size_t column = 0; column < widths_.size(); ++column)
      signRooms_.push_back(signRoom(column, setting_));
    blocks_ = columnBlocks(widths_, parts_.leadColumns, pages.widthOf(setting_.isAcross));
  }

  void print() {
    if (parts_.heads.empty()) return pages_.beginPart(title_, 0);
    for (const ColumnBlock& block : blocks_) printBlock(block);
    if (blocks_.size() > 1) printTail();
  }

 private:
  // A name stands in lines where it is longer than these shares of the letters' size.
  static constexpr double widestNames = 24;  // of all columns at the left together
  static constexpr double widestColumn = 18;

  bool isLead(std::size_t column) const { return column < parts_.leadColumns; }
  bool isBold(const TableCell& cell, std::size_t column) const {
    return (isLead(column) && cell.role == CellRole::heading) || !tintOf(cell).empty();
  }
  const std::vector<TableRow>& rows() const {
    static const std::vector<TableRow> none;
    return parts_.bodies.empty() ? none : parts_.bodies.front();
  }

  std::vector<double> naturalWidths(const Setting& setting) const {
    const RowSetter setter(pages_, setting);
    std::vector<double> widths;
    for (std::size_t column = 0; column < parts_.heads.size(); ++column) {
      double widest = setter.widthOf(parts_.heads[column].text, true);
      for (const TableRow& row : rows())
        widest = std::max(widest, setter.widthOf(row[column].text, isBold(row[column], column)));
      const double most =
          isLead(column) ? widestNames / static_cast<double>(parts_.leadColumns) : widestColumn;
      widths.push_back(std::min(widest, most * setting.look.size) + signRoom(column, setting));
    }
    return widths;
  }

  // Would a few rows be left for a second page, but not with smaller letters?
  bool needsSmallRows() const {
    const auto height = [this](const Setting& setting) {
      constexpr double besides = 60;  // heading and key
      return static_cast<double>(rows().size() + 1) * (setting.look.line() + 2 * setting.above) +
             besides;
    };
    return height(upright) > pages_.wholeRoom() && height(small) <= pages_.wholeRoom();
  }

  // Beside the figures of a column, for the signs of those that are marked.
  double signRoom(std::size_t column, const Setting& setting) const {
    double most = 0;
    for (const TableRow& row : rows())
      if (const auto sign = parts_.shownSign(row[column]); !sign.empty())
        most = std::max(most, textWidth(setting.look.font(), sign));
    return most;
  }

  // A cell of the table's columns.
  SetCell columnCell(const TableCell& cell, std::size_t column, Colour ground, bool bold) const {
    const double room = signRooms_[column];
    SetCell set = setter().cell(cell, widths_[column] - room, ground, bold);
    set.width += room;
    set.signRoom = room;
    return set;
  }

  SetRow headRow(const ColumnBlock& block) const {
    SetRow row;
    for (const std::size_t column : block)
      row.push_back(columnCell(parts_.heads[column], column, printed::headGround, true));
    return row;
  }

  SetRow bodyRow(const TableRow& cells, const ColumnBlock& block) const {
    SetRow row;
    for (const std::size_t column : block) {
      const TableCell& cell = cells[column];
      const std::string_view tint = tintOf(cell);
      const Colour ground = !tint.empty()                       ? colourOf(tint)
                            : isFramed(cell) && !isLead(column) ? printed::headGround
                                                                : colours::white;
      row.push_back(columnCell(cell, column, ground, isBold(cell, column)));
      row.back().sign = parts_.shownSign(cell);
    }
    return row;
  }

  RowSetter setter() const { return {pages_, setting_}; }

  void printBlock(const ColumnBlock& block) {
    const SetRow head = headRow(block);
    std::vector<SetRow> body;
    for (const TableRow& row : rows()) body.push_back(bodyRow(row, block));
    const double tail = blocks_.size() == 1 ? tailHeight() : 0;
    double height = setter().heightOf(head) + tail;
    for (const SetRow& row : body) height += setter().heightOf(row);
    const bool isLong = height > pages_.wholeRoom();
    begin(block, isLong ? pages_.wholeRoom() / 3 : height);
    setter().print(head, printed::headLine);
    for (const SetRow& row : body) {
      const double needed = setter().heightOf(row) + (&row == &body.back() ? tail : 0);
      if (pages_.room() < needed) {
        pages_.newPage();
        setter().print(head, printed::headLine);
      }
      setter().print(row, printed::rowLine);
    }
    if (blocks_.size() == 1) printTail();
  }

  // The first block carries the heading of the display, the others say where they go on.
  void begin(const ColumnBlock& block, double height) {
    if (&block == &blocks_.front()) return pages_.beginPart(title_, height, setting_.isAcross);
    const std::string first(trimmed(parts_.heads[block[parts_.leadColumns]].text));
    const std::string last(trimmed(parts_.heads[block.back()].text));
    pages_.continuePart(title_ + ", continued: " + first +
                            (block.size() > parts_.leadColumns + 1 ? " to " + last : std::string()),
                        height);
  }

  // Below the first figures: figures of another kind, each behind its name.
  std::vector<SetRow> figureRows(const std::vector<TableRow>& body) const {
    std::vector<std::vector<const TableCell*>> rows;
    std::vector<double> widths;
    for (const TableRow& cells : body) {
      auto& row = rows.emplace_back();
      for (const TableCell& cell : cells) {
        if (cell.text.empty()) continue;
        row.push_back(&cell);
        if (widths.size() < row.size()) widths.push_back(0);
        const bool isName = cell.align == Align::left;
        const double width = setter().widthOf(cell.text, isName) + (isName ? 0 : 2 * setting_.side);
        widths[row.size() - 1] = std::max(widths[row.size() - 1], width);
      }
    }
    std::vector<SetRow> set;
    for (const auto& row : rows) {
      auto& cells = set.emplace_back();
      for (std::size_t i = 0; i < row.size(); ++i)
        cells.push_back(
            setter().cell(*row[i], widths[i], colours::white, row[i]->align == Align::left));
    }
    return set;
  }

  double tailHeight() const {
    double height = parts_.key.empty() ? 0 : tailGap + printed::small.line();
    for (std::size_t i = 1; i < parts_.bodies.size(); ++i) {
      height += tailGap;
      for (const SetRow& row : figureRows(parts_.bodies[i])) height += setter().heightOf(row);
    }
    for (const std::string& note : parts_.notes)
      height += tailGap + PageWriter::heightOf(note, printed::small, pages_.width());
    return height;
  }

  void printTail() {
    for (std::size_t i = 1; i < parts_.bodies.size(); ++i) {
      pages_.skip(tailGap);
      for (const SetRow& row : figureRows(parts_.bodies[i])) {
        pages_.require(setter().heightOf(row));
        setter().print(row, printed::rowLine);
      }
    }
    printKey();
    for (const std::string& note : parts_.notes) {
      pages_.skip(tailGap);
      pages_.paragraph(note, printed::small);
    }
  }

  void printKey() {
    if (parts_.key.empty()) return;
    const PrintedLook& look = printed::small;
    constexpr double side = 4;
    pages_.require(tailGap + look.line());
    pages_.skip(tailGap);
    double x = pages_.left();
    const auto put = [&](const std::string& text) {
      pages_.put(PrintedText{x, look.baseLine(pages_.top()), text, look.font(), look.colour});
      x += textWidth(look.font(), text) + 2 * side;
    };
    put("Key:");
    for (const TableCell& word : parts_.key) {
      const std::string text = std::string(signOf(word.mark)) + " " + word.text;
      const double width = textWidth(look.font(), text) + 2 * side;
      pages_.put(PrintedBox{x - side, pages_.top(), width, look.line(), colourOf(tintOf(word))});
      put(text);
      x += side;
    }
    pages_.skip(look.line());
  }

  PageWriter& pages_;
  TableParts parts_;
  const std::string& title_;
  Setting setting_ = upright;
  std::vector<double> widths_;
  std::vector<double> signRooms_;  // parts of the widths
  std::vector<ColumnBlock> blocks_;
};

}  // namespace

void printTable(PageWriter& pages, const TableContent& table, const std::string& title) {
  TablePrinter(pages, table, title).print();
}

}  // namespace tolmer
