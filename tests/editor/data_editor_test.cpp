// The data editor through its window.
#include "editor/data_editor.h"

#include <gmock/gmock.h>

#include <chrono>
#include <deque>
#include <filesystem>
#include <fstream>

#include "base/file_io.h"
#include "editor/editor_visit.h"
#include "sheetfiles/autosave_folder.h"
#include "sheetfiles/editor_file.h"

namespace tolmer::test {
namespace {

namespace fs = std::filesystem;

using testing::HasSubstr;

using DataEditor = EditorVisit;

TEST_F(DataEditor, HandsOutTheCompleteCases) {
  visit([&] {
    type(0, 1, "Rent");
    type(1, 0, "Ann");
    fill({{"1", "10"}, {"2.5", "20"}, {"3", ""}, {"4", "=B4*10"}});
    EXPECT_EQ(shown(1, 1), "1.000");
    EXPECT_EQ(shown(4, 2), "40.000");
    script.box("Missing Data",
               "Warning: One case is incomplete. It cannot be used in the analysis. Press OK to "
               "proceed by discarding incomplete data, or Cancel to return to the Data Editor.");
    script.box(saveFirst, Answer::no);
    click("cmdOK");
  });
  EXPECT_FALSE(editor.UserCancel());
  EXPECT_EQ(editor.CompleteObservations(), 3);
  EXPECT_TRUE(editor.DataLabelsEntered());
  EXPECT_EQ(editor.DataLabel(1), "Ann");
  EXPECT_EQ(editor.VarHeader(1), "Rent");
  EXPECT_EQ(editor.VarHeader(2), "Var2");
  EXPECT_EQ(editor.DataValue(2, 3), 40);
  EXPECT_THROW(editor.VarHeader(51), std::out_of_range);
}

TEST_F(DataEditor, RefusesWordsAmongNumbersAndSaysWhy) {
  visit([&] {
    EXPECT_FALSE(editor.spdData.enter({2, 2}, "much"));
    EXPECT_EQ(shown(1, 1), "");
    EXPECT_THAT(editor.lblStatus.caption(), HasSubstr("much"));
    EXPECT_EQ(desktop.beeps(), 1);
    go(1, 1);
    editor.spdData.typeText("more");
    key(keys::enter);
    EXPECT_THAT(editor.lblStatus.caption(), HasSubstr("more"));
    key(keys::escape);
    EXPECT_EQ(editor.lblStatus.caption(), "B1 = Var1, Obs 1") << "there is nothing to mend now";
    editor.spdData.typeText("$5");
    key(keys::enter);
    EXPECT_EQ(editor.lblStatus.caption(), "\"$5\" was taken as 5.  |  B2 = Var1, Obs 2");
    key(keys::down);
    EXPECT_EQ(editor.lblStatus.caption(), "B3 = Var1, Obs 3");
    script.box(saveFirst, Answer::no);
    click("cmdCancel");
  });
  EXPECT_TRUE(editor.UserCancel());
}

TEST_F(DataEditor, CancelGivesBackTheStartOfTheVisitAfterItsFlash) {
  visit([&] {
    fill({{"1", "2"}, {"3", "5"}, {"4", "4"}});
    script.box(saveFirst, Answer::no);
    click("cmdOK");
  });
  visit([&] {
    type(1, 1, "77");
    editor.txtTitle.setText("Other");
    script.box(saveFirst, Answer::no);
    click("cmdCancel");
    EXPECT_EQ(editor.cmdCancel.backColour(), Colour::rgb(255, 255, 128));
    EXPECT_TRUE(editor.visible());
  });
  EXPECT_TRUE(editor.UserCancel());
  EXPECT_EQ(shown(1, 1), "1.000");
  EXPECT_EQ(editor.txtTitle.text(), "User Supplied Data");
  EXPECT_EQ(editor.cmdCancel.backColour(), colours::buttonFace);
}

TEST_F(DataEditor, RowsComeAndGoButTheHeadingsStay) {
  visit([&] {
    fill({{"1"}, {"2"}});
    go(0, 1);
    script.box(
        {{}, "You cannot insert a row before the variable names.", MessageIcon::information});
    choose("Edit/Insert Row");
    script.box({{}, "You cannot delete the row of variable names.", MessageIcon::information});
    choose("Edit/Delete Row");
    mark(1, 0, 2, 1);
    choose("Edit/Insert Row");
    EXPECT_EQ(editor.spdData.text(4, 0), "3") << "the numbers of the observations stay";
    savesAs(folder.file("mine.zmm"));
    click("cmdSave");
    go(400, 1);
    choose("Edit/Delete Row");
    EXPECT_TRUE(editor.sheet().changeMade()) << "although nothing stood there";
    cancel();
  });
}

TEST_F(DataEditor, KeysOfTheGridAndOfTheWindow) {
  visit([&] {
    fill({{"12"}});
    go(1, 1);
    key(keys::f2);
    EXPECT_EQ(editor.spdData.editText(), "12");
    key(keys::deleteKey);
    EXPECT_EQ(editor.spdData.editText(), "12") << "within an entry it is the entry's key";
    key(keys::f1);
    ASSERT_EQ(desktop.helpRequests().size(), 1u);
    EXPECT_EQ(desktop.helpRequests()[0].file, "dataedit");
    EXPECT_EQ(desktop.helpRequests()[0].kind, HelpRequest::Kind::contents);
    key(keys::escape);
    click("txtTitle");
    key(keys::f1);
    EXPECT_EQ(desktop.helpRequests().size(), 2u);
    choose("Help/Search for Help on...");
    choose("Help/Using Help");
    EXPECT_EQ(desktop.helpRequests()[2].kind, HelpRequest::Kind::search);
    EXPECT_EQ(desktop.helpRequests()[3].kind, HelpRequest::Kind::usingHelp);
    cancel();
  });
}

TEST_F(DataEditor, InstructionsCoverTheGridUntilTheyAreClosed) {
  visit([&] {
    for (const bool byKey : {true, false}) {
      choose("Help/Instructions/Bringing Text Files into Editor");
      EXPECT_TRUE(editor.txtHelp.visible());
      EXPECT_EQ(editor.focus(), &editor.txtHelp) << "keys scroll there";
      byKey ? key(keys::escape) : click("cmdClose");
      EXPECT_FALSE(editor.txtHelp.visible());
      EXPECT_EQ(editor.focus(), &editor.spdData);
    }
    click("cmdCancel");
  });
}

TEST_F(DataEditor, CopiesFormulasHereAndNumbersElsewhere) {
  visit([&] {
    fill({{"1", "=B1*2"}, {"2"}});
    mark(1, 2, 1, 2);
    choose("Edit/Copy");
    EXPECT_EQ(desktop.clipboard().text, "2\n");
    EXPECT_THAT(desktop.clipboard().html, HasSubstr(">2.000</td>"));
    editor.spdData.press({3, 3});
    choose("Edit/Paste");
    EXPECT_EQ(shown(2, 2), "4.000");
    desktop.setClipboard({.text = "Size\tAge\n3\t4\n5\t6\n"});
    editor.spdData.press({1, 5});
    choose("Edit/Paste");
    EXPECT_EQ(shown(0, 4) + shown(2, 5), "Size6.000");
    choose("Edit/Undo");
    EXPECT_EQ(shown(0, 4), "Var4");
    cancel();
  });
}

// Editors of programs that are killed, one after the other.
class LostWork : public EditorVisit {
 protected:
  using Actions = std::function<void(frmDataEditor&, HeadlessDesktop&)>;
  // A program with these visits; the last one never comes to its end. The title of the first box
  // that came up, which is answered with Yes as all others but that for saving.
  std::string killedIn(const std::vector<Actions>& visits) {
    HeadlessDesktop own;
    std::string asked;
    own.onMessageBox = [&](const MessageBox& box) {
      if (asked.empty()) asked = box.title;
      if (box.title == saveFirst.title) return Answer::no;
      boxes.push_back(box.text);
      if (answers.empty()) return Answer::yes;
      const Answer answer = answers.front();
      answers.pop_front();
      return answer;
    };
    own.onSaveFile = [&](const FileQuestion&) { return folder.file("mine.zmm"); };
    own.onOpenFile = own.onSaveFile;
    frmDataEditor killed(own, {folder.path() + "/tolmod", &places});
    for (std::size_t i = 0; i < visits.size(); ++i) {
      own.onModal = [&](Window&) {
        visits[i](killed, own);
        if (i + 1 < visits.size()) return;
        own.advance(10000);
        throw ProgramEnded{1};
      };
      try {
        killed.ShowDataEditor();
      } catch (const ProgramEnded&) {
      }
    }
    return asked;
  }
  static void nothing(frmDataEditor&, HeadlessDesktop&) {}
  // The first value of what lies aside while its program still runs.
  std::optional<double> firstValueAside() {
    for (const auto& entry : fs::directory_iterator(aside))
      if (entry.path().extension() == ".zmm")
        return editorFileContent(*readWholeFile(entry.path().string()))->sheet.cells(1, 1).number;
    return std::nullopt;
  }
  static Actions sees(std::optional<double> value) {
    return [value](frmDataEditor& next, HeadlessDesktop&) {
      EXPECT_EQ(next.sheet().value(1, 1), value);
    };
  }
  void leaveBehind(double value, const std::string& from = {}) {
    Autosave crashed(&places, [time = 0]() mutable { return time += 10000; });
    crashed.changed();
    SheetContent content(editorObservations, editorVariables);
    content.cells(1, 1) = {.kind = DataCell::Kind::number, .number = value};
    ASSERT_FALSE(crashed.poll([&] { return content; }, from));
  }
  std::ptrdiff_t filesAside() { return std::distance(fs::directory_iterator(aside), {}); }

