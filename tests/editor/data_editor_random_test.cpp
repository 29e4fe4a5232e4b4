// Students who do anything in any order through the editor's window: 200,000 actions, after each of
// which the sheet is what the model says.
#include <gtest/gtest.h>

#include "base/file_io.h"
#include "editor/random_edits.h"

namespace tolmer::test {
namespace {

// The sheet that the text of this one makes, where other programs' text can tell all of it.
std::optional<SheetModel> fromItsText(const SheetModel& model) {
  const SheetModel::Values values = model.values();
  SheetModel read(model.rows(), model.columns());
  bool labels = false, numbers = false;
  for (const auto& [place, cell] : model.cells) {
    const auto [r, c] = place;
    const auto value = values.find(place);
    if (r == 0 || c == 0) {
      labels = labels || r > 0;
      read.put(r, c, cell);
    } else if (value == values.end()) {
      return std::nullopt;
    } else {
      numbers = true;
      read.put(r, c, {.kind = ModelCell::Kind::number, .number = value->second});
    }
  }
  if (!labels) read.put(0, 0, {.kind = ModelCell::Kind::text, .text = "Label"});
  const bool manyColumns = model.lastUsedColumn() > (labels ? 0 : 1);
  if (!numbers || !manyColumns || read.at(0, 0).text != "Label") return std::nullopt;
  return read;
}

class RandomStudent : public RandomEdits {
 public:
  using RandomEdits::RandomEdits;

  // One visit, so many actions long or ended sooner by one of them, and what the host gets of it.
  // Throws at the first difference from the model.
  void visit(int actions) {
    tell("comes in");
    window("frmDataEditor", [this, actions](Window&) {
      startVisit();
      for (int i = 0; i < actions && inside_; ++i) act();
      if (!inside_) return;
      undoEverything();
      while (inside_) {
        leaveByCancel();
        checkAction();
      }
    });
    editor_.ShowDataEditor();
    ASSERT_FALSE(editor_.visible());
    checkHandedOut();
    checkAction();
  }

 private:
  void startVisit() {
    inside_ = true;
    start_ = editor_.sheet().content();
    startModel_ = model_;
    if (!editor_.sheet().changeMade()) unchanged_ = start_;
    past_.clear();
    future_.clear();
    const bool far = oneIn(4);
    corner_ = far ? CellAddress{model_.rows() - region_.row, model_.columns() - region_.column}
                  : CellAddress{0, 0};
  }

  void act() {
    ++actions_;
    const int choice = upTo(999);
    using Action = void (RandomStudent::*)();
    // The longest first; so many of a thousand.
    static const std::vector<std::pair<int, Action>> all{
        {335, &RandomStudent::type},        {170, &RandomStudent::undo},
        {90, &RandomStudent::redo},         {80, &RandomStudent::copyAndPaste},
        {70, &RandomStudent::pasteForeign}, {55, &RandomStudent::clear},
        {30, &RandomStudent::insertRows},   {25, &RandomStudent::deleteRows},
        {25, &RandomStudent::rename},       {20, &RandomStudent::sort},
        {15, &RandomStudent::lookAround},   {12, &RandomStudent::retitle},
        {12, &RandomStudent::format},       {12, &RandomStudent::formatColumns},
        {8, &RandomStudent::leaveByOK},     {5, &RandomStudent::leaveByCancel},
        {4, &RandomStudent::open},          {4, &RandomStudent::newSheet},
        {20, &RandomStudent::fillDown},     {5, &RandomStudent::replaceAll}};
    int reached = 0;
    for (const auto& [share, action] : all)
      if (choice < (reached += share)) {
        (this->*action)();
        return checkAction();
      }
    oneIn(4) ? saveText() : save(oneIn(2));
    checkAction();
  }

  // What the host reads once the window is closed.
  void checkHandedOut() {
    ASSERT_EQ(editor_.UserCancel(), !handsOut_);
    if (!handsOut_) return;
    const ModelCases cases = model_.cases();
    ASSERT_EQ(editor_.CompleteObservations(), std::ssize(cases.values));
    ASSERT_EQ(editor_.DataLabelsEntered(), cases.anyLabel);
    for (int i = 1; i <= std::ssize(cases.values); ++i) {
      const auto& values = cases.values[static_cast<std::size_t>(i) - 1];
      ASSERT_EQ(editor_.DataLabel(i), cases.labels[static_cast<std::size_t>(i) - 1]);
      for (int c = 1; c <= model_.columns(); ++c)
        ASSERT_EQ(editor_.DataValue(c, i), values.contains(c) ? values.at(c) : 0) << named(i, c);
    }
    for (int c = 0; c <= model_.columns(); ++c)
      ASSERT_EQ(editor_.VarHeader(c), model_.at(0, c).text) << c;
  }

  // --- the ways out

