// The data editor: the student's own data as a small spreadsheet.
#pragma once

#include <string>
#include <vector>

#include "data/data_sources.h"
#include "editor/button_lights.h"
#include "editor/data_editor_menu.h"
#include "editor/data_set_files.h"
#include "editor/exit_check.h"
#include "editor/find_dialog.h"
#include "platform/button.h"
#include "platform/grid/edit_grid.h"
#include "platform/label.h"
#include "platform/text_box.h"
#include "platform/timer.h"
#include "platform/window.h"
#include "sheet/data_sheet.h"
#include "sheetfiles/autosave.h"

namespace tolmer {

struct EditorFolders {
  std::string program;   // in the host's spelling
  std::string autosave;  // empty: nothing is written aside
};

// What the host asks for.
struct EditorSetup {
  Int16 NumberVariables = editorVariables;
  Int16 MaxObservations = editorObservations;
  ExitLimits limits{};
  // Kept for the host: nothing in the editor hangs on them.
  bool AllowNoData = true;
  bool CopyChangedData = false;
  bool ChangeTitleEnabled = false;
};

// Modal, and only hidden between visits: the data stay. The sheet is the document, the grid shows
// it: row r and column c of the grid are row r - 1 and column c - 1 of the sheet.
class frmDataEditor : public Window, public EditorData {
 public:
  frmDataEditor(Desktop& desktop, EditorFolders folders);
  ~frmDataEditor() override;

  // --- for the host, before SetupEditor
  Int16 NumberVariables() const { return setup_.NumberVariables; }
  void setNumberVariables(Int16 variables) { setup_.NumberVariables = variables; }
  void setMinVariables(Int16 variables) { setup_.limits.miMinVariables = variables; }
  Int16 MaxObservations() const { return setup_.MaxObservations; }
  void setMaxObservations(Int16 observations) { setup_.MaxObservations = observations; }
  void setMinObservations(Int16 observations) { setup_.limits.miMinObservations = observations; }
  bool ChangeTitleEnabled() const { return setup_.ChangeTitleEnabled; }
  void setChangeTitleEnabled(bool on) { setup_.ChangeTitleEnabled = on; }
  bool CopyChangedData() const { return setup_.CopyChangedData; }
  void setCopyChangedData(bool on) { setup_.CopyChangedData = on; }
  void setAllowNoData(bool on) { setup_.AllowNoData = on; }
  // An empty sheet of that size. Ends the program, after a message, below one variable.
  void SetupEditor();

  // --- for the host, at any time; iVarNum 0 is the label column. Throws std::out_of_range outside
  // 0..50; columns that the sheet has not are without name and digits.
  std::string LabelHeader() const { return VarHeader(0); }
  void setLabelHeader(const std::string& name) { setVarHeader(0, name); }
  std::string VarHeader(int iVarNum) const override;
  void setVarHeader(int iVarNum, const std::string& name);
  Int16 NumberDecimals(int iVarNum) const;
  void setNumberDecimals(int iVarNum, Int16 digits);
  const std::string& GraphTitle() const { return sheet_.title(); }
  void setGraphTitle(const std::string& title) { sheet_.setTitle(title); }
  std::string tfFileFilter();
  std::string tfFileTypeCode() const { return editorFileTypeCode(sheet_.variables()); }

  // --- for the host, once the window is closed
  Int16 CompleteObservations() const override { return static_cast<Int16>(exit_.miCompleteObs); }
  bool DataLabelsEntered() const override { return exit_.mbDataLabelsEntered; }
  std::string DataLabel(int iOb) const override;
  double DataValue(int iVar, int iOb) const override;
  bool UserCancel() const override { return mbUserCancel_; }
  // Sets the editor up where the host has not.
  void ShowDataEditor() override;

  // Before the program ends: asks once what becomes of data that are in no file. False where the
  // program is to go on, with everything as it was.
  bool mayEndProgram();

  // The document, for dialogs and tests.
  DataSheet& sheet() { return sheet_; }