  const std::string aside = folder.path() + "/aside";
  VisitFolder places{aside};
  std::deque<Answer> answers;      // to the next boxes but that for saving
  std::vector<std::string> boxes;  // their texts
};

TEST_F(LostWork, IsThrownAwayByANoAndEachIsAskedAbout) {
  leaveBehind(1);
  leaveBehind(2);
  leaveBehind(3);
  double back = 0;
  answers = {Answer::no, Answer::yes};
  killedIn({[&](auto& next, auto&) {
    back = *next.sheet().value(1, 1);
    next.spdData.enter({2, 2}, "7");
  }});
  EXPECT_EQ(boxes.size(), 2u);
  boxes.clear();
  answers = {Answer::no, Answer::no};
  killedIn({sees(std::nullopt)});
  EXPECT_EQ(boxes.size(), 2u) << "what was brought back and changed, and the third";
  EXPECT_TRUE(back == 1 || back == 2 || back == 3);
  EXPECT_EQ(killedIn({nothing}), "");
  EXPECT_EQ(filesAside(), 0);
}

TEST_F(LostWork, ThatCannotBeReadIsKeptOrDeletedAsTheUserSays) {
  for (const Answer answer : {Answer::yes, Answer::no}) {
    leaveBehind(1);
    for (const auto& entry : fs::directory_iterator(aside))
      if (entry.path().extension() == ".zmm") fs::resize_file(entry, 20);
    answers = {answer};
    boxes.clear();
    killedIn({sees(std::nullopt)});
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_NE(boxes[0].find("is damaged or cut off: its last line is missing"), std::string::npos);
    EXPECT_EQ(filesAside(), answer == Answer::yes ? 1 : 0);
    if (answer == Answer::no) continue;
    const std::string kept = fs::directory_iterator(aside)->path().string();
    EXPECT_NE(boxes[0].find(kept), std::string::npos);
    EXPECT_EQ(killedIn({nothing}), "") << "it is not asked about again";
    fs::remove(kept);
  }
}

TEST_F(LostWork, OfAFileThatChangedSinceDoesNotOverwriteItUnasked) {
  const auto savesOver = [&](std::chrono::seconds later) {
    const std::string file = folder.file("mine.zmm");
    EXPECT_FALSE(writeFileAtomically(
        file, editorFileBytes(SheetContent(editorObservations, editorVariables))));
    leaveBehind(5, file);
    fs::last_write_time(file, fs::last_write_time(file) + later);
    answers = {Answer::yes, Answer::no};
    boxes.clear();
    killedIn({[](auto& next, auto&) { next.cmdSave.click(); }});
    const bool saved = loadEditorFile(file)->cells(1, 1).number == 5;
    if (!saved) places.lost().front()->remove();
    return saved;
  };
  EXPECT_TRUE(savesOver(std::chrono::seconds(-10)));
  EXPECT_EQ(boxes.size(), 1u);
  EXPECT_FALSE(savesOver(std::chrono::seconds(10)));
  EXPECT_EQ(boxes.size(), 2u);
}

TEST_F(LostWork, ThatCannotBeWrittenAsideIsToldInTheStatusLine) {
  std::ofstream(aside) << "a file where a folder should be";
  killedIn({[](auto& next, auto& own) {
    next.spdData.enter({2, 2}, "42");
    own.advance(5000);
    EXPECT_TRUE(next.lblStatus.caption().starts_with("The work could not be written aside: "))
        << next.lblStatus.caption();
  }});
}

TEST_F(LostWork, IsBroughtBackAtTheNextStart) {
  killedIn({[](auto& killed, auto&) { killed.spdData.enter({2, 2}, "42"); }});
  for (int start = 0; start < 2; ++start)  // and again, when that program is killed, too
    EXPECT_EQ(killedIn({[](auto& next, auto&) {
                EXPECT_EQ(next.sheet().value(1, 1), 42);
                EXPECT_TRUE(next.sheet().changeMade());
              }}),
              "Unsaved Data");
}

TEST_F(LostWork, IsNotWhatStandsInAFileOrWasThrownAway) {
  killedIn({[](auto& killed, auto&) {
    killed.spdData.enter({2, 2}, "42");
    killed.cmdSave.click();
  }});
  EXPECT_EQ(killedIn({[](auto& killed, auto&) { killed.cmdOpen.click(); }}), "");
  EXPECT_EQ(killedIn({[](auto& killed, auto& own) {
              EXPECT_EQ(killed.sheet().value(1, 1), std::nullopt);
              killed.spdData.enter({2, 2}, "43");
              own.advance(10000);
              killed.menu.mnuFileNew.click();
            }}),
            "Data Changed");
  EXPECT_EQ(killedIn({nothing}), "");
}

TEST_F(LostWork, IsAlsoWhatAnEarlierVisitLeftUnsaved) {
  killedIn({[](auto& killed, auto&) {
              for (int row = 2; row <= 4; ++row)
                killed.spdData.enter({row, 2}, std::to_string(row));
              killed.cmdOK.click();
            },
            nothing});
  EXPECT_EQ(killedIn({[](auto& next, auto&) { EXPECT_EQ(next.sheet().value(1, 1), 2); }}),
            "Unsaved Data");
}

TEST_F(LostWork, LiesAsideUntilItIsSavedOrThrownAwayInWords) {
  std::optional<frmDataEditor> own(std::in_place, desktop,
                                   EditorPlaces{folder.path() + "/tolmod", &places});
  const auto visitOwn = [&](const std::function<void()>& actions) {
    script.window("frmDataEditor", actions);
    own->ShowDataEditor();
  };
  const auto type = [&](int row, const std::string& text) { own->spdData.enter({row, 2}, text); };
  visitOwn([&] {
    for (int row = 2; row <= 4; ++row) type(row, std::to_string(5 + row));
    script.box(saveFirst, Answer::no);
    own->cmdOK.click();
  });
  EXPECT_EQ(firstValueAside(), 7);
  visitOwn([&] {
    type(2, "9");
    script.box(saveFirst, Answer::no);
    own->cmdCancel.click();
  });
  EXPECT_EQ(firstValueAside(), 7) << "back to what was never saved";
  visitOwn([&] {
    script.box("Data Changed",
               "The current data has not been saved. Do you want to clear the current data anyway?",
               Answer::cancel);
    own->menu.mnuFileNew.click();
    own->cmdCancel.click();
  });
  script.box(beforeTheEnd, Answer::cancel);
  EXPECT_FALSE(own->mayEndProgram());
  savesAs(std::nullopt);
  script.box(beforeTheEnd, Answer::yes);
  EXPECT_FALSE(own->mayEndProgram());
  EXPECT_EQ(firstValueAside(), 7);
  savesAs(folder.file("mine.zmm"));
  script.box(beforeTheEnd, Answer::yes);
  EXPECT_TRUE(own->mayEndProgram());
  EXPECT_TRUE(own->mayEndProgram()) << "nothing to ask about any more";
  EXPECT_EQ(firstValueAside(), std::nullopt);
  EXPECT_EQ(loadEditorFile(folder.file("mine.zmm"))->cells(1, 1).number, 7);
  own->sheet().enter(1, 1, "8");
  script.box(beforeTheEnd, Answer::no);
  EXPECT_TRUE(own->mayEndProgram());
  own.reset();
  EXPECT_TRUE(places.lost().empty());
}

TEST_F(LostWork, IsAlsoWhatWasTypedJustBeforeTheProgramWasEndedAtAnError) {
  {
    frmDataEditor own(desktop, {folder.path() + "/tolmod", &places});
    script.window("frmDataEditor", [&] {
      own.spdData.enter({2, 2}, "5");
      throw ProgramEnded{1};
    });
    EXPECT_THROW(own.ShowDataEditor(), ProgramEnded);
  }
  EXPECT_EQ(places.lost().size(), 1u);
}

}  // namespace
}  // namespace tolmer::test
