// A user who does anything in any order, beside a model that is too simple to be wrong.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "editor/data_sheet.h"
#include "editor/data_sheet_model.h"
#include "formula/formula_tokens.h"

namespace tolmer {
namespace {

using test::ModelCell;
using test::SheetModel;
using Kind = ModelCell::Kind;

std::string addressText(const ModelCell::Place& place) {
  return columnLetters(place.column) + (place.fixed ? "$" : "") + std::to_string(place.row);
}

class RandomUser {
 public:
  RandomUser(unsigned seed, int rows, int columns)
      : random_(seed), sheet_(rows, columns), model_(rows, columns), shown_(sheetTexts()) {
    sheet_.Changed = [this](const SheetChange& change) { show(change); };
    startVisit();
  }

  void act() {
    const int choice = upTo(99);
    if (choice < 40)
      enter();
    else if (choice < 46)
      clear();
    else if (choice < 54)
      pasteForeign();
    else if (choice < 62)
      pasteCopied();
    else if (choice < 66)
      insertOrDelete();
    else if (choice < 69)
      sort();
    else if (choice < 72)
      format();
    else if (choice < 74)
      rename();
    else if (choice < 75)
      whole();
    else if (choice < 90)
      undo();
    else if (choice < 97)
      redo();
    else
      save();
  }

  // The sheet shows and holds what the model does.
  void compare() const {
    const auto values = model_.values();
    for (int r = 0; r <= model_.rows(); ++r)
      for (int c = 0; c <= model_.columns(); ++c)
        compareCell(r, c, values[static_cast<std::size_t>(r)][static_cast<std::size_t>(c)]);
    for (int c = 1; c <= model_.columns(); ++c)
      ASSERT_EQ(sheet_.decimals(c), model_.decimals[static_cast<std::size_t>(c)]);
    ASSERT_EQ(sheet_.miStdDecDigits(), model_.standard);
    ASSERT_EQ(sheet_.title(), model_.title);
    ASSERT_EQ(shown_, sheetTexts()) << "a change was not told";
    ASSERT_TRUE(sheet_.changeMade() || sheet_.content() == saved_);
  }

  // Everything back, everything again, and now and then the visit given up.
  void endVisit() {
    while (sheet_.redo()) {
    }
    if (!future_.empty()) model_ = future_.front();
    const SheetContent end = sheet_.content();
    while (sheet_.undo()) ++undone_;
    ASSERT_TRUE(sheet_.content() == start_);
    ASSERT_EQ(shown_, sheetTexts());
    while (sheet_.redo()) {
    }
    ASSERT_TRUE(sheet_.content() == end);
    if (upTo(3) == 0) {
      sheet_.restoreVisitStart();
      ASSERT_TRUE(sheet_.content() == start_);
      ASSERT_FALSE(sheet_.changeMade());
      saved_ = start_;
      model_ = startModel_;
    }
    startVisit();
  }
  int undone() const { return undone_; }

 private:
  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
  int row() { return 1 + upTo(model_.rows() - 1); }
  int column() { return 1 + upTo(model_.columns() - 1); }

  void startVisit() {
    sheet_.startVisit();
    start_ = sheet_.content();
    startModel_ = model_;
    if (!sheet_.changeMade()) saved_ = start_;
    past_.clear();
    future_.clear();
  }

  void remember(SheetModel before) {
    past_.push_back(std::move(before));
    future_.clear();
  }
  // What the user did counts as a step where the sheet says so.
  template <class Action>
  void step(Action action) {
    const SheetModel before = model_;
    const SheetContent content = sheet_.content();
    const Int16 standard = sheet_.miStdDecDigits();
    action();
    if (sheet_.content() != content || sheet_.miStdDecDigits() != standard) remember(before);
  }

  std::vector<std::string> sheetTexts() const {
    std::vector<std::string> texts;
    for (int r = 0; r <= sheet_.observations(); ++r)
      for (int c = 0; c <= sheet_.variables(); ++c) texts.push_back(sheet_.shownText(r, c));
    return texts;
  }
  void show(const SheetChange& change) {
    if (change.all) shown_ = sheetTexts();
    const auto put = [&](int r, int c) {
      shown_[static_cast<std::size_t>(r * (sheet_.variables() + 1) + c)] = sheet_.shownText(r, c);
    };
    for (const CellAddress cell : change.cells) put(cell.row, cell.column);
    for (const int column : change.decimals)
      for (int r = 1; r <= sheet_.observations(); ++r) put(r, column);
  }

