// Users who do anything in any order with the whole program, from the cover to File > Exit and
// again from the cover: after each of their actions what stands on the screen is what the state
// says.
//
//   TOLMER_RANDOM_ACTIONS=1000000 shell_test --gtest_filter='*RandomUser*'
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <deque>
#include <set>

#include "base/file_io.h"
#include "displaywindows/table_window.h"
#include "engine/fitted_equation.h"
#include "notebook/notebook_window.h"
#include "sheetfiles/autosave_folder.h"
#include "shell/display_checks.h"
#include "shell/module.h"
#include "shell/status_line.h"
#include "support/designer_student.h"
#include "support/random_hand.h"
#include "support/temp_folder.h"
#include "support/tree.h"

namespace tolmer::test {
namespace {

constexpr int usualActions = 50000;

// No more actions: leaves all loops.
struct Enough {};

class RandomUser {
 public:
  explicit RandomUser(unsigned seed) : seed_(seed), random_(seed) { writeFiles(); }

  // Program after program, until so many actions are done.
  void use(int actions) {
    actionsLeft_ = actions;
    try {
      while (!testing::Test::HasFailure()) runProgram();
    } catch (const Enough&) {
    } catch (const std::exception& error) {
      ADD_FAILURE() << error.what();
    }
    if (testing::Test::HasFailure()) ADD_FAILURE() << story();
  }

  int programs = 0, fits = 0, fitsOfOwnData = 0, selections = 0;
  std::map<std::string, int> seen;  // modal windows and titles of boxes, how often

 private:
  // What a run of the program is made of; the files outlive it.
  struct Run {
    explicit Run(std::mt19937& random) : hand(desktop, random) {}
    HeadlessDesktop desktop;
    RandomHand hand;
    Module module{desktop, TOLMER_PROGRAM_FOLDER};
    FreshDisplays fresh;
    int fits = 0;                       // at the last look at the quadrants
    Int16 source = 0;                   // of the data in force
    bool okWaits = false;               // the notebook's OK has opened nothing yet
    bool mayEnd = false;                // the user has asked for it
    std::optional<SheetContent> typed;  // as the editor was left
  };

  ShellParts& parts() { return run_->module.parts(); }
  const AnalysisState& state() { return parts().state; }
  RandomHand& hand() { return run_->hand; }

  std::string story() const {
    std::string text = "seed " + std::to_string(seed_) + ", action " + std::to_string(actions_);
    for (const std::string& line : log_) text += "\n  " + line;
    return text;
  }
  void tell(const std::string& what) {
    log_.push_back(std::to_string(actions_) + " " + what);
    if (log_.size() > 25) log_.pop_front();
  }

  void runProgram() {
    ++programs;
    tell("starts the program");
    run_ = std::make_unique<Run>(random_);
    connect();
    try {
      run_->module.Main();
      while (true) actAt(besideTheWork());
    } catch (const ProgramEnded&) {
      EXPECT_TRUE(run_->mayEnd) << "nobody asked for the end";
      EXPECT_TRUE(run_->desktop.ended());
    }
  }

  bool isCompanion(const Window* window) {
    return window == &parts().notesWindow || window == &parts().caseWindow ||
           window == &parts().predictWindow || window == &parts().modelsWindow;
  }
  // The main window, or one of those that wait for nobody.
  Window& besideTheWork() {
    std::vector<Window*> companions;
    for (Window* window : run_->desktop.windows())
      if (isCompanion(window) && window->visible()) companions.push_back(window);
    if (companions.empty() || !hand().oneIn(4)) return parts().frame;
    return *hand().anyOf(companions);
  }

