// What undo and redo need: every change of the sheet as small steps that undo themselves.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "formula/sheet_names.h"
#include "sheet/new_sheet.h"
#include "sheet/sheet_content.h"

namespace tolmer {

// Data that were not typed or opened but taken over as they were.
struct TakenData {
  std::string name;
  SheetContent content;
};

// All that a data set in the editor consists of. The file belongs to it, so that an undone Open
// does not leave the old data under the new file's name.
struct SheetState {
  SheetContent content;
  Int16 miStdDecDigits = standardDecimals;
  std::string mtFileName{};                      // empty while there is none
  std::shared_ptr<const TakenData> takenFrom{};  // null for the user's own
};

// What a change or its undoing touched, each as it stands afterwards.
struct SheetChange {
  bool all = false;                  // everything may differ; the lists say nothing then
  std::vector<CellAddress> cells{};  // content or shown text; row 0 are headings
  std::vector<int> decimals{};       // columns whose digits changed
  bool title = false;                // or what describes the data
  bool file = false;

  bool empty() const { return !all && cells.empty() && decimals.empty() && !title && !file; }
};

// A step holds what the sheet does not hold at the moment: performing it swaps the two, performing
// it again swaps them back.
struct CellStep {
  CellAddress at;
  DataCell cell;
};
struct DecimalsStep {
  int column;  // 0: the standard
  Int16 digits;
};
struct TitleStep {
  std::string title;
};
struct LabelStep {
  int column;  // 0: the source
  std::string label;
};
// Row first + i takes the cells of row first + from[i].
struct RowOrderStep {
  int first;
  std::vector<std::uint16_t> from;
};
// The whole state for another.
struct WholeStep {
  std::unique_ptr<SheetState> state;
};
using SheetStep =
    std::variant<CellStep, DecimalsStep, TitleStep, LabelStep, RowOrderStep, WholeStep>;

// Performs the step, turns it into its inverse and notes what it touched.
void perform(SheetStep& step, SheetState& state, SheetChange& change);

// The actions of the user, each undone at one stroke. Their number is not limited; their memory is
// that of the cells they changed.
class SheetJournal {
 public:
  struct Action {
    std::string_view name;  // for the menu: "Typing"
    std::vector<SheetStep> steps{};
    // Where it happened, to be looked at when it is undone; empty where it is seen at no cell.
    std::vector<CellRange> places{};
  };

  // Behind the present place; what was undone can no longer be redone. An action without steps
  // leaves the journal as it is.
  void add(Action action);
  // Whether a change belongs to the last action, as the next letter of a title does: it has that
  // name, and nothing was undone, redone, kept or sealed since.
  bool continues(std::string_view name) const;
  void seal() { sealed_ = true; }

  // What was undone or redone, until the next change; null where there is nothing.
  const Action* undo(SheetState& state, SheetChange& change);
  const Action* redo(SheetState& state, SheetChange& change);
  std::string_view undoName() const;
  std::string_view redoName() const;

  // Nothing to undo from here on.
  void forget();

  // Whether the place is the one at which keep() was called last.
  bool atKept() const { return kept_ == static_cast<std::ptrdiff_t>(place_); }
  void keep();

 private:
  std::vector<Action> actions_;
  std::size_t place_ = 0;    // so many actions stand
  std::ptrdiff_t kept_ = 0;  // -1 where that place is lost
  bool sealed_ = true;
};

}  // namespace tolmer