  void compareCell(int r, int c, std::optional<double> value) const {
    const ModelCell& cell = model_.at(r, c);
    const DataCell& held = sheet_.cell(r, c);
    const auto place = [&] { return "row " + std::to_string(r) + " column " + std::to_string(c); };
    ASSERT_EQ(sheet_.value(r, c), value) << place() << ' ' << held.text;
    ASSERT_EQ(held.kind == DataCell::Kind::empty, cell.kind == Kind::empty) << place();
    ASSERT_EQ(held.kind == DataCell::Kind::formula, cell.isFormula()) << place();
    ASSERT_TRUE(cell.kind != Kind::text || held.text == cell.text) << place();
  }

  // A formula and its text; text alone where names are not clear.
  std::pair<ModelCell, std::string> randomFormula() {
    ModelCell cell;
    cell.a = {row(), column(), upTo(3) == 0};
    cell.b = {row(), column(), upTo(3) == 0};
    const int kind = upTo(4);
    if (kind == 0 && nameIsClear(cell.a.column)) {
      cell.kind = Kind::plusOne;
      return {cell, "=" + bracketedName(model_.at(0, cell.a.column).text) + "+1"};
    }
    if (kind <= 2) {
      cell.kind = Kind::difference;
      return {cell, "=" + addressText(cell.a) + ":" + addressText(cell.a) + " - " +
                        addressText(cell.b) + ":" + addressText(cell.b)};
    }
    cell.kind = Kind::maximum;
    cell.b.column = cell.a.column;
    if (cell.a.row > cell.b.row) std::swap(cell.a.row, cell.b.row);
    if (upTo(2) == 0)
      cell.a = {1, cell.a.column, true}, cell.b = {model_.rows(), cell.a.column, true};
    return {cell, "=MAX(" + addressText(cell.a) + ":" + addressText(cell.b) + ")"};
  }
  bool nameIsClear(int column) const {
    const std::string name = foldedName(model_.at(0, column).text);
    int alike = 0;
    for (int c = 0; c <= model_.columns(); ++c) alike += foldedName(model_.at(0, c).text) == name;
    return !name.empty() && alike == 1;
  }

  void enter() {
    const int r = row(), c = column(), kind = upTo(9);
    if (kind == 0) {
      const std::string label =
          upTo(2) == 0 ? "  " : std::to_string(upTo(30)) + (upTo(1) ? "a" : "");
      return step([&] { enterText(r, 0, label); });
    }
    if (kind == 1) {
      const std::string before = sheet_.editText(r, c);
      EXPECT_FALSE(sheet_.enter(r, c, "1,5").accepted || sheet_.enter(r, c, "=(").accepted);
      EXPECT_EQ(sheet_.editText(r, c), before);
    } else if (kind <= 5) {
      const int number = upTo(200) - 100;
      step([&] {
        model_.at(r, c) = {.kind = Kind::number, .number = number / 8.0};
        EXPECT_TRUE(sheet_.enter(r, c, std::to_string(number * 125) + "e-3 ").accepted);
      });
    } else {
      const auto [cell, text] = randomFormula();
      if (text != sheet_.editText(r, c))
        step([&, cell = cell, text = text] {
          model_.at(r, c) = cell;
          const EntryOutcome outcome = sheet_.enter(r, c, text);
          EXPECT_TRUE(outcome.accepted) << text << ' ' << outcome.reason;
        });
    }
  }
  void enterText(int r, int c, const std::string& text) {
    const bool blank = text.find_first_not_of(' ') == std::string::npos;
    model_.at(r, c) = blank ? ModelCell{} : ModelCell{.kind = Kind::text, .text = text};
    EXPECT_TRUE(sheet_.enter(r, c, text).accepted);
  }
  void rename() {
    static const std::vector<std::string> names{"B2", "Var2", "height", "x]y", "", "C3", "VAR1"};
    step([&] { enterText(0, upTo(model_.columns()), names[static_cast<std::size_t>(upTo(6))]); });
  }

  CellRange block(int firstRow) {
    CellRange block{{firstRow + upTo(model_.rows() - firstRow), upTo(model_.columns())}, {}};
    block.last = {std::min(block.first.row + upTo(3), model_.rows()),
                  std::min(block.first.column + upTo(3), model_.columns())};
    return block;
  }
  template <class Work>
  void each(const CellRange& block, Work work) {
    for (int r = block.first.row; r <= block.last.row; ++r)
      for (int c = block.first.column; c <= block.last.column; ++c) work(r, c);
  }

