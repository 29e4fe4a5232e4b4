// What the page hears of a grid: its shape, its cells as they read, and what is selected.
#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "platform/grid/edit_grid.h"
#include "platform/grid/grid.h"
#include "platform/grid/grid_fit.h"
#include "platform/web/nodes.h"

namespace tolmer {
namespace {

void writeStarts(JsonWriter& json, std::string_view name, const GridAxis& axis) {
  json.key(name);
  json.beginArray();
  for (int i = 0; i <= axis.count() + 1; ++i) json.value(axis.start(i));
  json.endArray();
}

void writeShape(JsonWriter& json, const Grid& grid) {
  const float scale = magnificationOf(grid);
  json.key("grid");
  json.beginObject();
  writeStarts(json, "rowStarts", scale == 1 ? grid.rowAxis() : grid.rowAxis().scaled(scale));
  writeStarts(json, "colStarts", scale == 1 ? grid.colAxis() : grid.colAxis().scaled(scale));
  const ScrollBars bars = grid.scrollBars();
  constexpr std::string_view modes[] = {"none", "cells", "rows"};
  json.members("frozenRows", grid.rowAxis().frozen(), "frozenCols", grid.colAxis().frozen(),
               "across", bars == ScrollBars::horizontal || bars == ScrollBars::both, "down",
               bars == ScrollBars::vertical || bars == ScrollBars::both, "edits",
               dynamic_cast<const EditGrid*>(&grid) != nullptr, "mode",
               modes[static_cast<int>(grid.selectionMode())], "pixels",
               static_cast<int>(grid.font().pixels * scale + 0.5F));
  json.endObject();
}

std::string lookOf(const Cell& cell) {
  constexpr std::string_view aligns[] = {"left", "centre", "right"};
  return jsonOf([&](JsonWriter& json) {
    const Colour back = cell.style.back;
    json.beginObject();
    json.members("align", aligns[static_cast<int>(cell.style.align)], "heading", cell.style.heading,
                 "bold", cell.isBold(), "back",
                 back == colours::white ? std::string() : hexColour(back), "face",
                 back == colours::buttonFace, "fore", hexColour(cell.style.fore), "number",
                 !shownForFigure(cell, 0, 1).empty(), "mark", cell.mark);
    json.endObject();
  });
}

// What decides how a cell looks.
bool looksLike(const Cell& one, const Cell& other) {
  return one.style == other.style && one.mark == other.mark &&
         shownForFigure(one, 0, 1).empty() == shownForFigure(other, 0, 1).empty();
}

class GridWriter {
 public:
  GridWriter(JsonWriter& json, ToldGrid& told, const Grid& grid)
      : json_(json), told_(told), grid_(grid) {}

  void writeAll() {
    told_.sheet.resize(grid_.maxRows(), grid_.maxCols());
    told_.remarks.clear();
    told_.isKnown = true;
    json_.key("rows");
    json_.beginArray();
    for (int row = 0; row <= grid_.maxRows(); ++row) writeRun(row, 0, grid_.maxCols());
    json_.endArray();
  }

  void writeChanges(const CellBlock& among) {
    json_.key("changed");
    json_.beginArray();
    for (int row = among.row; row <= among.row2; ++row)
      for (int col = among.col; col <= among.col2; ++col) {
        const int first = col;
        while (col <= among.col2 && differs(row, col)) ++col;
        if (col > first) writeChange(row, first, col - 1);
      }
    json_.endArray();
  }

  // Behind the cells, which may have brought new ones.
  void writeLooks() {
    if (told_.looks.size() == known_) return;
    json_.list("styles", told_.looks, [&](const std::string& look) { json_.token(look); });
  }

 private:
  bool differs(int row, int col) const {
    const auto& now = grid_.sheet().at(row, col);
    const auto& before = told_.sheet.at(row, col);
    if (now.text != before.text || !looksLike(now, before)) return true;
    const auto remark = told_.remarks.find({row, col});
    return grid_.remarkOn({row, col}) !=
           (remark == told_.remarks.end() ? std::string_view() : std::string_view(remark->second));
  }

  void writeChange(int row, int first, int last) {
    json_.beginObject();
    json_.members("row", row, "col", first);
    json_.list("rows", std::array{row}, [&](int) { writeRun(row, first, last); });
    json_.endObject();
  }

  void writeRun(int row, int first, int last) {
    json_.beginArray();
    for (int col = first; col <= last; ++col) writeCell(row, col);
    json_.endArray();
  }

