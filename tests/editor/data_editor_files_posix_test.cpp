// New, Open, Save and Save As through the editor's window, and what goes wrong with files.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

#include "base/data_limits.h"
#include "base/file_io.h"
#include "base/program_version.h"
#include "editor/editor_visit.h"
#include "sheetfiles/editor_file.h"
#include "support/faults.h"
#include "support/tree.h"
#include "textimport/text_import.h"

namespace tolmer::test {
namespace {

namespace fs = std::filesystem;

const MessageBox clearAnyway{
    "Data Changed",
    "The current data has not been saved. Do you want to clear the current data anyway?",
    MessageIcon::question, MessageButtons::okCancel};
const MessageBox loadAnyway{
    "Data Changed", "The current data has not been saved. Do you want to load new data anyway?",
    MessageIcon::question, MessageButtons::yesNo};
const MessageBox readOnly{"Read Only",
                          "This file is in a Read Only directory. Use Save As to save the file to "
                          "a different directory.",
                          MessageIcon::exclamation};

MessageBox badFile(const std::string& name) {
  return {"Bad File", "Could not load file " + name + ". Check file type.",
          MessageIcon::exclamation};
}

MessageBox changedElsewhere(const std::string& name) {
  return {"File Changed",
          "Another program has changed the file " + name + " since it was opened or saved here (" +
              localTime(*secondsWritten(name)) +
              "). Do you want to overwrite it? Answer No to leave it as it is; Save As saves the "
              "data to a different file.",
          MessageIcon::exclamation, MessageButtons::yesNo};
}

MessageBox notSaved(const std::string& why) {
  return {"Save", "The data were not saved. " + why, MessageIcon::exclamation};
}

MessageBox notSavedThere(const std::string& why) {
  return {"Save", "The data were not saved; Save As saves them to a different file. " + why,
          MessageIcon::exclamation};
}

class DataEditorFiles : public EditorVisit {
 protected:
  void write(const std::string& file, const std::string& bytes) {
    ASSERT_FALSE(writeFileAtomically(file, bytes));
  }
  std::string bytesOf(const std::string& file) { return *readWholeFile(file); }
  // A file of the editor whose first value is that number.
  std::string fileWith(double value) {
    SheetContent sheet(editorObservations, editorVariables);
    sheet.cells(1, 1) = {.kind = DataCell::Kind::number, .number = value};
    return editorFileBytes(sheet);
  }
  void saveTo(const std::string& file) {
    savesAs(file);
    choose("File/Save As...");
    desktop.onSaveFile = nullptr;  // from now on nobody may ask for a name
  }
  void failsToSaveAs(const std::string& file, const std::string& why) {
    savesAs(file);
    script.box(notSaved(file + ": cannot be written: " + why));
    choose("File/Save As...");
  }
  // The box for a file that fails comes up with these buttons, and this is done in it.
  void fileError(const std::string& file, const std::string& description,
                 const std::string& buttons, std::function<void()> actions) {
    script.window("frmFileError", [=, this] {
      EXPECT_EQ(user.get<TextBox>("frmFileError", "txtFileSpec").text(), file);
      EXPECT_EQ(user.get<Label>("frmFileError", "lblErrorDesc").caption(), description);
      std::string shown;
      for (const char* button : {"cmdRetry", "cmdAbort", "cmdEndProgram"})
        if (user.get<Button>("frmFileError", button).visible()) shown += std::string(" ") + button;
      EXPECT_EQ(shown, buttons);
      actions();
    });
  }
  // Takes the first answer to each question of the import that waits for one.
  void answerAll() {
    for (int i = 1;; ++i) {
      const std::string name = "cmboAnswer(" + std::to_string(i) + ")";
      const auto* box = dynamic_cast<ComboBox*>(user.window("frmTextImport").find(name));
      if (!box) break;
      if (box->visible() && box->listIndex() < 0)
        user.choose("frmTextImport", name, box->items().at(0));
    }
    user.click("frmTextImport", "cmdOK");
  }
  std::function<void()> presses(const std::string& button) {
    return [this, button] { user.click("frmFileError", button); };
  }
  std::function<void()> closes() {
    return [this] { user.close("frmFileError"); };
  }