  void clear() {
    const CellRange cleared = block(upTo(9) == 0 ? 0 : 1);
    step([&] {
      each(cleared, [&](int r, int c) { model_.at(r, c) = {}; });
      sheet_.clear(cleared);
      EXPECT_TRUE(sheet_.changeMade());
    });
  }

  void pasteForeign() {
    PasteTable table;
    table.cells.resize(upTo(3), upTo(3));
    for (int r = 0; r < table.rows(); ++r)
      for (int c = 0; c < table.columns(); ++c) {
        const int kind = upTo(3);
        if (kind == 1) table.cells(r, c) = {.kind = DataCell::Kind::text, .text = "w"};
        if (kind > 1) table.cells(r, c) = {.kind = DataCell::Kind::number, .number = 1.0 * upTo(9)};
      }
    const CellAddress at{1 + upTo(model_.rows() - 1), upTo(model_.columns())};
    step([&] {
      int refused = 0;
      if (fits(table, at)) refused = pasteIntoModel(table, at);
      const PasteOutcome outcome = sheet_.paste({at, at}, table);
      EXPECT_EQ(outcome.pasted, fits(table, at));
      EXPECT_EQ(outcome.refused, refused);
    });
  }
  bool fits(const PasteTable& table, CellAddress at) const {
    for (int r = 0; r < table.rows(); ++r)
      for (int c = 0; c < table.columns(); ++c) {
        const bool inside = at.row + r <= model_.rows() && at.column + c <= model_.columns();
        if (!inside && table.cells(r, c).kind != DataCell::Kind::empty) return false;
      }
    return true;
  }
  int pasteIntoModel(const PasteTable& table, CellAddress at) {
    int refused = 0;
    each({at,
          {std::min(at.row + table.rows() - 1, model_.rows()),
           std::min(at.column + table.columns() - 1, model_.columns())}},
         [&](int r, int c) {
           const DataCell& from = table.cells(r - at.row, c - at.column);
           ModelCell& cell = model_.at(r, c);
           if (from.kind == DataCell::Kind::empty)
             cell = {};
           else if (from.kind == DataCell::Kind::text && c > 0)
             ++refused;
           else if (from.kind == DataCell::Kind::text)
             cell = {.kind = Kind::text, .text = "w"};
           else if (c == 0)
             cell = {.kind = Kind::text, .text = std::to_string(static_cast<int>(from.number))};
           else
             cell = {.kind = Kind::number, .number = from.number};
         });
    return refused;
  }

  // Values to values, once or filling a larger block.
  void pasteCopied() {
    CellRange from = block(1);
    from.first.column = std::max(from.first.column, 1);
    from.last.column = std::max(from.last.column, from.first.column);
    const int height = from.last.row - from.first.row + 1;
    const CopiedBlock copied = sheet_.copy(from);
    const SheetModel before = model_;
    const int fills = 1 + upTo(1);
    CellRange to{{row(), column()}, {}};
    to.last = {std::min(to.first.row + fills * height - 1, model_.rows()), to.first.column};
    const int times =
        copied.table.columns() == 1 && (to.last.row - to.first.row + 1) == fills * height ? fills
                                                                                          : 1;
    step([&] {
      if (!sheet_.paste(to, copied.table).pasted) return;
      for (int t = 0; t < times; ++t)
        each(from, [&](int r, int c) {
          const int down = to.first.row + t * height - from.first.row;
          const int right = to.first.column - from.first.column;
          if (r + down > model_.rows() || c + right > model_.columns()) return;
          model_.at(r + down, c + right) = model_.moved(before.at(r, c), down, right);
        });
    });
  }

  void insertOrDelete() {
    const int first = row();
    const int last = std::min(first + upTo(2), model_.rows());
    step([&] {
      if (upTo(1) == 0) {
        model_.insertRows(first, last - first + 1);
        sheet_.insertRows(first, last);
      } else {
        model_.deleteRows(first, last - first + 1);
        sheet_.deleteRows(first, last);
      }
    });
  }