  // The question at both ways out, answered; whether the student goes.
  bool agreesToLose(const std::string& path) {
    if (!editor_.sheet().changeMade()) return true;
    const bool saves = oneIn(4);
    box("Data Changed", saves ? Answer::yes : Answer::no);
    chosenFile_ = saves && !oneIn(3) ? std::optional(path) : std::nullopt;
    return !saves || chosenFile_;
  }

  void leaveByOK() {
    tell("OK");
    const SheetModel before = model_;
    model_.nameBlankHeadings(model_.lastUsedColumn());
    const ModelCases cases = model_.cases();
    const std::string path = folder_.file("left.zmm");
    chosenFile_.reset();
    bool leaves = true;
    if (cases.incomplete > 0) {
      leaves = !oneIn(4);
      box("Missing Data", leaves ? Answer::ok : Answer::cancel);
    }
    if (leaves && cases.values.size() < 3) {
      leaves = oneIn(2);
      box("Not Enough Data", leaves ? Answer::yes : Answer::no);
      handsOut_ = false;
    } else if (leaves && cases.anyConstant) {
      leaves = false;
      box("Variable Error", Answer::ok);
    } else if (leaves) {
      leaves = handsOut_ = agreesToLose(path);
    }
    const SheetContent content = editor_.sheet().content();
    user_.click("frmDataEditor", "cmdOK");
    if (editor_.sheet().content() != content) {
      remember(before);
      if (!editor_.sheet().changeMade()) unchanged_ = editor_.sheet().content();
    }
    if (chosenFile_) savedAs(path);
    inside_ = !leaves;
  }

  void leaveByCancel() {
    tell("Cancel");
    const std::string path = folder_.file("left.zmm");
    chosenFile_.reset();
    const bool restores = editor_.sheet().changeMade();
    inside_ = !agreesToLose(path);
    handsOut_ = false;
    if (oneIn(2))
      user_.close("frmDataEditor");
    else
      user_.click("frmDataEditor", "cmdCancel");
    if (chosenFile_) savedAs(path);
    if (!restores || inside_) return;
    ASSERT_TRUE(editor_.visible()) << "the button has not flashed";
    desktop_.advance(3000);
    expectSameBits(editor_.sheet().content(), start_);
    ASSERT_FALSE(editor_.sheet().changeMade());
    model_ = startModel_;
    unchanged_ = start_;
    past_.clear();
    future_.clear();
  }

  // --- whole data sets

  void replaced(SheetModel by) {
    const SheetModel before = std::exchange(model_, std::move(by));
    remember(before, true);
    unchanged_ = editor_.sheet().content();
    ASSERT_FALSE(editor_.sheet().changeMade());
  }

  void newSheet() {
    tell("New");
    // Leaving the title's box counts as a change.
    const bool asks = editor_.sheet().changeMade() || editor_.sheet().unsaved() ||
                      editor_.focus() == &editor_.txtTitle;
    const bool agrees = !asks || !oneIn(3);
    if (asks) box("Data Changed", agrees ? Answer::ok : Answer::cancel);
    command('N', editor_.menu.mnuFileNew);
    if (agrees) replaced(SheetModel(model_.rows(), model_.columns()));
  }

  void save(bool as) {
    as = as || model_.file.empty();
    const std::string path =
        as ? folder_.file("file" + std::to_string(upTo(3)) + ".zmm") : model_.file;
    const bool calledOff = as && oneIn(4);
    tell((as ? "Save As " : "Save ") + path + (calledOff ? " called off" : ""));
    chosenFile_ = calledOff ? std::nullopt : std::optional(path);
    if (as && !model_.file.empty())
      choose(editor_.menu.mnuFileSaveAs);
    else if (oneIn(2))
      user_.click("frmDataEditor", "cmdSave");
    else
      user_.key("frmDataEditor", {.code = 'S', .control = true});
    if (!calledOff) savedAs(path);
  }

  void savedAs(const std::string& path) {
    model_.file = path;
    unchanged_ = editor_.sheet().content();
    files_.insert_or_assign(path, Saved{unchanged_, model_});
    ASSERT_FALSE(editor_.sheet().changeMade());
    if (oneIn(3)) loadElsewhere(path);
  }

  // For other programs; the data set's own file stays what it was.
  void saveText() {
    const std::string path = folder_.file("text" + std::to_string(upTo(1)) + ".csv");
    tell("Save As " + path);
    chosenFile_ = path;
    choose(editor_.menu.mnuFileSaveAs);
    texts_.erase(path);
    if (auto read = fromItsText(model_)) texts_.emplace(path, std::move(*read));
  }

  void loadElsewhere(const std::string& path) {
    chosenFile_ = path;
    window("frmDataEditor", [this](Window&) {
      other_.cmdOpen.click();
      other_.cmdCancel.click();
    });
    other_.ShowDataEditor();
    expectAsSaved(other_.sheet().content(), path);
  }