  void connect() {
    parts().aside = &aside_;
    hand().tell = [this](const std::string& what) {
      tell(what);
      if (what == "menu mnuExploreEditCopy") run_->typed.reset();
      if (what == "menu mnuFileExit" || what.starts_with("frame of mdiReg") ||
          what.ends_with("cmdEndProgram") ||
          (what.starts_with("key 13") && what.ends_with("frmFileError")))
        run_->mayEnd = true;
    };
    hand().leavesAlone = [this](const std::string& name) {
      const bool ends = name == "mnuFileExit" || name == "mdiReg" || name == "cmdEndProgram";
      return ends && !hand().oneIn(20);
    };
    HeadlessDesktop& desktop = run_->desktop;
    desktop.onModal = [this](Window& window) { sitAt(window); };
    desktop.onMessageBox = [this](const MessageBox& box) { return answer(box); };
    desktop.onOpenFile = [this](const FileQuestion&) { return chooseFile(); };
    desktop.onSaveFile = desktop.onOpenFile;
    desktop.onPrint = [](const PrintedPages&) {};
  }

  void actAt(Window& window) {
    if (actionsLeft_-- == 0) throw Enough{};
    ++actions_;
    run_->mayEnd = false;
    hand().act(window);
    check(window);
  }

  void check(Window& window) {
    if (&window == &parts().frame || isCompanion(&window)) checkQuadrants();
    checkNotebook();
    if (auto* designer = dynamic_cast<frmModelDesign*>(&window)) expectSoundModel(*designer);
    EXPECT_EQ(window.updateLocks(), 0);
    if (testing::Test::HasFailure()) throw std::runtime_error("found in " + window.name());
  }

  // --- windows and boxes

  // Does this and that in a modal window, and then looks for a way out.
  void sitAt(Window& window) {
    ++seen[window.name()];
    comeTo(window);
    const bool hasWayOut = !RandomHand::usable(window).empty();
    const Int16 modelBefore = dependentVariable();
    for (int patience = patienceFor(window); hasWayOut && window.visible(); --patience) {
      if (patience > 0)
        actAt(window);
      else
        leave(window);
      if (auto* designer = dynamic_cast<frmModelDesign*>(&window); designer && window.visible()) {
        EXPECT_EQ(dependentVariable(), modelBefore) << "before OK";
      }
    }
    goFrom(window);
  }

  Int16 dependentVariable() {
    return state().iModelCol.size() > 1 ? state().iModelCol[1] : Int16{0};
  }

  int patienceFor(const Window& window) {
    if (window.name() == "frmDataEditor") return hand().upTo(80);
    return hand().upTo(window.name() == "frmNotebook" ? 25 : 15);
  }

  void leave(Window& window) {
    if (!window.takesInput()) return actAt(window);
    if (actionsLeft_-- == 0) throw Enough{};
    ++actions_;
    finishWork(window);
    if (!window.visible()) return;
    std::vector<Control*> ways;
    for (Control* control : RandomHand::usable(window))
      for (const char* name : {"cmdOK", "cmdOK", "cmdOK", "cmdCancel", "cmdClose", "cmdAbort"})
        if (control->name() == name) ways.push_back(control);
    if (ways.empty() || hand().oneIn(8)) return hand().act(window);
    Control& way = *hand().anyOf(ways);
    tell("leaves " + window.name() + " by " + way.name());
    hand().press(way);
    check(window);
  }

  // What random actions alone would seldom bring about: a model that stands, data that can be
  // used, another page than the first.
  void finishWork(Window& window) {
    if (hand().oneIn(4)) return;
    if (auto* designer = dynamic_cast<frmModelDesign*>(&window)) {
      tell("chooses a model");
      DesignerStudent(*designer, static_cast<unsigned>(hand().upTo(1 << 30))).chooseModel();
    } else if (auto* editor = dynamic_cast<frmDataEditor*>(&window)) {
      tell("pastes a table");
      if (!hand().oneIn(4)) editor->menu.mnuFileNew.click();
      run_->desktop.setClipboard({.text = hand().anyTable()});
      editor->spdData.setFocus();
      editor->spdData.press({1, 2});
      hand().key(*editor, {.code = 'V', .control = true});
    } else if (window.name() == "frmNotebook") {
      TabBook& book = parts().notebook.window().tbNoteBook;
      book.chooseTab(hand().oneIn(2) ? 4 : 2 + hand().upTo(1));
    }
  }

