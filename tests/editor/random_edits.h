// What a student does to cells, blocks, rows and formats.
#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "editor/numeric_format.h"
#include "editor/random_visit.h"
#include "editor/sort_options.h"
#include "formula/formula_tokens.h"

namespace tolmer::test {

inline constexpr double unseen = std::numeric_limits<double>::quiet_NaN();

inline std::string digitsOf(double number) {
  std::array<char, 32> digits;
  return {digits.data(), std::to_chars(digits.begin(), digits.end(), number).ptr};
}
inline ModelCell numberCell(double number) {
  return {.kind = ModelCell::Kind::number, .number = number};
}
inline ModelCell textCell(const std::string& text) {
  return {.kind = ModelCell::Kind::text, .text = text};
}

// Cells to be pasted, told as text and as what they are.
struct ForeignTable {
  std::string text;
  std::vector<std::vector<ModelCell>> cells;
  std::vector<std::string> headings{};
  std::map<ImportDoubt, int> answers{};
  bool inDoubt = false;  // so the import dialog comes
};

class RandomEdits : public RandomVisit {
 public:
  using RandomVisit::RandomVisit;

 protected:
  // --- typing

  void type() {
    const int kind = upTo(11);
    if (kind == 0) {
      const std::array labels{std::string("  "), std::to_string(upTo(30)),
                              std::to_string(upTo(30)) + "a", std::string("\"Zoë\", née X")};
      const std::string& label = labels[static_cast<std::size_t>(upTo(3))];
      const ModelCell cell = label == "  " ? ModelCell{} : textCell(label);
      return typeInto(row(), 0, label, &cell);
    }
    const int r = row(), c = column();
    if (kind == 1) {
      constexpr std::array refused{"1,5", "=(", "much", "1e999", "=B1+", "--1"};
      return typeInto(r, c, refused[static_cast<std::size_t>(upTo(5))], nullptr);
    }
    const auto [cell, text] = kind <= 6 ? randomNumber() : randomFormula();
    typeInto(r, c, text, &cell);
  }

  void rename() {
    constexpr std::array names{"B2", "Var2", "height", "x]y", "", "C3", "VAR1"};
    const std::string name = names[static_cast<std::size_t>(upTo(6))];
    const ModelCell cell = name.empty() ? ModelCell{} : textCell(name);
    typeInto(0, oneIn(6) ? 0 : column(), name, &cell);
  }

  // Into the cell by one of the ways to open it and one of those to leave it; without a cell the
  // text is one that will be refused.
  void typeInto(int row, int column, const std::string& text, const ModelCell* cell) {
    tell(named({row, column}) + " typed " + text);
    go(row, column);
    const bool isNew = editor_.sheet().editText(row, column) != text;
    beginEntry(text);
    ASSERT_EQ(editor_.spdData.editText(), text);
    if (oneIn(8)) {
      key(keys::escape);
    } else {
      step([&] {
        if (cell && isNew) model_.put(row, column, *cell);
        endEntry(cell != nullptr || !isNew);
      });
    }
    ASSERT_FALSE(editor_.spdData.editMode());
  }

  void beginEntry(const std::string& text) {
    EditGrid& grid = editor_.spdData;
    const int way = upTo(3);
    if (way == 0) {
      key(keys::f2);
      grid.setEditText(text);
    } else if (way == 1) {
      grid.doubleClick(grid.activeCell());
      grid.setEditText(text);
    } else {
      const bool extends = !grid.editModeReplace();
      if (way == 2 || extends) key(keys::backspace);
      grid.typeText(text.substr(0, 1));
      if (text.size() > 1) grid.typeText(text.substr(1));
    }
  }

  void endEntry(bool accepted) {
    EditGrid& grid = editor_.spdData;
    const int beeps = desktop_.beeps();
    int way = upTo(5);
    if (way == 2 && grid.canPoint()) way = 3;  // a press would go on with the formula
    const bool shift = oneIn(3);
    if (way == 0)
      editor_.menu.mnuEdit.click();
    else if (way == 1)
      editor_.txtTitle.setFocus();
    else if (way == 2)
      grid.press({1 + row(), 1 + column()});
    else
      key(way == 3 ? keys::tab : keys::enter, shift);
    EXPECT_EQ(desktop_.beeps() - beeps, accepted ? 0 : 1);
    EXPECT_EQ(grid.editMode(), !accepted);
    if (grid.editMode()) key(keys::escape);
  }

