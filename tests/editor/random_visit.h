// A student at the editor's window, beside a model that is too simple to be wrong: what he has in
// his hands, what he expects to come up, and what must hold after each of his actions.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "editor/data_editor.h"
#include "editor/data_sheet_model.h"
#include "editor/import_dialog.h"
#include "sheetfiles/editor_file.h"
#include "support/headless_user.h"
#include "support/temp_folder.h"
#include "textimport/typed_number.h"

namespace tolmer::test {

inline std::string named(int row, int column) {
  return columnLetters(column) + std::to_string(row);
}
inline std::string named(CellAddress at) { return named(at.row, at.column); }

// To the last bit: -0 is another than 0 here.
inline void expectSameBits(const SheetContent& content, const SheetContent& wanted) {
  ASSERT_EQ(editorFileBytes(content), editorFileBytes(wanted));
  ASSERT_TRUE(content == wanted);
}

// Gives every question the answer that is wanted, else its first.
inline void answer(frmTextImport& dialog, const std::map<ImportDoubt, int>& answers) {
  for (int i = 1; i <= dialog.cmboAnswer.last(); ++i) {
    ComboBox& box = dialog.cmboAnswer(i);
    const auto wanted = answers.find(static_cast<ImportDoubt>(i - 1));
    EXPECT_TRUE(box.visible() || wanted == answers.end()) << "question " << i;
    if (wanted != answers.end())
      box.setListIndex(wanted->second);
    else if (box.visible() && box.listIndex() < 0)
      box.setListIndex(0);
  }
}

class RandomVisit {
 public:
  RandomVisit(unsigned seed, int rows, int columns)
      : seed_(seed),
        random_(seed),
        model_(rows, columns),
        startModel_(model_),
        region_{std::min(rows, 12), std::min(columns, 7)} {
    desktop_.onMessageBox = [this](const MessageBox& box) {
      return take(box.title, box.text).answer;
    };
    desktop_.onModal = [this](Window& window) {
      take(window.name(), window.caption()).actions(window);
    };
    desktop_.onOpenFile = desktop_.onSaveFile = [this](const FileQuestion&) { return chosenFile_; };
    for (frmDataEditor* editor : {&editor_, &other_}) {
      editor->setNumberVariables(static_cast<Int16>(columns));
      editor->setMaxObservations(static_cast<Int16>(rows));
      editor->SetupEditor();
    }
  }

  // Seed, number of the action, and what the last ones were.
  std::string story() const {
    std::string text = "seed " + std::to_string(seed_) + ", action " + std::to_string(actions_);
    for (const std::string& line : log_) text += "\n  " + line;
    return text;
  }

  int actions() const { return actions_; }

 protected:
  using Kind = ModelCell::Kind;
  struct State {
    SheetModel model;
    bool whole;  // New or Open, which the file's name belongs to
  };
  struct Saved {
    SheetContent content;
    SheetModel model;
  };
  struct Coming {
    std::string name;  // of a window, or a box's title
    Answer answer;
    std::function<void(Window&)> actions;
  };

  void tell(const std::string& what) {
    log_.push_back(std::to_string(actions_) + " " + what);
    if (log_.size() > 12) log_.pop_front();
  }

  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }
  bool oneIn(int number) { return upTo(number - 1) == 0; }
  int row() { return 1 + upTo(region_.row - 1) + corner_.row; }
  int column() { return 1 + upTo(region_.column - 1) + corner_.column; }
  // What the next action brings up.
  void box(std::string title, Answer answer) { coming_.push_back({std::move(title), answer, {}}); }
  void window(std::string name, std::function<void(Window&)> actions) {
    coming_.push_back({std::move(name), Answer::ok, std::move(actions)});
  }

  Coming take(const std::string& name, const std::string& text) {
    if (coming_.empty() || coming_.front().name != name)
      throw std::runtime_error("unexpected \"" + name + "\" (" + text + ")" +
                               (coming_.empty() ? "" : ", expected " + coming_.front().name));
    Coming coming = std::move(coming_.front());
    coming_.pop_front();
    return coming;
  }

  // The import dialog is to come; it is answered, and called off where the text is not wanted.
  void importDialog(const std::map<ImportDoubt, int>& answers, bool accepts) {
    window("frmTextImport", [this, answers, accepts](Window& window) {
      answer(dynamic_cast<frmTextImport&>(window), answers);
      user_.click("frmTextImport", accepts ? "cmdOK" : "cmdCancel");
    });
  }

