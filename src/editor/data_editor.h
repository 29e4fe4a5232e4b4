// The data editor: the student's own data as a small spreadsheet.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "data/data_sources.h"
#include "editor/button_lights.h"
#include "editor/data_set_files.h"
#include "editor/data_validation.h"
#include "editor/sheet_window.h"
#include "platform/timer.h"
#include "sheetfiles/autosave.h"

namespace tolmer {

struct EditorPlaces {
  std::string program;  // the program's folder, in the host's spelling
  VisitPlaces* aside;   // outlives the editor; null: nothing is written aside
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

// Modal, and only hidden between visits: the data stay.
class frmDataEditor : public SheetWindow, public EditorData {
 public:
  frmDataEditor(Desktop& desktop, EditorPlaces places);
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
  std::string VarHeader(int iVarNum) const;
  void setVarHeader(int iVarNum, const std::string& name);
  Int16 NumberDecimals(int iVarNum) const;
  void setNumberDecimals(int iVarNum, Int16 digits);
  const std::string& GraphTitle() const { return sheet_.title(); }
  void setGraphTitle(const std::string& title) { sheet_.setTitle(title); }
  std::string tfFileFilter();
  std::string tfFileTypeCode() const { return editorFileTypeCode(sheet_.variables()); }

  // --- for the host, once the window is closed
  StudentData studentData() const override { return exit_; }
  Int16 CompleteObservations() const { return static_cast<Int16>(exit_.miCompleteObs); }
  bool DataLabelsEntered() const { return exit_.mbDataLabelsEntered; }
  std::string DataLabel(int iOb) const;
  double DataValue(int iVar, int iOb) const;
  bool UserCancel() const override { return mbUserCancel_; }
  // Sets the editor up where the host has not.
  void ShowDataEditor() override;
  // The next visit begins by opening that file, as Open would.
  void openAtNextVisit(DroppedFile file) { toOpen_ = std::move(file); }

  // The next visit begins with a copy of data of that name. Cancel brings back what it replaces.
  void takeOverAtNextVisit(SheetContent content, std::string name) {
    toTakeOver_ = TakenData{std::move(name), std::move(content)};
  }
  // Before other data are put in for what the student holds there: asks where that is in no file,
  // and offers first what a crash has left behind. False where it is to stay.
  bool mayGiveWayTo(const std::string& name);

  // Before the program ends: asks once what becomes of data that are in no file. False where the
  // program is to go on, with everything as it was.
  bool mayEndProgram();

 private:
  void checkVariable(int iVarNum) const;

  // --- the visit
  void describeControls();
  void wireMenu();
  void wireOptionsAndHelp();
  void wireCellMenu();
  void wireControls();
  void Form_Activate();
  void declareKeys();
  void giveUpEntry();
  void tellOptionalVariable();
  void beginFirstVisit();
  void showInstructions(int index);
  void closeInstructions();

  // --- whole data sets
  void mnuFileNew_Click();
  void cmdOpen_Click();
  void open(const std::function<OpenOutcome()>& routine);
  void openDropped(const DroppedFile& file);
  void cmdSave_Click();
  void save(bool (DataSetFiles::*routine)());
  // Save: under the name it has, else a new one.
  auto savingRoutine() const {
    return menu.mnuFileSave.enabled() ? &DataSetFiles::SaveCurrentFile : &DataSetFiles::SaveFileAs;
  }
  bool replacingLosesData() const { return sheet_.changeMade() || sheet_.unsaved(); }

  // --- data in no file, in save_question.cpp
  void offerLostWork();
  void offerToKeep(VisitPlace& lost, const Error& fault);
  void tmrAutosave_Tick();
  enum class Writing { whenDue, now };
  void writeAside(Writing when);
  bool bfOKToContinue();
  bool holdsUnsavedWork() const;
  bool isSavedOrGivenUp(const std::string& before);

  // --- the ways out
  void cmdOK_Click();
  void cmdCancel_Click();
  void flashAndLeave(Button& button, std::function<void()> last = {});
  void leave();

  EditorSetup setup_;
  DataSetFiles files_;
  Autosave autosave_;
  ButtonLights lights_;
  Timer tmrAutosave_;
  StudentData exit_;
  std::optional<DroppedFile> toOpen_;
  std::optional<TakenData> toTakeOver_;
  bool tookOver_ = false;  // this visit began with such data
  bool mbEditorOpen_ = false;
  bool mbUserCancel_ = false;
  bool activatedOnce_ = false;
  bool isSetUp_ = false;
};

}  // namespace tolmer