  void comeTo(const Window& window) {
    if (window.name() == "frmModelDesign" || window.name() == "frmDataEditor")
      run_->okWaits = false;
    if (window.name() != "frmDataEditor") return;
    const SheetContent now = parts().ownData.editor().sheet().content();
    EXPECT_TRUE(!run_->typed || *run_->typed == now) << "what was typed has changed meanwhile";
  }

  void goFrom(const Window& window) {
    if (window.name() == "frmNotebook")
      run_->okWaits = parts().notebook.LastAction() == NoteBook::closedByOK;
    if (window.name() == "frmDataEditor") run_->typed = parts().ownData.editor().sheet().content();
  }

  Answer answer(const MessageBox& box) {
    ++seen["box " + box.title];
    EXPECT_FALSE(box.text.starts_with("Error in ") || box.title == "Error" ||
                 box.title == "Input Error")
        << box.text;
    const bool sure = hand().oneIn(box.text == "Exit module?" ? 12 : 2);
    tell("box " + box.title + ": " + (sure ? "yes" : "no"));
    if (box.text == "Exit module?" && sure) run_->mayEnd = true;
    switch (box.buttons) {
      case MessageButtons::yesNo:
        return sure ? Answer::yes : Answer::no;
      case MessageButtons::saveDontSaveCancel:
        return hand().oneIn(3) ? Answer::cancel : sure ? Answer::yes : Answer::no;
      case MessageButtons::okCancel:
        return sure ? Answer::ok : Answer::cancel;
      default:
        return Answer::ok;
    }
  }

  // --- files: some that open, some that do not, some that the user makes himself

  void writeFiles() {
    std::string text = "Height;Weight;Age\n";
    for (int row = 0; row < 30; ++row)
      text += std::to_string(150 + row * row % 37) + ";" + std::to_string(50 + row % 11) + ";" +
              std::to_string(20 + row * 7 % 23) + "\n";
    EXPECT_FALSE(writeFileAtomically(folder_.file("people.csv"), text));
    EXPECT_FALSE(writeFileAtomically(folder_.file("damaged.zmm"), "no data set"));
    EXPECT_FALSE(writeFileAtomically(folder_.file("empty.txt"), ""));
  }

  std::optional<std::string> chooseFile() {
    static const std::vector<std::string> names = {
        "people.csv",  "people.csv",  "own.zmm",   "other.zmm",         "text.csv",
        "damaged.zmm", "missing.zmm", "empty.txt", "no/such/folder.zmm"};
    if (hand().oneIn(6)) return std::nullopt;
    const std::string& name = hand().anyOf(names);
    tell("file " + name);
    return folder_.file(name);
  }

  // --- what holds whenever nothing else is open

  void checkQuadrants() {
    EXPECT_EQ(run_->desktop.modalWindow(), nullptr);
    for (const Window* window : run_->desktop.windows())
      EXPECT_TRUE(!window->visible() || window->frame() || window == &parts().frame ||
                  isCompanion(window))
          << window->name() << " is still open";
    EXPECT_FALSE(run_->okWaits) << "the notebook's OK opened nothing";
    expectSoundQuadrants(parts());
    expectSelectedCasesLit(parts());
    selections += parts().cases.empty() ? 0 : 1;
    checkPanel();
    checkNotes();
    if (state().iCompletedFits != run_->fits) checkNewFit();
    EXPECT_EQ(state().iDataSource, run_->source) << "another source without another analysis";
    run_->fresh.expectShown(parts());
  }