  void sort() {
    const int key = upTo(model_.columns());
    const bool ascending = upTo(1) == 0, values = upTo(1) == 0;
    step([&] {
      const std::vector<int> order = sortedOrder(key, ascending);
      if (!std::ranges::is_sorted(order)) model_.reorder(order, values);
      sheet_.sort(key, ascending, values ? SortedFormulas::madeValues : SortedFormulas::moved);
    });
  }
  std::vector<int> sortedOrder(int key, bool ascending) const {
    std::vector<int> order;
    for (int r = 0; r < model_.lastUsedRow(); ++r) order.push_back(r);
    const auto shown = [&](int i) { return sheet_.shownText(i + 1, key); };
    const auto number = [&](int i) -> std::optional<double> {
      if (key > 0) return sheet_.value(i + 1, key);
      const std::string label = shown(i);
      if (label.empty() || label.find_first_not_of("0123456789") != std::string::npos) return {};
      return std::stoi(label);
    };
    const auto before = [&](int one, int other) {
      const auto left = number(one), right = number(other);
      if (left && right) return *left < *right;
      if (left || right) return left.has_value();
      return shown(one) < shown(other);
    };
    std::ranges::stable_sort(order, [&](int one, int other) {
      const bool blank = shown(one).empty(), otherBlank = shown(other).empty();
      if (blank || otherBlank) return otherBlank && !blank;
      return ascending ? before(one, other) : before(other, one);
    });
    return order;
  }

  void format() {
    const auto digits = static_cast<Int16>(upTo(5));
    const int c = column();
    const bool standard = upTo(1) == 0, all = upTo(1) == 0;
    step([&] {
      if (!standard) {
        sheet_.setDecimals(c, digits);
        model_.decimals[static_cast<std::size_t>(c)] = digits;
        return;
      }
      sheet_.setStandardDecimals(digits, all);
      for (std::size_t i = 1; i < model_.decimals.size(); ++i)
        if (all || model_.decimals[i] == model_.standard) model_.decimals[i] = digits;
      model_.standard = digits;
    });
  }

  void whole() {
    const SheetModel before = model_;
    model_ = SheetModel(model_.rows(), model_.columns());
    if (upTo(1) == 0) {
      sheet_.clearAll();
    } else {
      SheetContent content(model_.rows(), model_.columns());
      content.title = model_.title = "T" + std::to_string(upTo(99));
      for (int i = 0; i < 20; ++i) {
        const int r = row(), c = column();
        content.cells(r, c) = {.kind = DataCell::Kind::number, .number = 1.5 * i};
        model_.at(r, c) = {.kind = Kind::number, .number = 1.5 * i};
      }
      sheet_.replaceWith(content, "file");
    }
    EXPECT_FALSE(sheet_.changeMade());
    saved_ = sheet_.content();
    remember(before);
  }
  void save() {
    sheet_.markSaved("file");
    saved_ = sheet_.content();
  }

  void undo() {
    ASSERT_EQ(sheet_.undo(), !past_.empty());
    if (past_.empty()) return;
    future_.push_back(std::exchange(model_, past_.back()));
    past_.pop_back();
  }
  void redo() {
    ASSERT_EQ(sheet_.redo(), !future_.empty());
    if (future_.empty()) return;
    past_.push_back(std::exchange(model_, future_.back()));
    future_.pop_back();
  }

  std::mt19937 random_;
  DataSheet sheet_;
  SheetModel model_;
  std::vector<std::string> shown_;
  std::vector<SheetModel> past_, future_;
  SheetContent start_, saved_;
  SheetModel startModel_ = model_;
  int undone_ = 0;
};

struct RandomRun {
  unsigned seed;
  int rows, columns, visits, actions;
};

class DataSheetRandomTest : public testing::TestWithParam<RandomRun> {};

TEST_P(DataSheetRandomTest, EqualsTheModelAndUndoesEverything) {
  const RandomRun run = GetParam();
  RandomUser user(run.seed, run.rows, run.columns);
  for (int visit = 0; visit < run.visits && !HasFailure(); ++visit) {
    for (int action = 0; action < run.actions && !HasFailure(); ++action) {
      SCOPED_TRACE("visit " + std::to_string(visit) + " action " + std::to_string(action));
      user.act();
      user.compare();
    }
    user.endVisit();
  }
  EXPECT_GT(user.undone(), run.visits);
}

INSTANTIATE_TEST_SUITE_P(Sheets, DataSheetRandomTest,
                         testing::Values(RandomRun{1, 6, 3, 200, 250}, RandomRun{2, 6, 3, 200, 250},
                                         RandomRun{3, 10, 5, 100, 500},
                                         RandomRun{4, 10, 5, 100, 500},
                                         RandomRun{5, 40, 6, 10, 200}));

}  // namespace
}  // namespace tolmer