  std::pair<ModelCell, std::string> randomNumber() {
    const int eighths = upTo(200) - 100;
    if (!oneIn(4)) return {numberCell(eighths / 8.0), std::to_string(eighths * 125) + "e-3"};
    const double number = std::ldexp(static_cast<double>(random_()) / 3, upTo(60) - 50);
    return {numberCell(number), digitsOf(number)};
  }

  std::pair<ModelCell, std::string> randomFormula() {
    ModelCell cell{.kind = Kind::difference};
    cell.a = {row(), column(), oneIn(4)};
    cell.b = {row(), column(), oneIn(4)};
    const int kind = upTo(9);
    if (kind == 0) {
      cell = {.kind = Kind::random, .number = unseen};
    } else if (kind <= 2 && nameIsClear(cell.a.column)) {
      cell.kind = Kind::plusOne;
      return {cell, "=" + bracketedName(model_.at(0, cell.a.column).text) + "+1"};
    } else if (kind >= 6) {
      cell.kind = Kind::maximum;
      cell.b.column = cell.a.column;
      if (cell.a.row > cell.b.row) std::swap(cell.a.row, cell.b.row);
      if (oneIn(3)) {
        cell.a = {1, cell.a.column, true};
        cell.b = {model_.rows(), cell.a.column, true};
      }
    }
    return {cell, model_.formulaText(cell)};
  }

  bool nameIsClear(int column) const {
    const std::string name = foldedName(model_.at(0, column).text);
    int alike = 0;
    for (int c = 0; c <= model_.columns(); ++c) alike += foldedName(model_.at(0, c).text) == name;
    return !name.empty() && alike == 1;
  }

  // --- blocks

  void clear() {
    const CellRange cleared = mark(oneIn(10) ? 0 : 1, 0);
    tell("clear " + named(cleared.first) + " to " + named(cleared.last));
    step([&] {
      each(cleared, [&](int r, int c) { model_.put(r, c, {}); });
      key(keys::deleteKey);
      EXPECT_TRUE(editor_.sheet().changeMade());
    });
  }

  // Values to values and labels to labels, once or filling a larger block.
  void copyAndPaste() {
    const CellRange from = mark(1, 0);
    const bool cuts = oneIn(4);
    const CellAddress size{from.last.row - from.first.row + 1,
                           from.last.column - from.first.column + 1};
    CellAddress at{row(), from.first.column == 0 ? 0 : column()};
    CellAddress times{1 + upTo(1), from.first.column == 0 ? 1 : 1 + upTo(1)};
    if (at.row + times.row * size.row - 1 > model_.rows() ||
        at.column + times.column * size.column - 1 > model_.columns())
      times = {1, 1};
    tell(std::string(cuts ? "cut " : "copy ") + named(from.first) + " to " + named(from.last) +
         ", paste at " + named(at) + ", " + std::to_string(times.row) + " x " +
         std::to_string(times.column));
    const SheetModel before = model_;
    step([&] {
      if (cuts) each(from, [&](int r, int c) { model_.put(r, c, {}); });
      cuts ? command('X', editor_.menu.mnuEditCut) : command('C', editor_.menu.mnuEditCopy);
    });
    go(at.row, at.column);
    if (times != CellAddress{1, 1})
      markBlock(
          {at, {at.row + times.row * size.row - 1, at.column + times.column * size.column - 1}});
    bool fits = true;
    each(from, [&](int r, int c) {
      const bool inside = at.row + r - from.first.row <= model_.rows() &&
                          at.column + c - from.first.column <= model_.columns();
      fits = fits && (inside || before.at(r, c).kind == Kind::empty);
    });
    step([&] {
      for (int tile = 0; fits && tile < times.row * times.column; ++tile)
        each(from, [&](int r, int c) {
          const int down = at.row + tile / times.column * size.row - from.first.row;
          const int right = at.column + tile % times.column * size.column - from.first.column;
          if (r + down > model_.rows() || c + right > model_.columns()) return;
          ModelCell cell = cuts ? before.at(r, c) : model_.moved(before.at(r, c), down, right);
          if (cell.kind == Kind::random) cell.number = unseen;
          model_.put(r + down, c + right, cell);
        });
      command('V', editor_.menu.mnuEditPaste);
    });
  }

