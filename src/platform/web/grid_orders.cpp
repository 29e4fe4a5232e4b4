#include "platform/web/grid_orders.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>

#include "platform/grid/grid_fit.h"
#include "platform/grid/grid_words.h"
#include "platform/text_metrics.h"
#include "platform/web/nodes.h"

namespace tolmer {
namespace {

constexpr int sideMargin = 6;  // pixels left and right of a text, whatever the scale
constexpr int caretRoom = 12;  // behind the text of the line, for the caret and the next letter
// Rows and columns come so many at once, and so many before they are seen: not every step of
// scrolling brings others.
constexpr int rowsAtOnce = 4;
constexpr int rowsAhead = 6;
constexpr int colsAtOnce = 4;
constexpr int colsAhead = 2;
constexpr std::pair everyRow{0, std::numeric_limits<int>::max()};

std::string px(int count) { return std::to_string(count) + "px"; }

// Those that are to be in the document: what is frozen, what shows and some more, and the one that
// is spoken of.
std::vector<int> inDocument(const GridAxis& axis, int scrolled, int viewport, int atOnce, int ahead,
                            int also) {
  const int first = std::max(axis.at(scrolled + axis.frozenEnd()) - ahead, 0) / atOnce * atOnce;
  const int last = (axis.at(scrolled + viewport) + ahead) / atOnce * atOnce + atOnce - 1;
  std::vector<int> wanted;
  for (int index = 0; index <= axis.count(); ++index)
    if (axis.size(index) > 0 &&
        (index <= axis.frozen() || index == also || (first <= index && index <= last)))
      wanted.push_back(index);
  return wanted;
}

// The line before the first cells is theirs, too.
std::string span(const GridAxis& axis, int index, std::string_view start, std::string_view size) {
  const int from = axis.start(index) - (axis.start(index) == 1 ? 1 : 0);
  return std::string(start) + ':' + px(from) + ';' + std::string(size) + ':' +
         px(axis.start(index + 1) - from) + ';';
}

int firstOf(const GridAxis& axis) { return axis.size(0) > 0 ? 0 : 1; }

}  // namespace

ToldGrid::ToldGrid(Grid& grid, int id)
    : sight(grid),
      pointer(sight, grid, [](const std::function<void()>& work) { work(); }),
      grid_(grid),
      edited_(dynamic_cast<EditGrid*>(&grid)),
      id_(id) {
  follow(Change::all);
}

// --- what has changed

void ToldGrid::follow(Change what) {
  const GridSelection before = sight.selection();
  sight.follow(what, magnificationOf(grid_));
  if (has(what, Change::items | Change::look)) touched_.push_back(everyRow);
  if (has(what, Change::content))
    touched_.emplace_back(grid_.changedCells().row, grid_.changedCells().row2);
  if (before == sight.selection()) return;
  touchSelected(before);
  touchSelected(sight.selection());
}

void ToldGrid::touchSelected(const GridSelection& selection) {
  touched_.emplace_back(selection.active().row, selection.active().row);
  for (const CellBlock& block : selection.blocks()) touched_.emplace_back(block.row, block.row2);
}

bool ToldGrid::isTouched(int row) const {
  return std::ranges::any_of(
      touched_, [row](const Rows& rows) { return rows.first <= row && row <= rows.second; });
}

void ToldGrid::isSeen(PixelPoint scrolled, int width, int height) {
  // What comes up anew may have forgotten it.
  const bool comesUp = sight.room().isEmpty();
  scrolled_ = scrolled;
  if (!comesUp && width > 0) sight.scrollTo(scrolled);
  sight.setRoom(width, height);
}

const char* ToldGrid::cursorAt(PixelPoint at) const {
  if (pointer.isOnEdge(at)) return "col-resize";
  return pointer.isOnCorner(at) ? "crosshair" : "";
}

template <class Write>
void ToldGrid::tell(JsonWriter& json, const char* name, Write write) {
  std::string now = jsonOf([&](JsonWriter& part) { write(part); });
  std::string& before = told_[name];
  if (before == now) return;
  json.key(name);
  json.token(now);
  before = std::move(now);
}

void ToldGrid::write(JsonWriter& json) {
  tell(json, "table", [this](JsonWriter& part) { writeTable(part); });
  writeRows(json);
  tell(json, "cursor", [this](JsonWriter& part) { part.value(cursor); });
  tell(json, "frames", [this](JsonWriter& part) { writeFrames(part); });
  if (edited_) tell(json, "line", [this](JsonWriter& part) { writeLine(part); });
  if (edited_) tell(json, "edit", [this](JsonWriter& part) { writeEdit(part); });
  if (sight.scrolled() != scrolled_) {
    scrolled_ = sight.scrolled();
    json.list("scroll", std::array{scrolled_.x, scrolled_.y});
  }
  if (std::exchange(spokenRow_, sight.currentRow()) != sight.currentRow() && spokenRow_ > 0 &&
      grid_.selectionMode() == SelectionMode::none)
    json.member("spoken", spokenRow(grid_, spokenRow_));
}

// --- the cells

void ToldGrid::writeRows(JsonWriter& json) {
  const auto [left, top] = sight.scrolled();
  // Before the page has said how large it shows them.
  const PixelBox room = sight.room();
  const int width = room.right > 0 ? room.right : static_cast<int>(grid_.width() / twipsPerPixel);
  const int height =
      room.right > 0 ? room.bottom : static_cast<int>(grid_.height() / twipsPerPixel);
  const CellPosition spoken = focusedCell(grid_).value_or(CellPosition{});
  auto cols = inDocument(sight.colAxis(), left, width, colsAtOnce, colsAhead, spoken.col);
  auto wanted = inDocument(sight.rowAxis(), top, height, rowsAtOnce, rowsAhead, spoken.row);
  if (cols != cols_) touched_.push_back(everyRow);
  cols_ = std::move(cols);
  std::vector<int> gone;
  for (const auto& [row, text] : rows_)
    if (!std::ranges::binary_search(wanted, row)) gone.push_back(row);
  for (const int row : gone) rows_.erase(row);
  if (!gone.empty()) json.list("gone", gone);
  json.key("cells");
  json.beginArray();
  // From the last one, so that the one behind is there before.
  for (auto row = wanted.rbegin(); row != wanted.rend(); ++row) {
    if (rows_.contains(*row) && !isTouched(*row)) continue;
    std::string text = jsonOf([&](JsonWriter& part) { writeRow(part, *row); });
    if (rows_[*row] == text) continue;
    json.beginObject();
    json.members("at", *row, "before", row == wanted.rbegin() ? -1 : *std::prev(row));
    json.key("part");
    json.token(text);
    json.endObject();
    rows_[*row] = std::move(text);
  }
  json.endArray();
  touched_.clear();
}

void ToldGrid::writeRow(JsonWriter& json, int row) const {
  const GridAxis& rows = sight.rowAxis();
  const bool isFirst = row == firstOf(rows);
  const std::string classes =
      std::string(row <= rows.frozen() ? "frozen" : "") + (isFirst ? " first" : "");
  json.beginObject();
  json.members("tag", "tr", "id", idOf(row), "role", "row", "class", classes, "aria-rowindex",
               row + 1 - firstOf(rows), "style",
               span(rows, row, "top", "height") + "width:" + px(sight.colAxis().total()) +
                   ";line-height:" + px(rows.size(row)));
  json.member("aria-current", grid_.isLit(row) ? "true" : "");
  if (grid_.selectionMode() == SelectionMode::rows)
    json.member("aria-selected", grid_.selection().covers({row, 1}) ? "true" : "false");
  json.list("parts", cols_, [&](int col) { writeCell(json, {row, col}); });
  json.endObject();
}

void ToldGrid::writeCell(JsonWriter& json, CellPosition at) const {
  const Cell& cell = grid_.sheet().at(at.row, at.col);
  // Without a text it heads nothing, as the one in the corner.
  const bool isHeading = cell.style.heading && !cell.text.empty();
  const char* plain = grid_.selectionMode() == SelectionMode::none ? "cell" : "gridcell";
  const char* heading = at.row <= 1 ? "columnheader" : "rowheader";
  json.beginObject();
  json.members("tag", isHeading ? "th" : "td", "id", idOf(at), "role", isHeading ? heading : plain,
               "aria-colindex", at.col + 1 - firstOf(sight.colAxis()));
  if (grid_.selectionMode() == SelectionMode::cells)
    json.member("aria-selected",
                at.row > 0 && at.col > 0 && grid_.selection().covers(at) ? "true" : "false");
  if (const std::string words = remarksOn(grid_, at); !words.empty())
    json.member("aria-description", words);
  std::string style = span(sight.colAxis(), at.col, "left", "width");
  if (cell.style.back != colours::buttonFace && cell.style.back != colours::white)
    style += "background-color:" + hexColour(cell.style.back) + ';';
  if (cell.style.fore != colours::black) style += "color:" + hexColour(cell.style.fore) + ';';
  writeText(json, at, cell, style);
  json.member("style", style);
  json.endObject();
}

// A figure without its last digits would look like another one. In row 1 a small letter may stand
// opposite the text.
void ToldGrid::writeText(JsonWriter& json, CellPosition at, const Cell& cell,
                         std::string& style) const {
  std::string tag;
  if (edited_ && at.row == 1 && at.col > 0 &&
      static_cast<std::size_t>(at.col) < edited_->columnTags().size())
    tag = edited_->columnTags()[static_cast<std::size_t>(at.col)];
  const double tagRoom = tag.empty() ? 0 : textWidth(font(true), tag);
  const double room = sight.colAxis().size(at.col) - 2 * sideMargin - tagRoom;
  const bool isBold =
      cell.isBold() || (grid_.isLit(at.row) && textWidth(font(true), cell.text) <= room);
  std::string shown = shownForFigure(cell, room, textWidth(font(isBold), "#"));
  if (shown.empty() || textWidth(font(isBold), cell.text) <= room) shown = cell.text;
  json.members("class", classesOf(at, cell, isBold), "text", shown);
  if (const std::string& whole = grid_.wholeText(at); whole != shown)
    json.member("aria-label", whole);
  if (tag.empty()) return;
  const bool isLeft = cell.style.align == Align::right;
  style += isLeft ? "padding-left:" : "padding-right:";
  style += px(sideMargin + static_cast<int>(std::lround(tagRoom)));
  json.list("parts", std::array{tag}, [&](const std::string& letter) {
    json.beginObject();
    json.members("tag", "span", "class", isLeft ? "tag left" : "tag", "text", letter);
    json.endObject();
  });
}

std::string ToldGrid::classesOf(CellPosition at, const Cell& cell, bool isBold) const {
  constexpr std::string_view aligns[] = {"left", "centre", "right"};
  const GridAxis& cols = sight.colAxis();
  const bool isMarked =
      !grid_.selection().blocks().empty() || grid_.selectionMode() == SelectionMode::rows;
  std::string classes(aligns[static_cast<int>(cell.style.align)]);
  if (at.col <= cols.frozen()) classes += " frozen";
  if (at.col == firstOf(cols)) classes += " first";
  if (cell.style.back == colours::buttonFace)
    classes += !cell.style.heading ? " face" : at.row <= 1 ? " face upper" : " face beside";
  if (isBold) classes += " bold";
  if (!grid_.remarkOn(at).empty()) classes += " remark";
  if (isMarked && at.row > 0 && at.col > 0 && grid_.selectionMode() != SelectionMode::none &&
      grid_.selection().covers(at))
    classes += " picked";
  return classes;
}

// --- around them

std::string ToldGrid::nameOf() const {
  return grid_.accessibleName().empty() ? "Table" : grid_.accessibleName();
}

Font ToldGrid::font(bool bold) const {
  Font font = grid_.font();
  font.pixels = std::floor(font.pixels * sight.scale() + 0.5F);
  font.bold = bold;
  return font;
}

// An empty attribute is none.
void ToldGrid::writeTable(JsonWriter& json) const {
  const GridAxis& rows = sight.rowAxis();
  const GridAxis& cols = sight.colAxis();
  const ScrollBars bars = grid_.scrollBars();
  const SelectionMode mode = grid_.selectionMode();
  const bool isTable = mode == SelectionMode::none;
  const bool isEmpty = grid_.maxRows() == 0 || grid_.maxCols() == 0;
  const CellPosition active = grid_.activeCell();
  json.beginObject();
  json.members("role", isTable ? "table" : "grid", "tabindex", edited_ ? -1 : 0, "data-across",
               bars == ScrollBars::horizontal || bars == ScrollBars::both ? "scroll" : "hidden",
               "data-down",
               bars == ScrollBars::vertical || bars == ScrollBars::both ? "scroll" : "hidden");
  json.members("aria-multiselectable", isTable ? "" : "true", "aria-readonly",
               isTable || edited_ ? "" : "true", "aria-rowcount", rows.count() + 1 - firstOf(rows),
               "aria-colcount", cols.count() + 1 - firstOf(cols), "aria-activedescendant",
               isTable || edited_ || isEmpty ? std::string()
               : mode == SelectionMode::rows ? idOf(active.row)
                                             : idOf(active));
  json.member("style", "width:" + px(cols.total()) + ";height:" + px(rows.total()) +
                           ";font-size:" + px(static_cast<int>(font(false).pixels)));
  json.endObject();
}

// Empty where the table has no such cells any more.
PixelBox ToldGrid::boxOf(const CellBlock& block) const {
  const GridAxis& rows = sight.rowAxis();
  const GridAxis& cols = sight.colAxis();
  if (block.row2 > rows.count() || block.col2 > cols.count()) return {};
  return {cols.start(block.col), rows.start(block.row),
          cols.start(block.col2) + cols.size(block.col2),
          rows.start(block.row2) + rows.size(block.row2)};
}

// What stays where the cells are scrolled goes along with them; what does not is cut off where the
// frozen part begins, but for so many pixels.
std::string ToldGrid::placed(const PixelBox& box, bool staysAcross, bool staysDown,
                             int overlap) const {
  const auto at = [](int from, bool stays, const char* scrolled) {
    return stays ? "calc(" + px(from) + " + var(" + scrolled + "))" : px(from);
  };
  const auto cut = [overlap](int from, bool stays, int frozenEnd, const char* scrolled) {
    if (stays) return std::string("0px");
    return "max(0px,var(" + std::string(scrolled) + ") + " + px(frozenEnd - overlap - from) + ')';
  };
  return "left:" + at(box.left, staysAcross, "--left") + ";top:" + at(box.top, staysDown, "--top") +
         ";width:" + px(box.right - box.left) + ";height:" + px(box.bottom - box.top) +
         ";clip-path:inset(" + cut(box.top, staysDown, sight.rowAxis().frozenEnd(), "--top") +
         " 0px 0px " + cut(box.left, staysAcross, sight.colAxis().frozenEnd(), "--left") + ");";
}

std::string ToldGrid::placedIn(const PixelBox& box, CellPosition part, int overlap) const {
  return placed(box, part.col <= sight.colAxis().frozen(), part.row <= sight.rowAxis().frozen(),
                overlap);
}

namespace {

void writeFrame(JsonWriter& json, std::string_view kind, const std::string& style) {
  json.beginObject();
  json.members("tag", "div", "class", kind, "style", style);
  json.endObject();
}

}  // namespace

PixelBox ToldGrid::wholeWidth(PixelBox box) const {
  box.left = 1;
  box.right = std::min(sight.colAxis().total(), sight.room().right) - 1;
  return box;
}

// Frames surround their boxes on the lines. A frame of a block shows where its last cell does.
void ToldGrid::writeFrames(JsonWriter& json) const {
  const SelectionMode mode = grid_.selectionMode();
  const CellPosition active = grid_.activeCell();
  json.beginArray();
  if (grid_.maxRows() > 0 && grid_.maxCols() > 0) {
    writeLitFrames(json);
    const PixelBox box = lineBox();
    if (mode == SelectionMode::cells)
      writeFrame(json, "active", placedIn(box.grown(1), active, 1));
    else if (mode == SelectionMode::rows)
      writeFrame(json, "active",
                 placed(wholeWidth(box).grown(1), true, active.row <= sight.rowAxis().frozen(), 1));
  }
  if (edited_)
    for (const auto& block : {edited_->pointed(), edited_->fillTarget()})
      if (block)
        writeFrame(json, "drawn", placedIn(boxOf(*block).grown(1), {block->row2, block->col2}, 1));
  if (mode != SelectionMode::cells)
    writeFrame(json, mode == SelectionMode::rows ? "whole list" : "whole",
               placed(sight.room(), true, true, 0));
  if (!sight.fillCorner().isEmpty()) {
    const CellBlock block = *edited_->fillSource();
    const PixelBox box = boxOf(block);
    writeFrame(json, "corner",
               placedIn(PixelBox{box.right, box.bottom, box.right + 1, box.bottom + 1}.grown(3),
                        {block.row2, block.col2}, 4));
  }
  json.endArray();
}

// Each run of lit rows has one frame.
void ToldGrid::writeLitFrames(JsonWriter& json) const {
  for (const int row : grid_.litRows()) {
    if (grid_.isLit(row - 1)) continue;
    int last = row;
    while (grid_.isLit(last + 1)) ++last;
    writeFrame(json, "lit", placed(wholeWidth(boxOf({row, 1, last, 1})).grown(1), true, false, 1));
  }
}

// Of the open line, as wide as its text needs, as far as there is room; else of the active cell.
PixelBox ToldGrid::lineBox() const {
  const bool isOpen = edited_ && edited_->editMode();
  const CellPosition at = isOpen ? edited_->editCell() : grid_.activeCell();
  PixelBox box = boxOf({at.row, at.col, at.row, at.col});
  if (!isOpen || box.isEmpty()) return box;
  const bool scrolls = at.col > sight.colAxis().frozen();
  const int end = sight.room().right + (scrolls ? sight.scrolled().x : 0);
  const double text = textWidth(font(false), edited_->editText());
  const int needed = box.left + static_cast<int>(std::ceil(text)) + 2 * sideMargin + caretRoom;
  box.right = std::clamp(needed, box.right, std::max(end, box.right));
  return box;
}

// It stands over the cell that is typed in, and over the active one while there is none.
void ToldGrid::writeLine(JsonWriter& json) const {
  const bool isOpen = edited_->editMode();
  const CellPosition at = isOpen ? edited_->editCell() : grid_.activeCell();
  const PixelBox box = lineBox();
  const std::string words = isOpen ? describedCell(grid_, at) : nameOf();
  std::string style =
      placedIn(box, at, 0) + "font-size:" + px(static_cast<int>(font(false).pixels)) + ';';
  if (isOpen) style += "background-color:" + hexColour(grid_.sheet().at(at.row, at.col).style.back);
  json.beginObject();
  json.members("class", isOpen ? "grid-line" : "grid-line closed", "aria-label",
               words.empty() ? "Cell" : words, "aria-controls", "grid" + std::to_string(id_),
               "aria-activedescendant", isOpen || box.isEmpty() ? std::string() : idOf(at), "style",
               style);
  json.endObject();
}

void ToldGrid::writeEdit(JsonWriter& json) const {
  if (!edited_->editMode()) return json.null();
  const TextMark mark = edited_->editMark();
  json.beginObject();
  json.members("cell", idOf(edited_->editCell()), "text", edited_->editText(), "first",
               static_cast<long>(mark.first), "length", static_cast<long>(mark.length), "keysMove",
               edited_->keysMove(), "points", edited_->pointed().has_value());
  json.endObject();
}

}  // namespace tolmer