  const std::string mine = folder.file("mine.zmm");
};

TEST_F(DataEditorFiles, NewAsksAndBuildsTheGridAnew) {
  visit([&] {
    fill({{"1"}});
    type(1, 1, "1234567890");
    EXPECT_GE(editor.spdData.colWidth(2), editor.spdData.widthOfText({2, 2}));
    editor.spdData.dragColWidth(3, pixels(50));
    type(1, 2, "1234567890");
    EXPECT_EQ(editor.spdData.colWidth(3), pixels(50)) << "as the user has drawn it";
    choose("Edit/Typing Replaces Cell");
    script.box(clearAnyway, Answer::ok);
    choose("File/New");
    EXPECT_EQ(editor.spdData.activeCell(), (CellPosition{2, 1}));
    EXPECT_TRUE(editor.menu.mnuEditTypingReplaces.checked());
    EXPECT_TRUE(editor.spdData.editModeReplace());
    EXPECT_EQ(editor.spdData.colWidth(2), editor.spdData.colWidth(3));
    choose("File/New");  // nothing to ask about
    cancel();
  });
}

TEST_F(DataEditorFiles, ASaveTakesTheHeadingThatIsBeingTypedAndTheNameIsKnownThen) {
  visit([&] {
    fill({{"1"}});
    go(0, 1);
    editor.spdData.typeText("Rent");
    savesAs(folder.file("mine"));
    user.key("frmDataEditor", {.code = 'S', .control = true});
    EXPECT_EQ(loadEditorFile(mine)->cells(0, 1).text, "Rent");
    EXPECT_FALSE(editor.sheet().changeMade());
    EXPECT_TRUE(isLit(editor.cmdSave));
    desktop.onSaveFile = nullptr;
    type(1, 1, "3");
    choose("File/Save");
    EXPECT_EQ(loadEditorFile(mine)->cells(1, 1).number, 3);
    opens(mine);
    click("cmdOpen");
    EXPECT_EQ(editor.spdData.activeCell(), (CellPosition{1, 1}));
    click("cmdCancel");
  });
}

TEST_F(DataEditorFiles, EveryBadFileIsRefusedAndTheSheetStands) {
  const std::string good = fileWith(42);
  const std::pair<const char*, std::string> files[] = {
      {"two variables", editorFileBytes(SheetContent(500, 2))},
      {"empty", ""},
      // Line ends of another system do no harm; only the length is at fault.
      {"500001 bytes", good + std::string(500001 - good.size(), '\r')}};
  visit([&] {
    fill({{"1"}});
    editor.txtTitle.setText("Rents");
    saveTo(folder.file("kept.zmm"));
    const SheetContent before = editor.sheet().content();
    for (const auto& [fault, bytes] : files) {
      SCOPED_TRACE(fault);
      write(mine, bytes);
      opens(mine);
      script.box(badFile(mine));
      click("cmdOpen");
      EXPECT_EQ(editor.sheet().content(), before);
      EXPECT_EQ(editor.caption(), "Data Editor [kept.zmm]");
      EXPECT_FALSE(editor.sheet().changeMade());
    }
    write(mine, good + std::string(500000 - good.size(), '\r'));
    choose("File/Open...");
    EXPECT_EQ(shown(1, 1), "42.000") << "up to the limit it is read";
    cancel();
  });
}

TEST_F(DataEditorFiles, AFileThatCannotBeOpenedIsTheFileBoxsBusiness) {
  const std::string buttons = " cmdAbort cmdEndProgram";
  const std::string missing = "File could not be found";
  visit([&] {
    fill({{"1"}});
    saveTo(mine);
    const std::string inFile = mine + "/a.zmm";  // a folder that is a file
    for (const std::string& name : {folder.file("gone.zmm"), folder.file("gone/a.zmm"), inFile}) {
      opens(name);
      fileError(name, missing, buttons, presses("cmdAbort"));
      click("cmdOpen");
    }
    opens(folder.path());
    fileError(folder.path(), "Could not read data from file", buttons, presses("cmdAbort"));
    click("cmdOpen");
    // The frame of the box is no Abort: the file is tried, and is none.
    opens(inFile);
    fileError(inFile, missing, buttons, closes());
    script.box(badFile(inFile));
    click("cmdOpen");
    EXPECT_EQ(shown(1, 1) + editor.caption(), "1.000Data Editor [mine.zmm]");
    fileError(inFile, missing, buttons, presses("cmdEndProgram"));
    EXPECT_THROW(click("cmdOpen"), ProgramEnded);
    cancel();
  });
  EXPECT_TRUE(desktop.ended());
}

TEST_F(DataEditorFiles, AFileThatVanishedMayBePutBackGivenUpOrWrittenAnew) {
  const std::string buttons = " cmdRetry cmdAbort cmdEndProgram";
  const std::string missing = "File could not be found";
  visit([&] {
    fill({{"1"}});
    saveTo(mine);
    desktop.advance(1000);
    type(1, 1, "2");
    fs::remove(mine);
    fileError(mine, missing, buttons, presses("cmdAbort"));
    click("cmdSave");
    EXPECT_FALSE(fs::exists(mine));
    EXPECT_TRUE(editor.sheet().changeMade());
    EXPECT_FALSE(isLit(editor.cmdSave));

    fileError(mine, missing, buttons, [&] {
      write(mine, fileWith(9));
      user.click("frmFileError", "cmdRetry");
      script.box(changedElsewhere(mine), Answer::yes);
    });
    choose("File/Save");
    EXPECT_EQ(loadEditorFile(mine)->cells(1, 1).number, 2);
    EXPECT_FALSE(editor.sheet().changeMade());
    EXPECT_TRUE(isLit(editor.cmdSave));

    // A retry that fails asks again; the frame of the box is no Abort.
    type(1, 1, "3");
    fs::remove(mine);
    fileError(mine, missing, buttons, presses("cmdRetry"));
    fileError(mine, missing, buttons, closes());
    click("cmdSave");
    EXPECT_EQ(loadEditorFile(mine)->cells(1, 1).number, 3);

    fs::remove(mine);
    fileError(mine, missing, buttons, presses("cmdEndProgram"));
    EXPECT_THROW(choose("File/Save"), ProgramEnded);
    cancel();
  });
}

TEST_F(DataEditorFiles, AReadOnlyFileIsNeverWritten) {
  const std::string other = folder.file("other.zmm");
  visit([&] {
    fill({{"1"}});
    saveTo(mine);
    desktop.advance(1000);
    ASSERT_EQ(::chmod(mine.c_str(), 0444), 0);
    const std::string before = bytesOf(mine);
    type(1, 1, "2");
    for (const char* entry : {"File/Save", ""}) {
      script.box(readOnly);
      *entry ? choose(entry) : click("cmdSave");
    }
    // Nor where its name is chosen.
    savesAs(mine);
    script.box(readOnly);
    choose("File/Save As...");
    EXPECT_EQ(bytesOf(mine), before);
    EXPECT_TRUE(editor.sheet().changeMade());
    EXPECT_FALSE(isLit(editor.cmdSave));
    saveTo(other);
    EXPECT_EQ(editor.caption(), "Data Editor [other.zmm]");
    EXPECT_FALSE(editor.sheet().changeMade());
    click("cmdCancel");
  });
}

TEST_F(DataEditorFiles, AFullDiskOrAFolderThatTakesNothingKeepsTheSheetAndTheOldFile) {
  const std::string gone = folder.file("gone/a.zmm");
  const std::string locked = folder.file("locked/a.zmm");
  fs::create_directory(folder.file("locked"));
  fs::permissions(folder.file("locked"), fs::perms{0555});
  fs::permissions(folder.path(), fs::perms{0755});
  visit([&] {
    fill({{"1"}});
    saveTo(mine);
    desktop.advance(1000);
    const std::string before = bytesOf(mine);
    type(1, 1, "2");
    const SheetContent sheet = editor.sheet().content();
    {
      const FullDisk full(before.size() / 2);
      script.box(notSavedThere(mine + ": cannot be written: File too large"));
      click("cmdSave");
    }
    {
      const FailingCall flush(Call::fsync, EIO);
      script.box(notSavedThere(mine + ": cannot be written: Input/output error"));
      click("cmdSave");
    }
    failsToSaveAs(mine + "/a.zmm", "Not a directory");  // a folder that is a file
    {
      const Nobody nobody;
      ASSERT_TRUE(nobody.works());
      failsToSaveAs(locked, "Permission denied");
    }
    failsToSaveAs(gone, "No such file or directory");
    EXPECT_EQ(bytesOf(mine), before);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 2) << "mine and locked";
    EXPECT_EQ(editor.sheet().content(), sheet);
    EXPECT_TRUE(editor.sheet().changeMade());
    EXPECT_FALSE(isLit(editor.cmdSave));
    EXPECT_EQ(editor.caption(), "Data Editor [mine.zmm]");
    // Also on the way out: the student stays.
    script.box(saveFirst, Answer::yes);
    script.box(notSaved(gone + ": cannot be written: No such file or directory"));
    click("cmdCancel");
    EXPECT_TRUE(editor.visible());
    EXPECT_EQ(shown(1, 1), "2.000");
    cancel();
  });
}

TEST_F(DataEditorFiles, AFileThatAnotherProgramChangedIsOverwrittenOnlyIfTheUserSaysSo) {
  visit([&] {
    fill({{"1"}});
    saveTo(mine);
    desktop.advance(1000);
    const auto othersSave = [&](double value) { write(mine, fileWith(value)); };
    type(1, 1, "2");
    othersSave(9);
    script.box(changedElsewhere(mine), Answer::no);
    user.key("frmDataEditor", {.code = 'S', .control = true});
    EXPECT_EQ(loadEditorFile(mine)->cells(1, 1).number, 9);
    EXPECT_TRUE(editor.sheet().changeMade());
    EXPECT_FALSE(isLit(editor.cmdSave));
    script.box(changedElsewhere(mine), Answer::yes);
    click("cmdSave");
    EXPECT_EQ(loadEditorFile(mine)->cells(1, 1).number, 2);
    type(1, 1, "3");
    write(mine, bytesOf(mine));  // written anew, but nothing has changed
    click("cmdSave");
    // What was opened counts as known, and each file for itself.
    othersSave(8);
    opens(mine);
    click("cmdOpen");
    saveTo(folder.file("other.zmm"));
    choose("Edit/Undo");  // the opening
    type(1, 1, "4");
    click("cmdSave");
    EXPECT_EQ(loadEditorFile(mine)->cells(1, 1).number, 4);
    othersSave(7);
    type(1, 1, "5");
    saveTo(mine);  // the file dialog has asked
    EXPECT_EQ(loadEditorFile(mine)->cells(1, 1).number, 5);
    click("cmdCancel");
  });
}

TEST_F(DataEditorFiles, ABackslashInANameIsALetter) {
  const std::string name = folder.file("sub\\mine.zmm");
  const std::string text = folder.file("sub\\mine.csv");
  fs::create_directory(folder.file("sub"));
  visit([&] {
    fill({{"1"}, {"2"}});
    saveTo(text);
    saveTo(name);
    type(1, 1, "3");
    click("cmdSave");
    EXPECT_TRUE(fs::is_empty(folder.file("sub")));
    EXPECT_EQ(bytesOf(text), "Var1\n1\n2\n");
    type(1, 1, "4");
    script.box(loadAnyway, Answer::yes);
    opens(name);
    click("cmdOpen");
    EXPECT_EQ(shown(1, 1) + editor.caption(), "3.000Data Editor [sub\\mine.zmm]");
    click("cmdCancel");
  });
}

TEST_F(DataEditorFiles, TextThatCannotBeReadIsToldAndTheSheetStands) {
  const std::string text = folder.file("huge.csv");
  write(text, "1\n");
  fs::resize_file(text, mostTextBytes + 1);
  visit([&] {
    opens(text);
    script.box({"Bad File", text + ": is larger than 16 MB", MessageIcon::exclamation});
    click("cmdOpen");
    EXPECT_FALSE(editor.sheet().changeMade());
    click("cmdCancel");
  });
}

TEST_F(DataEditorFiles, AnotherProgramsFileIsNamedByItsContentAndTheSheetStands) {
  const std::string old = folder.file("old.zmm");
  write(old, "<html><body><table><tr><td>1</td></tr></table>");
  visit([&] {
    opens(old);
    script.box({"Bad File",
                old + ": it is a web page, whatever its name says; open it in your spreadsheet "
                      "program and save it as xlsx or ods",
                MessageIcon::exclamation});
    click("cmdOpen");
    EXPECT_FALSE(editor.sheet().changeMade());
    click("cmdCancel");
  });
}

TEST_F(DataEditorFiles, AWorkbookIsAskedAboutAndLandsInTheSheet) {
  std::string rows = "a,b\n";
  for (int i = 1; i <= 600; ++i) rows += std::to_string(i) + "," + std::to_string(i % 7) + "\n";
  write(folder.file("long.csv"), rows);
  visit([&] {
    opens(folder.file("long.csv"));
    script.window("frmVariableChoice", [&] { user.click("frmVariableChoice", "cmdOK"); });
    script.window("frmTextImport", [&] { answerAll(); });
    click("cmdOpen");
    EXPECT_EQ(editor.sheet().content().source,
              "long.csv. Of 600 cases the first 500 were taken; 100 were not.");
    opens(TOLMER_SOURCE_DIR "/fuzz/corpus/foreign_file/xlsxwriter.xlsx");
    script.window("frmTextImport", [&] { answerAll(); });
    click("cmdOpen");
    EXPECT_EQ(shown(0, 1), "size");
    EXPECT_EQ(shown(1, 0), "Oslo");
    EXPECT_EQ(editor.sheet().cell(2, 2).number, 1e-7);
    cancel();
  });
}

TEST_F(DataEditorFiles, WhatIsSaidOfTheDataStaysWithTheSheet) {
  visit([&] {
    opens(TOLMER_SOURCE_DIR "/fuzz/corpus/foreign_file/haven14.dta");
    script.window("frmTextImport", [&] { answerAll(); });
    click("cmdOpen");
    const SheetContent& content = editor.sheet().content();
    EXPECT_EQ(content.source, "haven14.dta (Stata)");
    EXPECT_EQ(content.title, "Sold houses");
    const auto kind =
        std::find(content.labels.begin(), content.labels.end(), "Kind of house (1 = new, 2 = old)");
    ASSERT_NE(kind, content.labels.end());
    const int column = static_cast<int>(kind - content.labels.begin());
    go(0, column);
    EXPECT_THAT(editor.lblStatus.caption(), testing::HasSubstr("Kind of house"));
    script.window("frmVariableLabel", [&] {
      user.type("frmVariableLabel", "txtVariableLabel", "1 for new");
      user.click("frmVariableLabel", "cmdOK");
    });
    choose("Options/Variable Label...");
    EXPECT_EQ(editor.sheet().label(column), "1 for new");
    saveTo(folder.file("kept.zmm"));
    EXPECT_EQ(loadEditorFile(folder.file("kept.zmm"))->labels, content.labels);
    choose("Edit/Undo");
    EXPECT_THAT(editor.sheet().label(column), testing::StartsWith("Kind of house"));
    desktop.setClipboard({.text = "A\tB\tC\n1\t2\tyes\n3\t4\tno\n",
                          .html = "<table><tr><th>A<th>B<th>C<tr><td>1<td>2<sup>a</sup><td>yes"
                                  "<tr><td>3<td>4<td>no</table>"});
    script.box(clearAnyway, Answer::ok);
    choose("File/New");
    go(0, 1);
    script.window("frmTextImport", [&] { answerAll(); });
    choose("Edit/Paste");
    EXPECT_EQ(shown(1, 2) + " " + shown(1, 3), "2.000 1") << "a dummy has no decimals";
    EXPECT_EQ(content.source, "pasted on " + today());
    cancel();
  });
}

TEST_F(DataEditorFiles, OpenShowsAllItCanReadInTheDocumentsOrWhereAFileWasLast) {
  const std::string other = folder.file("other.zmm");
  ASSERT_FALSE(writeFileAtomically(other, "no data"));
  std::vector<FileQuestion> asked;
  desktop.onOpenFile = [&](const FileQuestion& question) -> std::optional<std::string> {
    asked.push_back(question);
    if (asked.size() > 1) return std::nullopt;
    return other;
  };
  visit([&] {
    script.box(badFile(other));
    click("cmdOpen");
    click("cmdOpen");
    cancel();
  });
  EXPECT_EQ(asked.at(0).folder, "");
  EXPECT_THAT(asked[0].kinds.front().extensions, testing::IsSupersetOf({"zmm", "csv", "ods"}));
  EXPECT_EQ(asked.at(1).folder, folder.path());
}

TEST_F(DataEditorFiles, TextForOthersIsNoFileOfTheDataSet) {
  const std::string text = folder.file("mine.csv");
  visit([&] {
    type(0, 1, "Rent");
    fill({{"1.25"}, {"2"}, {"=LN(0)"}, {"=B2*2"}});
    saveTo(text);
    EXPECT_EQ(bytesOf(text), "Rent\n1.25\n2\n\n4\n") << "an error is no number";
    EXPECT_TRUE(editor.sheet().changeMade());
    EXPECT_EQ(editor.caption(), "Data Editor");
    EXPECT_FALSE(editor.menu.mnuFileSave.enabled());
    cancel();
  });
}

// A desktop that reaches no files of the user's.
struct Downloads : HeadlessDesktop {
  Saving saveFile(const FileToSave& file) override {
    const auto bytes = file.bytes({file.question.name.empty() ? "new.zmm" : file.question.name});
    return bytes ? downloaded = *bytes, Saving{Saving::End::saved} : failed(file, bytes.error());
  }
  std::string downloaded;
};

TEST_F(DataEditorFiles, DataSavedWhereNobodyCanTellAreSavedAndHaveNoFile) {
  Downloads browser;
  HeadlessUser hand(browser);
  frmDataEditor there(browser, {folder.path() + "/tolmod", nullptr});
  browser.onModal = [&](Window&) {
    EXPECT_TRUE(there.spdData.enter({2, 2}, "1.5"));
    hand.menu("frmDataEditor", "File/Save As...");
    EXPECT_FALSE(there.sheet().changeMade() || there.sheet().unsaved());
    EXPECT_FALSE(there.menu.mnuFileSave.enabled());
    hand.click("frmDataEditor", "cmdCancel");
  };
  there.ShowDataEditor();
  EXPECT_EQ(editorFileContent(browser.downloaded)->sheet.cells(1, 1).number, 1.5);
  EXPECT_TRUE(browser.boxes().empty());
}

}  // namespace
}  // namespace tolmer::test