  void pasteForeign() {
    const CellAddress at{row(), oneIn(6) ? 0 : column()};
    const ForeignTable table =
        at.column > 0 && oneIn(2) ? doubtfulTable() : clearTable(at.column == 0);
    const bool fits = at.row + std::ssize(table.cells) - 1 <= model_.rows() &&
                      at.column + std::ssize(table.cells[0]) - 1 <= model_.columns();
    const bool accepts = fits && !(table.inDoubt && oneIn(3));
    tell("paste at " + named(at) + (accepts ? " " : ", not taken, ") + table.text);
    desktop_.setClipboard({.text = table.text});
    go(at.row, at.column);
    if (!fits)
      box("Text Data", Answer::ok);
    else if (table.inDoubt)
      importDialog(table.answers, accepts);
    step([&] {
      if (accepts) pasteIntoModel(table, at);
      command('V', editor_.menu.mnuEditPaste);
    });
  }

  ForeignTable clearTable(bool labels) {
    ForeignTable table;
    const int columns = 1 + upTo(2);
    for (int r = upTo(2); r >= 0; --r) {
      auto& row = table.cells.emplace_back();
      for (int c = 0; c < columns; ++c) {
        auto [cell, text] = randomNumber();
        if (text.ends_with("e-3")) {
          cell = numberCell(upTo(9) + 0.5);
          text = digitsOf(cell.number);
        }
        if (c > 0 && oneIn(4)) cell = {}, text.clear();
        if (c == 0 && labels) cell = textCell(text = "w" + std::to_string(r));
        row.push_back(cell);
        table.text += text + (c + 1 < columns ? "\t" : "\n");
      }
    }
    return table;
  }

  ForeignTable doubtfulTable() {
    const auto n = [](double number) { return numberCell(number); };
    const std::vector<ForeignTable> tables{
        {"1\t2\n3\tx\n4\t5\n",
         {{n(1), n(2)}, {n(3), {}}, {n(4), n(5)}},
         {},
         {{ImportDoubt::words, 0}}},
        {"1,5\t7\n2,25\t8\n",
         {{n(1.5), n(7)}, {n(2.25), n(8)}},
         {},
         {{ImportDoubt::decimalMark, 1}}},
        {"Size\tB2\n3\t4\n", {{n(3), n(4)}}, {"Size", "B2"}, {{ImportDoubt::headingPlace, 0}}},
        {"Size\tB2\n3\t4\n", {{n(3), n(4)}}, {}, {{ImportDoubt::headingPlace, 1}}},
        {"5%\t1\n25%\t2\n", {{n(0.05), n(1)}, {n(0.25), n(2)}}, {}, {{ImportDoubt::percent, 1}}},
        {"NA\t2\n4\t5\n", {{{}, n(2)}, {n(4), n(5)}}, {}, {{ImportDoubt::missing, 0}}},
        {"1 500\t2\n3\t4\n", {{n(1500), n(2)}, {n(3), n(4)}}, {}, {{ImportDoubt::blankGroups, 0}}},
        {"1;2\n3;4\n", {{n(1), n(2)}, {n(3), n(4)}}, {}, {{ImportDoubt::separator, 0}}},
        {"1\t2\n3\n", {{n(1), n(2)}, {n(3), {}}}, {}, {{ImportDoubt::shortRows, 0}}}};
    ForeignTable table = tables[static_cast<std::size_t>(upTo(8))];
    table.inDoubt = true;
    return table;
  }

