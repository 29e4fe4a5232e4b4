// What the page hears of a grid: its shape, its cells as they read, and what is selected.
#include <algorithm>
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
  const auto* edited = dynamic_cast<const EditGrid*>(&grid);
  json.key("grid");
  json.beginObject();
  writeStarts(json, "rowStarts", scale == 1 ? grid.rowAxis() : grid.rowAxis().scaled(scale));
  writeStarts(json, "colStarts", scale == 1 ? grid.colAxis() : grid.colAxis().scaled(scale));
  json.member("frozenRows", grid.rowAxis().frozen());
  json.member("frozenCols", grid.colAxis().frozen());
  const ScrollBars bars = grid.scrollBars();
  json.member("across", bars == ScrollBars::horizontal || bars == ScrollBars::both);
  json.member("down", bars == ScrollBars::vertical || bars == ScrollBars::both);
  json.member("edits", edited != nullptr);
  json.member("fills", edited && edited->fillSource().has_value());
  constexpr std::string_view modes[] = {"none", "cells", "rows"};
  json.member("mode", modes[static_cast<int>(grid.selectionMode())]);
  json.member("pixels", static_cast<int>(grid.font().pixels * scale + 0.5F));
  json.endObject();
}

std::string lookOf(const Cell& cell) {
  constexpr std::string_view aligns[] = {"left", "centre", "right"};
  return jsonOf([&](JsonWriter& json) {
    json.beginObject();
    json.member("align", aligns[static_cast<int>(cell.style.align)]);
    json.member("heading", cell.style.heading);
    json.member("bold", cell.isBold());
    json.member("back",
                cell.style.back == colours::white ? std::string() : hexColour(cell.style.back));
    json.member("face", cell.style.back == colours::buttonFace);
    json.member("fore", hexColour(cell.style.fore));
    json.member("number", !shownForFigure(cell, 0, 1).empty());
    json.member("mark", cell.mark);
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
    json_.key("styles");
    json_.beginArray();
    for (const std::string& look : told_.looks) json_.token(look);
    json_.endArray();
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
    json_.member("row", row);
    json_.member("col", first);
    json_.key("rows");
    json_.beginArray();
    writeRun(row, first, last);
    json_.endArray();
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

void writeBlock(JsonWriter& json, const CellBlock& block) {
  json.beginArray();
  for (const int part : {block.row, block.col, block.row2, block.col2}) json.value(part);
  json.endArray();
}

void writeBlock(JsonWriter& json, std::string_view name, const std::optional<CellBlock>& block) {
  json.key(name);
  if (block)
    writeBlock(json, *block);
  else
    json.null();
}

void writePosition(JsonWriter& json, std::string_view name, CellPosition cell) {
  json.key(name);
  json.beginArray();
  json.value(cell.row);
  json.value(cell.col);
  json.endArray();
}

void writeSelection(JsonWriter& json, const Grid& grid) {
  json.key("selection");
  json.beginObject();
  writePosition(json, "active", grid.activeCell());
  writePosition(json, "head", grid.selection().head());
  json.key("blocks");
  json.beginArray();
  for (const CellBlock& block : grid.selection().blocks()) writeBlock(json, block);
  json.endArray();
  json.endObject();
}

void writeEdit(JsonWriter& json, const EditGrid& grid) {
  json.key("edit");
  if (!grid.editMode()) return json.null();
  json.beginObject();
  writePosition(json, "cell", grid.editCell());
  json.member("text", grid.editText());
  json.member("first", static_cast<long>(grid.editMark().first));
  json.member("length", static_cast<long>(grid.editMark().length));
  json.member("keysMove", grid.keysMove());
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
  json.key("lit");
  json.beginArray();
  for (const int row : grid.litRows()) json.value(row);
  json.endArray();
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
  if (!has(what, Change::look)) return;
  json.key("tags");
  json.beginArray();
  for (const std::string& tag : edited->columnTags()) json.value(tag);
  json.endArray();
}

}  // namespace tolmer