  // Blank headings have got their names, after which a formula may have to call its column
  // otherwise.
  void expectAsSaved(const SheetContent& content, const std::string& path) const {
    SheetContent wanted = files_.at(path).content;
    bool named = false;
    for (int c = 0; c <= wanted.variables(); ++c) {
      if (!wanted.cells(0, c).text.empty()) continue;
      named = true;
      wanted.cells(0, c) = {.kind = DataCell::Kind::text,
                            .text = c == 0 ? "Label" : "Var" + std::to_string(c)};
    }
    each({{1, 1}, {named ? wanted.observations() : 0, wanted.variables()}}, [&](int r, int c) {
      if (wanted.cells(r, c).kind == DataCell::Kind::formula)
        wanted.cells(r, c).text = content.cells(r, c).text;
    });
    EXPECT_EQ(editorFileBytes(content), editorFileBytes(wanted));
  }

  template <class Files>
  const std::string& anyOf(const Files& files) {
    return std::next(files.begin(), upTo(static_cast<int>(files.size()) - 1))->first;
  }

  void open() {
    // Leaving the title's box counts as a change.
    const bool asks = editor_.sheet().changeMade() || editor_.sheet().unsaved() ||
                      editor_.focus() == &editor_.txtTitle;
    const bool agrees = !asks || !oneIn(4);
    if (asks) box("Data Changed", agrees ? Answer::yes : Answer::no);
    const int what = agrees ? upTo(9) : 9;
    if (what <= 4 && !files_.empty()) return openSaved(anyOf(files_));
    if (what <= 6 && !texts_.empty()) return openText(anyOf(texts_));
    if (what <= 8 && !files_.empty()) return openWhatIsNoFile(files_.begin()->first);
    tell("Open called off");
    chosenFile_.reset();
    command('O', editor_.menu.mnuFileOpen);
  }

  void openSaved(const std::string& path) {
    tell("Open " + path);
    chosenFile_ = path;
    user_.click("frmDataEditor", "cmdOpen");
    SheetModel model = files_.at(path).model;
    model.nameBlankHeadings(model.columns());
    if (model.at(0, 0).kind == Kind::empty) model.put(0, 0, {.kind = Kind::text, .text = "Label"});
    model.standard = 3;
    model.file = path;
    replaced(std::move(model));
    expectAsSaved(editor_.sheet().content(), path);
  }

  void openText(const std::string& path) {
    const bool accepts = !oneIn(3);
    tell("Open " + path + (accepts ? "" : ", not taken"));
    chosenFile_ = path;
    importDialog({}, accepts);
    user_.click("frmDataEditor", "cmdOpen");
    if (accepts) replaced(texts_.at(path));
  }

  void openWhatIsNoFile(const std::string& like) {
    const bool gone = oneIn(2);
    tell(gone ? "Open a file that is gone" : "Open a damaged file");
    chosenFile_ = folder_.file(gone ? "gone.zmm" : "damaged.zmm");
    if (gone) {
      window("frmFileError", [this](Window&) { user_.click("frmFileError", "cmdAbort"); });
    } else {
      std::string bytes = *readWholeFile(like);
      const auto at = static_cast<std::size_t>(upTo(static_cast<int>(bytes.size()) - 1));
      if (oneIn(2))
        bytes.resize(at);
      else
        bytes[at] = static_cast<char>(bytes[at] ^ 1);
      EXPECT_FALSE(writeFileAtomically(*chosenFile_, bytes));
      box("Bad File", Answer::ok);
    }
    user_.click("frmDataEditor", "cmdOpen");
  }
};

struct RandomRun {
  unsigned seed;
  int rows, columns, visit, actions;
};

// Under the sanitizer each action takes twenty times as long.
#ifdef __SANITIZE_ADDRESS__
constexpr int share = 3;
#else
constexpr int share = 1;
#endif

class DataEditorRandomTest : public testing::TestWithParam<RandomRun> {};

TEST_P(DataEditorRandomTest, EqualsTheModelAndUndoesEverything) {
  const RandomRun run = GetParam();
  RandomStudent student(run.seed, run.rows, run.columns);
  try {
    while (student.actions() < run.actions / share && !HasFailure()) student.visit(run.visit);
  } catch (const std::exception& error) {
    ADD_FAILURE() << error.what();
  }
  if (HasFailure()) ADD_FAILURE() << student.story();
}

// Small sheets, whose cells meet often; one with a box for each variable in the dialogs; the whole
// sheet with its far corner.
INSTANTIATE_TEST_SUITE_P(Sheets, DataEditorRandomTest,
                         testing::Values(RandomRun{1, 6, 5, 300, 50000},
                                         RandomRun{2, 12, 7, 300, 50000},
                                         RandomRun{3, 12, 7, 1000, 50000},
                                         RandomRun{4, 40, 6, 300, 48000},
                                         RandomRun{5, 500, 50, 150, 3000}));

}  // namespace
}  // namespace tolmer::test