  void pasteIntoModel(const ForeignTable& table, CellAddress at) {
    for (int c = 0; c < std::ssize(table.headings); ++c)
      model_.put(0, at.column + c, textCell(table.headings[static_cast<std::size_t>(c)]));
    for (int r = 0; r < std::ssize(table.cells); ++r)
      for (int c = 0; c < std::ssize(table.cells[0]); ++c)
        model_.put(at.row + r, at.column + c,
                   table.cells[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]);
  }

  void fillDown() {
    CellRange block = mark(1, 0);
    if (block.first.row == block.last.row) --block.first.row;
    tell("fill down " + named(block.first) + " to " + named(block.last));
    const SheetModel before = model_;
    step([&] {
      each(block, [&](int r, int c) {
        if (block.first.row == 0 || r == block.first.row) return;
        ModelCell cell = model_.moved(before.at(block.first.row, c), r - block.first.row, 0);
        if (cell.kind == Kind::random) cell.number = unseen;
        model_.put(r, c, cell);
      });
      command('D', editor_.menu.mnuEditFillDown);
    });
  }

  void replaceAll() {
    tell("replace w by v");
    window("frmFind", [this](Window& window) {
      dynamic_cast<frmFind&>(window).chkCase.setValue(1);  // AW is a column
      user_.type("frmFind", "txtFind", "w");
      user_.type("frmFind", "txtReplace", "v");
      user_.click("frmFind", "cmdReplaceAll");
      user_.click("frmFind", "cmdClose");
    });
    step([&] {
      for (auto& [place, cell] : model_.cells) std::ranges::replace(cell.text, 'w', 'v');
      command('F', editor_.menu.mnuEditFind);
    });
  }

  // --- rows

  void insertRows() {
    const CellRange block = mark(oneIn(8) ? 0 : 1, 0);
    tell("insert rows " + named(block.first) + " to " + named(block.last));
    if (block.first.row == 0) {
      box("", Answer::ok);
      return choose(editor_.menu.mnuEditInsertRow);
    }
    step([&] {
      model_.insertRows(block.first.row, block.last.row - block.first.row + 1);
      choose(editor_.menu.mnuEditInsertRow);
    });
  }

  // The test before a deletion looks at the columns of a block.
  void deleteRows() {
    const CellRange block = mark(oneIn(8) ? 0 : 1, 0);
    tell("delete rows " + named(block.first) + " to " + named(block.last));
    const bool refused = block.first == block.last ? block.first.row == 0 : block.first.column == 0;
    if (refused) {
      box("", Answer::ok);
      return choose(editor_.menu.mnuEditDeleteRow);
    }
    step([&] {
      model_.deleteRows(block.first.row, block.last.row);
      choose(editor_.menu.mnuEditDeleteRow);
    });
  }

  void sort() {
    const int key = oneIn(5) ? 0 : column();
    const bool ascending = oneIn(2), asks = editor_.sheet().orderDependentFormulas() > 0;
    const bool wants = !oneIn(5), agrees = !asks || !oneIn(4);
    tell("sort by " + columnLetters(key) + (ascending ? "" : " down") +
         (wants && agrees ? "" : ", called off"));
    window("frmSortOptions", [=, this](Window& window) {
      auto& dialog = dynamic_cast<frmSortOptions&>(window);
      if (model_.columns() > 5)
        dialog.cmboSortVbl.setListIndex(key);
      else
        (key == 0 ? dialog.optSortByLabel : dialog.optSortBy(key)).setValue(true);
      (ascending ? dialog.optAscending : dialog.optDescending).setValue(true);
      if (wants) user_.click("frmSortOptions", "cmdOK");
      if (!wants || !agrees) user_.click("frmSortOptions", "cmdCancel");
    });
    if (wants && asks) box("Sort", agrees ? Answer::ok : Answer::cancel);
    step([&] {
      const std::vector<int> order = sortedOrder(key, ascending);
      if (wants && agrees && !std::ranges::is_sorted(order)) model_.reorder(order);
      choose(editor_.menu.mnuOptionSort);
    });
  }

