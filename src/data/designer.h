// The model designer: the student turns a data set into a model.
#pragma once

#include <functional>
#include <string>

#include "data/data_sources.h"
#include "data/working_copy.h"
#include "platform/buttons.h"
#include "platform/curtain.h"
#include "platform/fields.h"
#include "platform/grid/grid.h"
#include "platform/panels.h"
#include "platform/window.h"
#include "state/analysis_state.h"

namespace tolmer {

// Where the designer's data come from. Without an editor its data source opens an empty data set.
struct DesignerSources {
  const ScenarioSource& scenarios;
  std::string programFolder;
  EditorData* editor = nullptr;
  bool keepsModel = false;  // of data of the editor, where they have the variables of that in force
};

// Construction loads what the state asks for: the data in force where bChangeModelOnly, else the
// source iDataSource. Everything happens on a working copy; only OK on a changed and valid model
// writes the shared state. The window is modal and leaves by OK and Cancel alone.
class frmModelDesign : public Window {
 public:
  frmModelDesign(Desktop& desktop, AnalysisState& state, const DesignerSources& sources,
                 const Window& mainWindow);

  // The working copy with its model, for the list of all data.
  const WorkingCopy& workingCopy() const { return copy_; }

  // Called by OK while the program is starting, when the window has been hidden.
  std::function<void()> ShowInitialChildren;

  // --- the loaders: a data set, its model on the screen
  void LoadFromDataEditor();

  // --- the working copy on the screen
  void DisplayComment();
  void DisplayDepVar();
  void DisplayIndepVars();
  void DisplayVarDef(int iRow);  // nothing for a row below the last variable
  void DisplayVarDefs();
  void DisplayVarList();

  // While the program starts, the panel stands in the lower right corner of the main window's
  // ground; otherwise the window is as large as the panel and in the middle of the screen.
  void PositionForm();

  Curtain pnlGround{this, "pnlGround"};  // around the panel, while the program starts
  Panel picControls{this, "picControls"};
  Frame fraVarList{&picControls, "fraVarList", "List of Variables"};
  Grid spdVarList{&fraVarList, "spdVarList"};
  Button cmdDepVarSelect{&picControls, "cmdDepVarSelect", "&Choose >"};
  Button cmdDepVarDeselect{&picControls, "cmdDepVarDeselect", "< &Remove"};
  Button cmdIndVarSelect{&picControls, "cmdIndVarSelect", "Ch&oose >"};
  Button cmdIndVarDeselect{&picControls, "cmdIndVarDeselect", "< Re&move"};
  Frame fraIncluded{&picControls, "fraIncluded", "Variables To Be Included"};
  Frame fraDepVar{&fraIncluded, "fraDepVar", "Dependent Variable"};
  TextBox txtDepVar{&fraDepVar, "txtDepVar"};
  Frame fraIndepVars{&fraIncluded, "fraIndepVars", "Independent Variables"};
  Grid spdIndepVars{&fraIndepVars, "spdIndepVars"};
  CheckBox chkUseIntercept{&fraIncluded, "chkUseIntercept", "Include Intercept"};
  Button cmdOK{&picControls, "cmdOK", "OK"};
  Button cmdCancel{&picControls, "cmdCancel", "Cancel"};
  Button cmdHelp{&picControls, "cmdHelp", "&Help"};
  Button cmdShowData{&picControls, "cmdShowData", "Show &Data"};
  Button cmdFormerModel{&picControls, "cmdFormerModel", "&Former Model"};
  Frame fraVarDefs{&picControls, "fraVarDefs", "Definitions of Variables"};
  Panel fraVarDefsInside{&fraVarDefs, "fraVarDefsInside"};
  Grid spdVarDefs{&fraVarDefsInside, "spdVarDefs"};
  TextBox txtVblDef{&fraVarDefs, "txtVblDef"};
  Frame fraComments{&picControls, "fraComments", "Comments"};
  TextBox txtComments{&fraComments, "txtComments"};

 private:
  void Form_Load();
  void Form_Activate();
  void Form_QueryUnload(bool& bCancel) const;
  void loadDataSource();
  void displayLoadedModel();
  void displayInformation();
  void spdVarList_DblClick();
  void cmdDepVarSelect_Click();
  void cmdDepVarDeselect_Click();
  void cmdIndVarSelect_Click();
  void cmdIndVarDeselect_Click();
  void answer(Button& button, bool hasDone, const char* words);
  void cmdOK_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();
  void cmdShowData_Click();
  void cmdFormerModel_Click();
  void showVarDefOfActiveRow();
  void openEditorAgain();
  void leaveUnchanged();
  void leave();

  void wireEvents();
  void describeControls();
  void layOut(Twips upperHeight, Twips height, Size room);
  void placeLists(Twips height);
  void placeButtons();
  void placeDefinitions(Twips top, Twips height);
  Size innerOfMainWindow() const;
  void placeOverMainWindow(Size inner);

  AnalysisState& state_;
  DesignerSources sources_;
  const Window& mainWindow_;
  WorkingCopy copy_;
  bool mbOKToUnload_ = false;
};

}  // namespace tolmer
