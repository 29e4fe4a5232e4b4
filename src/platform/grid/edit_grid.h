// A grid in which the user types.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/grid/grid.h"

namespace tolmer {

// What keys ask of the owner of the cells, while no cell is being typed in.
enum class GridCommand { erase, cut, copy, paste, undo, redo };

// Shows texts and asks: the owner keeps what the cells hold, answers what a cell reads while it is
// edited, takes or refuses what was typed, and then sets what is shown. Without an owner's answer
// nothing that is typed is kept. Cells of type `fixed` cannot be edited.
//
// Typing begins an edit, and there keys that move end it; F2 or a double click opens the cell with
// its content, and there they move within the text, until F2 changes over. A refused text stays
// open to be mended or given up by Escape, also while another control has the focus.
class EditGrid : public Grid {
 public:
  using Grid::Grid;
  ~EditGrid() override { setPeer(nullptr); }

  // Does typing replace what stands in the cell, or extend it?
  bool editModeReplace() const { return replaces_; }
  void setEditModeReplace(bool on) { replaces_ = on; }

  // --- the open edit
  bool editMode() const { return editing_; }
  CellPosition editCell() const { return editCell_; }  // of the open edit, or the last one
  const std::string& editText() const { return editText_; }
  // What the user's line now says. Line ends and tabs become blanks.
  void setEditText(std::string_view text);
  // Opens the active cell with its content.
  void startEdit();
  // Opens it by typing; behind what stands there already in an open one.
  void typeText(std::string_view text);
  // Hands the text over and closes; false where it was refused and stays open. Done of itself when
  // the focus goes and when the active cell changes.
  bool commitEdit();
  void cancelEdit();

  bool canEdit(CellPosition cell) const;
  // What the cell reads while it is edited.
  std::string contentOf(CellPosition cell) const;
  // As if it had been typed there; whether it was taken.
  bool enter(CellPosition cell, const std::string& text);

  void press(CellPosition cell, ClickKeys held = {}) override;
  void dragTo(CellPosition cell) override;
  void doubleClick(CellPosition cell) override;
  bool pressKey(const KeyPress& key) override;
  void releaseKey(const KeyPress& key) { raise(KeyUp, key); }
  void dragColWidth(int col, Twips width);

  // The content of the cell, in place of what it shows.
  Event<CellPosition, std::string&> AskContent;
  // The text typed for the cell; taken where the argument is set True. Unchanged text is not asked
  // for.
  Event<CellPosition, const std::string&, bool&> EditDone;
  // The user has given up the open edit; the cell keeps what it had.
  Event<> EditGivenUp;
  // The active cell has changed from the first to the second.
  Event<CellPosition, CellPosition> LeaveCell;
  Event<GridCommand> Command;
  Event<const KeyPress&> KeyUp;
  Event<int> ColWidthChange;  // by the user

 protected:
  void selectionChanged(CellPosition activeBefore) override;
  void reshaped() override;
  void focusLeft() override { commitEdit(); }

 private:
  // How keys act that move: on the cell, or within its text.
  enum class Keys { move, stay };
  // Tells after an event whether the grid is still there.
  using Life = std::weak_ptr<const int>;
  class Asking;

  void open(CellPosition cell, std::string text, Keys keysThen);
  void close();
  bool pressEditKey(const KeyPress& key);
  bool pressCellKey(const KeyPress& key);
  void moveByEntry(const KeyPress& key);
  void commitAndMove(const KeyPress& key);
  void selectLine(bool row);

  std::shared_ptr<const int> life_ = std::make_shared<const int>(0);
  std::string editText_;
  std::string contentBefore_;
  CellPosition editCell_;
  Keys keys_ = Keys::move;
  int tabbedFrom_ = 0;  // the column that Return leads back to after Tab; 0 without
  bool movesByEntry_ = false;
  bool replaces_ = true;
  bool editing_ = false;
  bool asking_ = false;  // while the owner decides
};

}  // namespace tolmer
