// The data editor as its host sets it up, and what its buttons and boxes do under mouse and keys.
#include "editor/editor_visit.h"

namespace tolmer::test {
namespace {

class DataEditorHost : public EditorVisit {};

// The third of four variables is one of two values.
TEST_F(DataEditorHost, FourVariablesHaveABinaryOneThatIsChecked) {
  editor.setNumberVariables(4);
  editor.setMaxObservations(20);
  editor.setMinVariables(2);
  editor.SetupEditor();
  EXPECT_EQ(editor.spdData.maxRows(), 21);
  EXPECT_EQ(editor.VarHeader(3) + " " + editor.VarHeader(4), "Binary Var3");
  EXPECT_EQ(editor.NumberDecimals(3), 0);
  EXPECT_EQ(editor.tfFileFilter(), "ZM Quadvar (*.zmq)|*.zmq|All (*.*)|*.*");
  EXPECT_EQ(editor.tfFileTypeCode(), "ZM4");
  EXPECT_EQ(editor.VarHeader(50), "");
  EXPECT_THROW(editor.VarHeader(51), std::out_of_range);

  script.box(
      "Var 3 is OPTIONAL",
      "Var 3 is OPTIONAL. If you do not enter data into Var 3 and you later select an option "
      "that requires this variable you will be prompted on what to do.");
  visit([&] {
    fill({{"1", "", "5"}, {"2", "", "5"}, {"4", "", "6"}, {"5", "", "6"}});
    script.box("", "You need data for variable Var2");
    editor.cmdOK.click();
    fill({{"1", "3"}, {"2", "4"}, {"4", "8"}, {"5", "7"}});
    script.box("Binary Variable Error", "You have only one 6 in your data");
    editor.cmdOK.click();
    fill({{"1", "3", "5"}, {"2", "4", "5"}, {"4", "8", "6"}, {"5", "7", "6"}, {"6", "9", "6"}});
    script.box(saveFirst, Answer::no);
    editor.cmdOK.click();
  });
  EXPECT_EQ(editor.CompleteObservations(), 5);
  EXPECT_EQ(editor.DataValue(3, 5), 6);
}

TEST_F(DataEditorHost, WithoutVariablesTheProgramEnds) {
  editor.setNumberVariables(0);
  script.box("", "Error 154 - invalid number of variables.");
  EXPECT_THROW(editor.SetupEditor(), ProgramEnded);
  script.finish();
}

TEST_F(DataEditorHost, AColourFollowsTheMouseAndFades) {
  visit([&] {
    raise(editor.cmdOpen.MouseMove);
    desktop.advance(600);
    raise(editor.cmdSave.MouseMove);
    EXPECT_EQ(editor.cmdOpen.backColour(), colours::buttonFace);
    EXPECT_TRUE(isLit(editor.cmdSave));
    EXPECT_EQ(editor.cmdSave.foreColour(), colours::black);
    desktop.advance(1000);
    EXPECT_EQ(editor.cmdSave.backColour(), colours::buttonFace);
    cancel();
  });
}

// Saving on the way out is acknowledged before the way out itself.
TEST_F(DataEditorHost, SaveFlashesBeforeTheButtonThatLeaves) {
  visit([&] {
    fill({{"1", "2"}, {"3", "5"}, {"4", "4"}});
    savesAs(folder.file("mine.zmm"));
    script.box(saveFirst, Answer::yes);
    editor.cmdOK.click();
    std::string seen;
    for (int tenths = 0; editor.visible(); ++tenths) {
      ASSERT_LT(tenths, 30);
      const char now = isLit(editor.cmdSave) ? 'S' : isLit(editor.cmdOK) ? 'O' : '-';
      if (seen.empty() || seen.back() != now) seen += now;
      raise(editor.cmdOpen.MouseMove);
      desktop.advance(100);
    }
    EXPECT_EQ(seen, "S-O-");
  });
  EXPECT_FALSE(editor.UserCancel());
  EXPECT_EQ(editor.CompleteObservations(), 3);
}

TEST_F(DataEditorHost, TheClipboardServesTheMarkedPartOfTheTitle) {
  visit([&] {
    editor.txtTitle.setFocus();
    editor.txtTitle.setText("Rents in K\xC3\xB6ln");
    editor.txtTitle.reportMarked({0, 5});
    editor.menu.mnuEditCut.click();
    EXPECT_EQ(desktop.clipboard().text, "Rents");
    EXPECT_EQ(editor.sheet().title(), " in K\xC3\xB6ln");
    desktop.setClipboard({.text = "Prices\nand rents\n"});
    editor.menu.mnuEditPaste.click();
    EXPECT_EQ(editor.txtTitle.text(), "Prices and rents in K\xC3\xB6ln");
    EXPECT_EQ(editor.txtTitle.marked().first, 16U);
    EXPECT_EQ(editor.spdData.text(2, 2), "");
    cancel();
  });
}

}  // namespace
}  // namespace tolmer::test