  // --- the hand on keys and mouse

  void key(int code, bool shift = false) { user_.key("frmDataEditor", {code, shift}); }
  void go(int row, int column) {
    if (editor_.focus() != &editor_.spdData) editor_.spdData.setFocus();
    editor_.spdData.press({row + 1, column + 1});
  }

  void command(int code, MenuItem& item) {
    if (editor_.focus() != &editor_.spdData) editor_.spdData.setFocus();
    if (item.enabled() && oneIn(2)) return item.click();
    user_.key("frmDataEditor", {.code = code, .control = true});
  }

  void choose(MenuItem& item) {
    ASSERT_TRUE(item.enabled()) << item.name();
    item.click();
  }

  // A block of up to 4 x 4 cells, marked by mouse or keys.
  CellRange mark(int firstRow, int firstColumn) {
    CellRange block{{firstRow == 0 ? upTo(2) : row(), firstColumn == 0 && oneIn(6) ? 0 : column()},
                    {}};
    block.last = {std::min(block.first.row + upTo(3), model_.rows()),
                  std::min(block.first.column + upTo(3), model_.columns())};
    if (oneIn(4)) block.last = block.first;
    markBlock(block);
    return block;
  }

  void markBlock(const CellRange& block) {
    go(block.first.row, block.first.column);
    if (block.first == block.last) return;
    if (oneIn(2))
      return editor_.spdData.press({block.last.row + 1, block.last.column + 1},
                                   {.shift = true, .control = false});
    for (int r = block.first.row; r < block.last.row; ++r) key(keys::down, true);
    for (int c = block.first.column; c < block.last.column; ++c) key(keys::right, true);
  }

  template <class Work>
  static void each(const CellRange& block, Work work) {
    for (int r = block.first.row; r <= block.last.row; ++r)
      for (int c = block.first.column; c <= block.last.column; ++c) work(r, c);
  }

  // --- what holds after each action

  void checkAction() {
    for (const Coming& coming : coming_) ADD_FAILURE() << coming.name << " never came";
    compareCells();
    if (actions_ % 4 == 0) compareGrid();
    if (testing::Test::HasFailure()) throw std::runtime_error("the sheet is not what it should be");
  }

  void compareCells() {
    for (auto& [place, cell] : model_.cells)
      if (cell.kind == Kind::random && std::isnan(cell.number))
        cell.number = editor_.sheet().value(place.first, place.second).value_or(-1);
    const SheetModel::Values values = model_.values();
    const bool isSmall = model_.rows() * model_.columns() < 100;
    if (isSmall || actions_ % 16 == 0) {
      each({{0, 0}, {model_.rows(), model_.columns()}},
           [&](int r, int c) { compareCell(r, c, values); });
    } else {
      for (const auto& cell : model_.cells)
        compareCell(cell.first.first, cell.first.second, values);
    }
    const DataSheet& sheet = editor_.sheet();
    for (int c = 1; c <= model_.columns(); ++c)
      ASSERT_EQ(sheet.decimals(c), model_.decimals[static_cast<std::size_t>(c)]) << named(0, c);
    ASSERT_EQ(sheet.miStdDecDigits(), model_.standard);
    ASSERT_EQ(sheet.title(), model_.title);
    ASSERT_EQ(sheet.mtFileName(), model_.file);
    ASSERT_TRUE(sheet.changeMade() || sheet.content() == unchanged_);
    ASSERT_EQ(editor_.menu.mnuEditUndo.enabled(), !past_.empty());
    ASSERT_EQ(editor_.menu.mnuEditRedo.enabled(), !future_.empty());
  }