  void writeCell(int row, int col) {
    const Cell& cell = grid_.sheet().at(row, col);
    const std::string_view remark = grid_.remarkOn({row, col});
    told_.sheet.at(row, col) = cell;
    told_.remarks.erase({row, col});
    if (!remark.empty()) told_.remarks.emplace(std::pair(row, col), remark);
    json_.beginArray();
    json_.value(cell.text);
    json_.value(numberOf(cell));
    if (!remark.empty()) json_.value(remark);
    json_.endArray();
  }

  // Neighbours mostly look alike.
  int numberOf(const Cell& cell) {
    if (last_ && looksLike(*last_, cell)) return lastNumber_;
    last_ = &cell;
    const std::string look = lookOf(cell);
    const auto found = std::ranges::find(told_.looks, look);
    lastNumber_ = static_cast<int>(found - told_.looks.begin());
    if (found == told_.looks.end()) told_.looks.push_back(look);
    return lastNumber_;
  }

  JsonWriter& json_;
  ToldGrid& told_;
  const Grid& grid_;
  std::size_t known_ = told_.looks.size();
  const Cell* last_ = nullptr;
  int lastNumber_ = 0;
};

void writeCells(JsonWriter& json, ToldGrid& told, const Grid& grid, Change what) {
  GridWriter writer(json, told, grid);
  const bool isSameSize =
      told.isKnown && told.sheet.rows() == grid.maxRows() && told.sheet.cols() == grid.maxCols();
  const CellBlock all{0, 0, grid.maxRows(), grid.maxCols()};
  if (!isSameSize)
    writer.writeAll();
  else
    writer.writeChanges(has(what, Change::items | Change::look) ? all : told.changed);
  writer.writeLooks();
  told.changed = ToldGrid::noCells;
}

std::array<int, 4> edges(const CellBlock& block) {
  return {block.row, block.col, block.row2, block.col2};
}

void writeBlock(JsonWriter& json, std::string_view name, const std::optional<CellBlock>& block) {
  if (block) return json.list(name, edges(*block));
  json.key(name);
  json.null();
}

void writePosition(JsonWriter& json, std::string_view name, CellPosition cell) {
  json.list(name, std::array{cell.row, cell.col});
}

void writeSelection(JsonWriter& json, const Grid& grid) {
  json.key("selection");
  json.beginObject();
  writePosition(json, "active", grid.activeCell());
  writePosition(json, "head", grid.selection().head());
  json.list("blocks", grid.selection().blocks(), [&](const CellBlock& block) {
    json.beginArray();
    for (const int edge : edges(block)) json.value(edge);
    json.endArray();
  });
  json.endObject();
}

void writeEdit(JsonWriter& json, const EditGrid& grid) {
  json.key("edit");
  if (!grid.editMode()) return json.null();
  json.beginObject();
  writePosition(json, "cell", grid.editCell());
  const TextMark mark = grid.editMark();
  json.members("text", grid.editText(), "first", static_cast<long>(mark.first), "length",
               static_cast<long>(mark.length), "keysMove", grid.keysMove());
  json.endObject();
}

void writeDrawn(JsonWriter& json, const EditGrid& grid) {
  json.key("drawn");
  json.beginObject();
  writeBlock(json, "pointed", grid.pointed());
  writeBlock(json, "fill", grid.fillTarget());
  writeBlock(json, "corner", grid.fillSource());
  json.endObject();
}

void writeLit(JsonWriter& json, const Grid& grid) {
  json.list("lit", grid.litRows());
  json.member("current", grid.currentRow());
}

}  // namespace

void writeGrid(JsonWriter& json, NodePeer& node, const Grid& grid, Change what) {
  if (has(what, Change::items | Change::look | Change::place)) writeShape(json, grid);
  if (has(what, Change::items | Change::look | Change::content)) {
    writeCells(json, node.grid, grid, what);
    writeLit(json, grid);
  }
  if (has(what, Change::value | Change::items)) writeSelection(json, grid);
  const auto* edited = dynamic_cast<const EditGrid*>(&grid);
  if (!edited) return;
  if (has(what, Change::text)) writeEdit(json, *edited);
  if (has(what, Change::text | Change::value | Change::items)) writeDrawn(json, *edited);
  if (has(what, Change::look)) json.list("tags", edited->columnTags());
}

}  // namespace tolmer
