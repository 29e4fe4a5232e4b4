// The data editor: the student's own data as a small spreadsheet.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "data/data_sources.h"
#include "editor/autosave.h"
#include "editor/data_editor_menu.h"
#include "editor/data_sheet.h"
#include "editor/exit_check.h"
#include "editor/text_import.h"
#include "platform/button.h"
#include "platform/grid/edit_grid.h"
#include "platform/label.h"
#include "platform/text_box.h"
#include "platform/timer.h"
#include "platform/window.h"
#include "symbolfile/symbol_file.h"

namespace tolmer {

struct EditorFolders {
  std::string program;   // in the host's spelling
  std::string autosave;  // empty: nothing is written aside
};

// Modal, and only hidden between visits: the data stay. The sheet is the document, the grid shows
// it: row r and column c of the grid are row r - 1 and column c - 1 of the sheet.
class frmDataEditor : public Window, public EditorData {
 public:
  frmDataEditor(Desktop& desktop, EditorFolders folders);

  // --- for the host
  Int16 CompleteObservations() const override { return static_cast<Int16>(exit_.miCompleteObs); }
  bool DataLabelsEntered() const override { return exit_.mbDataLabelsEntered; }
  std::string DataLabel(int iOb) const override;
  double DataValue(int iVar, int iOb) const override;
  // iVarNum 0 is the label column. Throws std::out_of_range beyond the variables.
  std::string VarHeader(int iVarNum) const override;
  bool UserCancel() const override { return mbUserCancel_; }
  void ShowDataEditor() override;

  // The document, for dialogs and tests.
  DataSheet& sheet() { return sheet_; }

  DataEditorMenu menu;
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
  // --- data_editor.cpp: the visit
  void describeControls();
  void wireMenu();
  void wireControls();
  void Form_Activate();
  bool Form_KeyDown(const KeyPress& key);
  void offerLostWork();
  void tmrAutosave_Tick();

  // --- data_editor_grid.cpp: the sheet on the screen
  void InitialiseGrid();
  void placeControls();
  void follow(const SheetChange& change);
  void showCell(int row, int col);
  void showColumn(int col);
  void showAll();
  void showStatus();
  void showCaption();
  void spdData_EditDone(CellPosition cell, const std::string& text, bool& bAccepted);
  CellRange selectedRange() const;

  // --- data_editor_edit.cpp: blocks, rows, formats
  void command(GridCommand what);
  void copySelection(bool cut);
  void paste();
  void pasteText(const std::string& text);
  void tellImportFailed(const std::string& title, const Error& error);
  std::optional<ImportedTable> importTable(const TextImport& import, const SheetContent& into,
                                           const std::string& source);
  void takePaste(const CellRange& target, const PasteTable& table);
  void undoOrRedo(bool undo);
  void insertOrDeleteRows(bool insert);
  void showDialog(Window& dialog);
  void showInstructions(int index);
  void closeInstructions();

  // --- data_editor_files.cpp: whole data sets
  void mnuFileNew_Click();
  void cmdOpen_Click();
  void openFile(const std::string& name);
  void openText(const std::string& name);
  void cmdSave_Click();
  void saveAndLight(const std::function<void()>& save);
  void SaveCurrentFile();
  void SaveFileAs();
  bool SaveFile(const std::string& name);
  bool canBeOpened(const std::string& name, bool allowRetry);
  bool bfOKToContinue();
  std::string dataFolder() const;

  // --- data_editor_exit.cpp: the ways out
  void cmdOK_Click();
  void cmdCancel_Click();
  void flashAndLeave(Button& button, std::function<void()> leave);
  void tmrFlash_Tick();
  void light(Button& button);
  void resetButtons();
  void leave();

  EditorFolders folders_;
  DataSheet sheet_;
  HostFiles files_;
  SymbolFileHost symbolFiles_;
  Autosave autosave_;
  Timer tmrButton_;
  Timer tmrFlash_;
  Timer tmrAutosave_;
  ExitData exit_;
  std::string refusal_;  // why the last entry was not taken
  PasteTable copied_;    // what was copied here last, with its formulas
  int copies_ = 0;
  Button* flashing_ = nullptr;
  int flashesLeft_ = 0;
  std::function<void()> afterFlash_;
  bool mbEditorOpen_ = false;
  bool mbUserCancel_ = false;
  bool activatedOnce_ = false;
};

}  // namespace tolmer