  DataEditorMenu menu;
  DataEditorCellMenu cellMenu;
  Label lblTitle{this, "lblTitle", "&Title:"};
  TextBox txtTitle{this, "txtTitle"};
  EditGrid spdData{this, "spdData"};
  Label Label1{this, "Label1", "Hint: Type = to enter a formula"};
  Label lblStatus{this, "lblStatus"};
  Button cmdOpen{this, "cmdOpen", "Open"};
  Button cmdSave{this, "cmdSave", "Save"};
  Button cmdOK{this, "cmdOK", "OK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  TextBox txtHelp{this, "txtHelp"};
  Button cmdClose{this, "cmdClose", "&Close"};

 private:
  // --- data_editor_host.cpp
  void checkVariable(int iVarNum) const;

  // --- data_editor.cpp: the visit
  void describeControls();
  void wireMenu();
  void wireOptionsAndHelp();
  void wireCellMenu();
  void wireControls();
  void wireGrid();
  void Form_Activate();
  bool Form_KeyDown(const KeyPress& key);
  void giveUpEntry();
  void tellOptionalVariable();
  void offerLostWork();
  void offerToKeep(LostWork& lost, const Error& fault);
  void tmrAutosave_Tick();
  enum class Writing { whenDue, now };
  void writeAside(Writing when);

  // --- data_editor_grid.cpp: the sheet on the screen
  void InitialiseGrid();
  void resetGrid();
  void placeControls();
  void follow(const SheetChange& change);
  void showCell(int row, int col);
  void showColumn(int col);
  void showAll();
  void showStatus();
  std::string statusText() const;
  void refuse(std::string reason);
  void forgetMessages();
  void showCaption();
  void spdData_EditDone(CellPosition cell, const std::string& text, bool& bAccepted);
  bool entryIsTaken();
  CellRange selectedRange() const;
  std::vector<CellRange> selectedRanges() const;
  static CellRange rangeOf(const CellBlock& block);
  void markRanges(const std::vector<CellRange>& ranges);

  // --- data_editor_formula.cpp: a formula while it is typed
  bool typesFormula() const;
  void spdData_EditChanged();
  std::string pointingText() const;

  // --- data_editor_edit.cpp: blocks, rows, formats
  void command(GridCommand what);
  void copySelection(bool cut);
  std::string htmlOf(const CopiedBlock& block) const;
  void paste();
  // The text box that has the focus; null where the cells are meant.
  TextBox* focusedText();
  void copyText(TextBox& box, bool cut);
  void pasteInto(TextBox& box);
  void pasteText(const std::string& text);
  void takePaste(const CellRange& target, const PasteTable& table);
  void tellRefused(int refused, const std::string& reason);
  bool isOneBlock(const std::string& command);
  void undoOrRedo(bool undo);
  void insertOrDeleteRows(bool insert);
  bool mayChangeRows(bool insert) const;
  void fillDown();
  void fillSeries();
  void fill(const CellRange& from, const CellRange& to);
  void openCellMenu();
  void find(bool replaces);
  void showDialog(Window& dialog);
  void showInstructions(int index);
  void closeInstructions();

  // --- data_editor_files.cpp: whole data sets
  void mnuFileNew_Click();
  void cmdOpen_Click();
  void cmdSave_Click();
  void save(bool (DataSetFiles::*routine)());
  // Save: under the name it has, else a new one.
  auto savingRoutine() const {
    return menu.mnuFileSave.enabled() ? &DataSetFiles::SaveCurrentFile : &DataSetFiles::SaveFileAs;
  }
  bool replacingLosesData() const { return sheet_.changeMade() || sheet_.unsaved(); }

  // --- data_editor_exit.cpp: the ways out
  bool bfOKToContinue();
  bool holdsUnsavedWork() const;
  void cmdOK_Click();
  void cmdCancel_Click();
  void leave();

  // What was made of an entry that is not written so; stays in the status line while the cursor is
  // in that cell and in the next one.
  struct EntryTold {
    CellPosition cell{};
    std::string text{};
  };

  EditorSetup setup_;
  DataSheet sheet_;
  DataSetFiles files_;
  Autosave autosave_;
  ButtonLights lights_;
  Timer tmrAutosave_;
  ExitData exit_;
  std::string refusal_;  // what the status line says in place of the cell: what was not done, why
  std::string notice_;   // the same, where something was done
  EntryTold told_;
  PasteTable copied_;  // what was copied here last, with its formulas
  int copies_ = 0;
  FindRequest findRequest_;
  bool entryIsOpen_ = false;
  bool mbEditorOpen_ = false;
  bool mbUserCancel_ = false;
  bool activatedOnce_ = false;
  bool isSetUp_ = false;
};

}  // namespace tolmer
