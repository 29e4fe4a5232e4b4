// What a page is told of a grid.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/json_writer.h"
#include "platform/grid/grid_pointer.h"

namespace tolmer {

// The page shows the part of the cells that it was told, and hears only of what reads otherwise:
// elements of the document with their attributes, as `Part` of web/page/protocol.ts.
class ToldGrid {
 public:
  ToldGrid(Grid& grid, int id);

  GridSight sight;
  GridPointer pointer;
  const char* cursor = "";  // as style names its shape

  // After the grid has told that it changed.
  void follow(Change what);
  // The page says how far it is scrolled, and how large it shows the grid.
  void isSeen(PixelPoint scrolled, int width, int height);
  const char* cursorAt(PixelPoint at) const;
  // Members of the object that is open.
  void write(JsonWriter& json);

 private:
  // From the first row to the last.
  using Rows = std::pair<int, int>;
  template <class Write>
  void tell(JsonWriter& json, const char* name, Write write);
  void touchSelected(const GridSelection& selection);
  bool isTouched(int row) const;

  void writeRows(JsonWriter& json);
  void writeRow(JsonWriter& json, int row) const;
  void writeCell(JsonWriter& json, CellPosition at) const;
  void writeText(JsonWriter& json, CellPosition at, const Cell& cell, std::string& style) const;
  std::string classesOf(CellPosition at, const Cell& cell, bool isBold) const;
  void writeTable(JsonWriter& json) const;
  void writeFrames(JsonWriter& json) const;
  void writeLitFrames(JsonWriter& json) const;
  void writeLine(JsonWriter& json) const;
  void writeEdit(JsonWriter& json) const;

  std::string idOf(int row) const {
    return "grid" + std::to_string(id_) + '-' + std::to_string(row);
  }
  std::string idOf(CellPosition at) const { return idOf(at.row) + '-' + std::to_string(at.col); }
  std::string nameOf() const;
  Font font(bool bold) const;
  PixelBox boxOf(const CellBlock& block) const;
  PixelBox lineBox() const;
  PixelBox wholeWidth(PixelBox box) const;
  // As rules of style: a box in pixels of all cells.
  std::string placed(const PixelBox& box, bool staysAcross, bool staysDown, int overlap) const;
  std::string placedIn(const PixelBox& box, CellPosition part, int overlap) const;

  Grid& grid_;
  EditGrid* edited_;  // the same one; null for a table
  int id_;
  std::map<std::string, std::string, std::less<>> told_;  // members, as they were written
  std::map<int, std::string> rows_;                       // in the document, as they were written
  std::vector<int> cols_;                                 // of which these have cells
  std::vector<Rows> touched_;                             // since then
  PixelPoint scrolled_;                                   // as the page has it
  int spokenRow_ = 0;
};

}  // namespace tolmer
