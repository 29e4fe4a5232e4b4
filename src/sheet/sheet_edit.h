// One action of the user while it is being done: cells change at once, and every change is kept as
// a step that can be undone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "sheet/sheet_formulas.h"
#include "sheet/sheet_undo.h"

namespace tolmer {

// Gives every formula with random numbers its own.
struct SeedSource {
  std::uint32_t next = 1;
  std::uint32_t take() { return next == 0 ? ++next : next++; }
};

std::vector<CellAddress> formulasOf(const SheetContent& content);

class SheetEdit {
 public:
  SheetEdit(SheetState& state, const SheetNames& names, SeedSource& seeds, std::string_view name)
      : state_(state), names_(names), seeds_(seeds), action_{.name = name} {}

  const SheetContent& content() const { return state_.content; }
  const DataCell& cell(CellAddress at) const { return state_.content.cells(at.row, at.column); }
  // As the headings stand now.
  const SheetNames& names() const { return names_; }

  // A cell that already holds this is left alone. Another heading is followed by the formulas.
  void put(CellAddress at, DataCell cell);
  // The same formula after something it refers to has moved.
  void respell(CellAddress formula, std::string text);
  void clear(const CellRange& block);
  void setDecimals(int column, Int16 digits);  // column 0: the standard
  void setTitle(std::string title);
  void setLabel(int column, std::string label);  // column 0: the source
  void reorder(int firstRow, std::vector<std::uint16_t> from);
  void replaceAll(SheetState state);

  // The cell for a formula, with a seed of its own where it needs one.
  DataCell formulaCell(std::string text);

  std::vector<CellAddress> formulas() const { return formulasOf(content()); }

  // The user will find the action there when it is undone.
  void showAt(const CellRange& place) { action_.places.push_back(place); }

  // Ends the action: formulas that stood before it call renamed columns by their new names.
  SheetJournal::Action finish();
  SheetChange& change() { return change_; }

 private:
  struct Renaming {
    SheetNames before;
    int column;
    std::string newName;

    bool mayConcern(const std::string& folded) const;
  };
  void take(SheetStep step);
  void followRenamings();
  std::string renamed(std::string text) const;

  SheetState& state_;
  SheetNames names_;
  SeedSource& seeds_;
  SheetJournal::Action action_;
  SheetChange change_;
  std::vector<Renaming> renamings_;
  std::vector<CellAddress> newFormulas_;  // written with the names as they are now
};

}  // namespace tolmer
