// A grid in which the user types.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/grid/grid.h"

namespace tolmer {

// What keys ask of the owner of the cells, while no cell is being typed in.
enum class GridCommand { erase, cut, copy, paste, undo, redo };

// A marked part of a text in bytes; without length, the caret.
struct TextMark {
  std::size_t first = 0;
  std::size_t length = 0;
  friend bool operator==(const TextMark&, const TextMark&) = default;
};

// Shows texts and asks: the owner keeps what the cells hold, answers what a cell reads while it is
// edited, takes or refuses what was typed, and then sets what is shown. Without an owner's answer
// nothing that is typed is kept. Cells of type `fixed` cannot be edited.
//
// Typing begins an edit, and there keys that move end it; F2 or a double click opens the cell with
// its content, and there they move within the text, until F2 changes over. A refused text stays
// open to be mended or given up by Escape, also while another control has the focus.
//
// Where the owner says that an address can stand at the caret, a press or a key that moves points:
// it puts the cell's address there, and a drag or Shift that of a block. The next letter ends that.
//
// Tab goes to the next cell, so F6 and Ctrl+Tab lead out of the grid, with Shift backwards.
class EditGrid : public Grid {
 public:
  EditGrid(Container* parent, std::string name);
  ~EditGrid() override { setPeer(nullptr); }

  // Does typing replace what stands in the cell, or extend it?
  bool editModeReplace() const { return replaces_; }
  void setEditModeReplace(bool on) { replaces_ = on; }
  // The first of the cells that hold data, behind headings and labels: where Control+Home leads,
  // and above which nothing is filled.
  void setFirstDataCell(CellPosition cell) { firstDataCell_ = cell; }
  // Small letters in the cells of row 1, opposite their texts; element 0 is not looked at. None at
  // first.
  const std::vector<std::string>& columnTags() const { return columnTags_; }
  void setColumnTags(std::vector<std::string> tags);

  // --- the open edit
  bool editMode() const { return editing_; }
  CellPosition editCell() const { return editCell_; }  // of the open edit, or the last one
  const std::string& editText() const { return editText_; }
  TextMark editMark() const { return mark_; }
  // What the user's line now says, with the caret at its end or this mark. Line ends and tabs
  // become blanks.
  void setEditText(std::string_view text) { setEditText(text, {text.size(), 0}); }
  void setEditText(std::string_view text, TextMark mark);
  void reportEditMark(TextMark mark);
  // Opens the active cell with its content.
  void startEdit();
  // Opens it by typing; in an open one in place of what is marked, or at the caret.
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

  // --- pointing
  bool canPoint() const;
  // A key that moves leads to another cell, and not to a place within the text.
  bool keysMove() const { return keys_ == Keys::move; }
  // The cells whose address was put in last, while it can be changed for another.
  std::optional<CellBlock> pointed() const;

  // --- filling: the corner of the selection is drawn out over more cells
  void setFills(bool on) { fills_ = on; }
  // The one block that would be drawn out; none where there is nothing to take hold of.
  std::optional<CellBlock> fillSource() const;
  // Up to where it is drawn now.
  std::optional<CellBlock> fillTarget() const { return fillTarget_; }
  void startFill();
  void fillTo(CellPosition cell);
  void endFill();
  void cancelFill();
  // A double click on the corner: down as far as the column beside it is filled.
  void fillBeside();

  // The right button: on a cell that is not selected it selects it first.
  void pressForMenu(CellPosition cell);
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
  // The open edit has begun, ended, or has another text.
  Event<> EditChanged;
  // The open edit has ended without a new text: the user has given it up, or mended it back.
  Event<> EditGivenUp;
  // Whether an address can stand between these two parts of the text; set True where it can.
  Event<const std::string&, const std::string&, bool&> AskPointing;
  // The address of the cells; empty where they have none.
  Event<const CellBlock&, std::string&> AskAddress;
  // The first block is to go on over the second, which holds it.
  Event<const CellBlock&, const CellBlock&> Fill;
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

  struct Pointed {
    std::size_t begin;  // in the text
    std::size_t length;
    CellPosition anchor, head;
  };

  void open(CellPosition cell, std::string text, Keys keysThen, bool marked = false);
  void close();
  void startEdit(bool marked);
  bool pointByKey(const KeyPress& key);
  void pointTo(CellPosition cell, bool extends);
  // In edit_grid_keys.cpp.
  std::optional<CellPosition> cellBy(const KeyPress& key, CellPosition from) const;
  bool pressEditKey(const KeyPress& key);
  bool pressCellKey(const KeyPress& key);
  void moveByEntry(const KeyPress& key);
  void commitAndMove(const KeyPress& key);
  void selectLine(bool row);

  std::shared_ptr<const int> life_ = std::make_shared<const int>(0);
  std::string editText_;
  std::string contentBefore_;
  TextMark mark_;
  std::optional<Pointed> pointed_;
  std::optional<CellBlock> fillTarget_;
  std::vector<std::string> columnTags_;
  CellPosition firstDataCell_{1, 1};
  CellPosition editCell_;
  Keys keys_ = Keys::move;
  int tabbedFrom_ = 0;  // the column that Return leads back to after Tab; 0 without
  bool movesByEntry_ = false;
  bool replaces_ = true;
  bool fills_ = false;
  bool editing_ = false;
  bool asking_ = false;  // while the owner decides
};

}  // namespace tolmer