  void compareCell(int row, int column, const SheetModel::Values& values) {
    const ModelCell& cell = model_.at(row, column);
    const DataCell& held = editor_.sheet().cell(row, column);
    const auto wanted = values.find({row, column});
    const auto value = editor_.sheet().value(row, column);
    ASSERT_EQ(value.has_value(), wanted != values.end()) << named(row, column) << held.text;
    ASSERT_TRUE(!value || std::bit_cast<std::uint64_t>(*value) ==
                              std::bit_cast<std::uint64_t>(wanted->second))
        << named(row, column) << held.text << ' ' << *value << ' ' << wanted->second;
    ASSERT_EQ(held.kind == DataCell::Kind::empty, cell.kind == Kind::empty) << named(row, column);
    ASSERT_EQ(held.kind == DataCell::Kind::formula, cell.isFormula()) << named(row, column);
    const std::string text = cell.isFormula() ? model_.formulaText(cell) : cell.text;
    ASSERT_TRUE(text.empty() || held.text == text)
        << named(row, column) << " is " << held.text << ", not " << text;
  }

  std::string shownText(int row, int column, const SheetModel::Values& values) const {
    const ModelCell& cell = model_.at(row, column);
    const auto value = values.find({row, column});
    if (value == values.end()) return cell.isFormula() ? "#" : cell.text;
    return shownNumber(value->second, model_.decimals[static_cast<std::size_t>(column)]);
  }

  // What the student sees.
  void compareGrid() const {
    const SheetModel::Values values = model_.values();
    each({{0, 0}, {corner_.row + region_.row, corner_.column + region_.column}}, [&](int r, int c) {
      const std::string wanted = shownText(r, c, values);
      const std::string& shown = editor_.spdData.text(r + 1, c + 1);
      ASSERT_EQ(wanted == "#" ? shown.substr(0, 1) : shown, wanted) << named(r, c);
    });
    ASSERT_EQ(editor_.txtTitle.text(), model_.title);
    const std::string file = model_.file.substr(model_.file.rfind('/') + 1);
    ASSERT_EQ(editor_.caption(), file.empty() ? "Data Editor" : "Data Editor [" + file + "]");
    ASSERT_EQ(editor_.menu.mnuFileSave.enabled(), !file.empty());
  }

  // --- undo

  // What the student did counts as a step of undo where the sheet has become another.
  template <class Action>
  void step(Action action) {
    const SheetModel before = model_;
    const SheetContent content = editor_.sheet().content();
    const Int16 standard = editor_.sheet().miStdDecDigits();
    action();
    if (editor_.sheet().content() != content || editor_.sheet().miStdDecDigits() != standard)
      remember(before);
  }

  void remember(SheetModel before, bool whole = false) {
    past_.push_back({std::move(before), whole});
    future_.clear();
  }

  void undo() {
    tell("undo");
    command('Z', editor_.menu.mnuEditUndo);
    if (past_.empty()) return;
    const std::string file = model_.file;
    future_.push_back({std::exchange(model_, std::move(past_.back().model)), past_.back().whole});
    if (!past_.back().whole) model_.file = file;
    past_.pop_back();
  }

  void redo() {
    tell("redo");
    command('Y', editor_.menu.mnuEditRedo);
    if (future_.empty()) return;
    const std::string file = model_.file;
    past_.push_back({std::exchange(model_, std::move(future_.back().model)), future_.back().whole});
    if (!future_.back().whole) model_.file = file;
    future_.pop_back();
  }

  // Everything again, everything back to the start of the visit, and again everything.
  void undoEverything() {
    while (!future_.empty()) redo();
    checkAction();
    const SheetContent end = editor_.sheet().content();
    while (!past_.empty()) undo();
    checkAction();
    expectSameBits(editor_.sheet().content(), start_);
    while (!future_.empty()) redo();
    checkAction();
    expectSameBits(editor_.sheet().content(), end);
  }

  unsigned seed_;
  std::mt19937 random_;
  TempFolder folder_{placeForFiles()};
  HeadlessDesktop desktop_;
  HeadlessUser user_{desktop_};
  frmDataEditor editor_{desktop_, {folder_.path() + "/tolmod", nullptr}};
  frmDataEditor other_{desktop_, {folder_.path() + "/tolmod", nullptr}};
  SheetModel model_, startModel_;
  CellAddress region_, corner_{0, 0};  // where it all happens, to be dense
  std::vector<State> past_, future_;
  std::map<std::string, Saved> files_;
  std::map<std::string, SheetModel> texts_;  // what opening them gives
  std::optional<std::string> chosenFile_;
  SheetContent start_, unchanged_;
  std::deque<Coming> coming_;
  std::deque<std::string> log_;
  int actions_ = 0;
  bool inside_ = false;
  bool handsOut_ = false;
};

}  // namespace tolmer::test