  std::vector<int> sortedOrder(int key, bool ascending) const {
    struct Key {
      std::string shown;
      std::optional<double> number;
    };
    const SheetModel::Values values = model_.values();
    std::vector<Key> keys;
    std::vector<int> order;
    for (int r = 1; r <= model_.lastUsedRow(); ++r) {
      order.push_back(r - 1);
      Key& one = keys.emplace_back(Key{editor_.spdData.text(r + 1, key + 1), {}});
      const bool isDigits = one.shown.find_first_not_of("0123456789") == std::string::npos;
      if (const auto value = values.find({r, key}); value != values.end())
        one.number = value->second;
      else if (!one.shown.empty() && isDigits)
        one.number = std::stoi(one.shown);
    }
    const auto before = [](const Key& one, const Key& other) {
      if (one.number && other.number) return *one.number < *other.number;
      if (one.number || other.number) return one.number.has_value();
      return one.shown < other.shown;
    };
    std::ranges::stable_sort(order, [&](int left, int right) {
      const Key& one = keys[static_cast<std::size_t>(left)];
      const Key& other = keys[static_cast<std::size_t>(right)];
      if (one.shown.empty() || other.shown.empty())
        return !one.shown.empty() && other.shown.empty();
      return ascending ? before(one, other) : before(other, one);
    });
    return order;
  }

  // --- formats, title, and the rest

  void format() {
    const int digits = upTo(5);
    const bool all = oneIn(2), wants = !oneIn(4);
    tell("standard format " + std::to_string(digits) + (all ? " all" : "") + (wants ? "" : " no"));
    window("frmNumericFormat", [=, this](Window& window) {
      auto& dialog = dynamic_cast<frmNumericFormat&>(window);
      dialog.spnDecDigits(0).setValue(digits);
      dialog.optCols(all ? 0 : 1).setValue(true);
      user_.click("frmNumericFormat", wants ? "cmdOK" : "cmdCancel");
    });
    step([&] {
      for (std::size_t c = 1; wants && c < model_.decimals.size(); ++c)
        if (all || model_.decimals[c] == model_.standard) model_.decimals[c] = digits;
      if (wants) model_.standard = digits;
      choose(editor_.menu.mnuOptionFormatStd);
    });
  }

  void formatColumns() {
    const std::map<int, int> digits{{column(), upTo(5)}, {column(), upTo(5)}};
    const bool wants = !oneIn(4);
    tell("format of " + std::to_string(digits.size()) + " columns" + (wants ? "" : " called off"));
    window("frmNumericFormat", [=, this](Window& window) {
      auto& dialog = dynamic_cast<frmNumericFormat&>(window);
      const bool isList = model_.columns() > 5;
      for (const auto& [column, number] : digits) {
        if (isList) dialog.cmboVblNames.setListIndex(column - 1);
        dialog.spnDecDigits(isList ? 0 : column).setValue(number);
      }
      user_.click("frmNumericFormat", wants ? "cmdOK" : "cmdCancel");
    });
    step([&] {
      for (const auto& [column, number] : digits)
        if (wants) model_.decimals[static_cast<std::size_t>(column)] = number;
      choose(editor_.menu.mnuOptionFormatCol);
    });
  }

  // Letters typed one after another are one step.
  void retitle() {
    const std::string title = "Title " + std::to_string(actions_);
    tell(title);
    step([&] {
      model_.title = title;
      user_.type("frmDataEditor", "txtTitle", title.substr(0, 6));
      user_.type("frmDataEditor", "txtTitle", title);
      key(keys::tab);
      EXPECT_EQ(editor_.focus(), &editor_.spdData);
    });
  }

  void lookAround() {
    const int what = upTo(4);
    tell("looks around " + std::to_string(what));
    if (what == 0) choose(editor_.menu.mnuEditTypingReplaces);
    if (what == 1) desktop_.advance(1500);
    if (what == 2) key(keys::f1);
    if (what == 3) {
      choose(editor_.menu.mnuHelpInstructText);
      user_.click("frmDataEditor", "cmdClose");
    }
    for (int i = upTo(9); i >= 0; --i) key(keys::pageUp + upTo(7), oneIn(3));
  }
};

}  // namespace tolmer::test