  void checkPanel() {
    static const std::map<Int16, std::string> captions = {{databasePage, "Select &Database"},
                                                          {dataEditor, "&Edit Data"},
                                                          {scenarioExample, "Select &Example"}};
    EXPECT_EQ(parts().panel.cmdChangeDataSource.caption(), captions.at(state().iDataSource));
    EXPECT_EQ(state().tDataFileName == "None", state().iDataSource == dataEditor);
    EXPECT_EQ(parts().panel.txtFittedModel.text(), fittedEquation(state()));
    EXPECT_EQ(parts().frame.mnuShowRegression.checked(), state().bShowRegressionLine);
    EXPECT_EQ(parts().frame.mnuShowCorrelation.checked(), state().bShowCorrelation);
    EXPECT_FALSE(state().bStartingUp || state().bStartingAnalysis || state().bAnalysing);
  }

  // Where they are known they are those of the present fit, marked on the shown tables.
  void checkNotes() {
    AnalysisNotes& notes = parts().notes;
    EXPECT_EQ(parts().frame.lblNotes.caption(), notes.countText());
    // For some seconds the line tells where a report went.
    const std::string& line = parts().frame.lblStatus.caption();
    if (!line.starts_with("The report was saved: ")) {
      EXPECT_EQ(line, statusLine(parts().state));
    }
    for (const Note& note : notes.known())
      for (const NotedCell& cell : note.cells) {
        const auto* table =
            dynamic_cast<const TableWindow*>(&parts().displays.display(*findDisplay(cell.display)));
        if (!table || !table->visible()) continue;
        EXPECT_NE(table->grid().remarkOn({cell.row, cell.column}), "") << cell.display;
        EXPECT_LE(cell.row, table->grid().maxRows());
      }
  }

  void checkNewFit() {
    ++fits;
    run_->fits = state().iCompletedFits;
    run_->source = state().iDataSource;
    expectSoundRecord(state());
    // After a change of the model alone the editor may hold newer data, which nobody accepted.
    if (state().iDataSource != dataEditor || state().bChangeModelOnly) return;
    ++fitsOfOwnData;
    WorkingCopy typed;
    LoadFromDataEditor(typed, parts().ownData.studentData());
    // Names may be older: a new one alone is no change.
    EXPECT_TRUE(typed.osData == state().sData) << "not what was typed";
  }

  // A page without data has a grey OK.
  void checkNotebook() {
    if (!parts().notebook.window().visible()) return;
    frmNotebook& book = parts().notebook.window();
    const int section = book.tbNoteBook.activeTab() + 1, page = book.tbNoteBook.activePage() + 1;
    const bool opens = section == 1 || section == 5 || ((section == 3 || section == 4) && page > 1);
    EXPECT_TRUE(opens || !book.cmdOK.enabled()) << "section " << section << " page " << page;
    EXPECT_EQ(book.updateLocks(), 0);
  }

  unsigned seed_;
  std::mt19937 random_;
  TempFolder folder_{placeForFiles()};
  VisitFolder aside_{folder_.file("aside")};
  std::unique_ptr<Run> run_;
  std::deque<std::string> log_;
  int actions_ = 0, actionsLeft_ = 0;
};

class RandomUserTest : public testing::TestWithParam<unsigned> {};

TEST_P(RandomUserTest, FindsTheWholeProgramSound) {
  const char* wanted = std::getenv("TOLMER_RANDOM_ACTIONS");
  RandomUser user(GetParam());
  user.use(wanted ? std::atoi(wanted) : usualActions);
  EXPECT_GT(user.programs, 2);
  EXPECT_GT(user.fits, 50);
  EXPECT_GT(user.fitsOfOwnData, 1);
  EXPECT_GT(user.selections, 1000) << "looks with cases selected";
  for (const char* name :
       {"frmNotebook", "frmModelDesign", "frmShowData", "frmDataEditor", "frmTextImport", "frmHint",
        "frmAbout", "frmFileError", "frmSampleOnly", "frmReport"})
    EXPECT_GT(user.seen[name], 0) << name;
  if (!wanted) return;
  std::printf("%d programs, %d fits, %d of own data\n", user.programs, user.fits,
              user.fitsOfOwnData);
  for (const auto& [name, times] : user.seen) std::printf("%6d %s\n", times, name.c_str());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomUserTest, testing::Values(1, 4, 5));

}  // namespace
}  // namespace tolmer::test
