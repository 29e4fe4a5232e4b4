#include "data/designer.h"

#include <algorithm>
#include <cmath>

#include "data/data_file.h"
#include "data/model_choice.h"
#include "data/show_data.h"
#include "platform/desktop.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

// Of a row of definitions, and the least of a list's row; without the line below it.
constexpr Twips rowHeight = pixels(20);

// The height of the rows of a list that is so high, on whole pixels: as many as have room, and none
// of them cut off.
Twips rowHeightToFill(Twips listHeight) {
  const float room = listHeight / twipsPerPixel - 1;
  const float rows = std::max(std::floor(room / (rowHeight / twipsPerPixel + 1)), 1.0F);
  return pixels(std::max(std::floor(room / rows) - 1, rowHeight / twipsPerPixel));
}

constexpr long helpOnModels = 102;

RowSelection selectionOf(const Grid& list) {
  RowSelection selection{{}, list.activeCell().row};
  for (const CellBlock& block : list.selection().blocks())
    selection.blocks.push_back({block.row, block.row2});
  return selection;
}

constexpr int leastListRows = 13;
constexpr int leastDefinitionRows = 5;
constexpr Twips numberColumnWidth = 1000;

std::string columnText(int col) { return "Col " + std::to_string(col); }

// Two columns, number and name, of equal height; the name takes what the scroll bar leaves.
void shapeList(Grid& list, int rows, Twips barThickness) {
  list.setSize(rows, 2);
  const Twips height = rowHeightToFill(list.height());
  for (int row = 1; row <= rows; ++row) list.setRowHeight(row, height);
  list.setColWidth(1, numberColumnWidth);
  const Twips lines = pixels(3);
  list.setColWidth(2, std::max(list.width() - numberColumnWidth - barThickness - lines, 0.0F));
  list.setScrollBars(ScrollBars::vertical);
}

// Heights of the panel, in twips: definitions and comments take what lies below the shorter one.
constexpr Twips startingHeight = 5700;
constexpr Twips startingHeightWithoutInfo = 3700;
constexpr Twips usualHeight = 6000;
constexpr Twips usualHeightWithoutInfo = 4000;
constexpr Twips startingGapRight = 100;
constexpr Twips startingGapBelow = 800;

constexpr Twips usualWidth = pixels(720);
// On a small screen the lists are lower and narrower, down to these.
constexpr Twips leastWidth = pixels(640);
constexpr Twips leastUpper = pixels(200);
constexpr Twips leastLower = pixels(90);
constexpr Twips titleBar = pixels(40);
constexpr Twips gap = pixels(8);
constexpr Twips underTitle = pixels(20);  // where the inside of a frame begins
constexpr Twips buttonHeight = pixels(26);
constexpr Twips listWidth = pixels(216);
constexpr Twips arrowWidth = pixels(84);
constexpr Twips commandWidth = pixels(92);
constexpr Twips arrowLeft = gap + listWidth + gap;
constexpr Twips includedLeft = arrowLeft + arrowWidth + gap;
constexpr Twips depVarHeight = pixels(56);
constexpr Twips framesTop = pixels(6);
constexpr Twips checkHeight = pixels(23);
constexpr Twips commentsWidth = pixels(244);
constexpr Twips chosenWidth = pixels(170);

// Inside a frame of that size, below its title.
Rect insideOf(const Frame& frame) {
  return {gap, underTitle, frame.width() - 2 * gap, frame.height() - underTitle - gap};
}

// The part of a place that whole rows of a list fill, so that none is cut off.
Rect filledByRows(const Rect& place) {
  const Twips step = rowHeightToFill(place.height) + twipsPerPixel;
  const Twips rows = std::floor((place.height - twipsPerPixel) / step);
  return {place.left, place.top, place.width, rows * step + twipsPerPixel};
}

void speak(Control& control, const char* name, const char* tip) {
  control.setAccessibleName(name);
  control.setTip(tip);
}

}  // namespace

frmModelDesign::frmModelDesign(Desktop& desktop, AnalysisState& state,
                               const DesignerSources& sources, const Window& mainWindow)
    // At the start it lies over the main window's ground, and a title bar would push it off that.
    : Window(desktop, "frmModelDesign", state.bStartingUp ? WindowStyle::bare : WindowStyle::dialog,
             "Variable Selection"),
      state_(state),
      sources_(sources),
      mainWindow_(mainWindow) {
  describeControls();
  Form_Load();
  wireEvents();
}

void frmModelDesign::wireEvents() {
  Activate = [this] { Form_Activate(); };
  QueryUnload = [this](bool& bCancel) { Form_QueryUnload(bCancel); };
  cmdDepVarSelect.Click = [this] { cmdDepVarSelect_Click(); };
  cmdDepVarDeselect.Click = [this] { cmdDepVarDeselect_Click(); };
  cmdIndVarSelect.Click = [this] { cmdIndVarSelect_Click(); };
  cmdIndVarDeselect.Click = [this] { cmdIndVarDeselect_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdHelp.Click = [this] { cmdHelp_Click(); };
  takeKey({keys::f1}, [this] { cmdHelp_Click(); });
  cmdShowData.Click = [this] { cmdShowData_Click(); };
  cmdFormerModel.Click = [this] { cmdFormerModel_Click(); };
  spdVarList.DblClick = [this](CellPosition) { spdVarList_DblClick(); };
  spdIndepVars.DblClick = [this](CellPosition) { cmdIndVarDeselect_Click(); };
  spdVarList.Click = [this](CellPosition) { showVarDefOfActiveRow(); };
  spdVarList.SelectionChange = [this] { showVarDefOfActiveRow(); };
}

void frmModelDesign::Form_Load() {
  if (state_.bChangeModelOnly) {
    CopyGlobalVarsToModule(copy_, state_);
    chkUseIntercept.setValue(copy_.mbUseIntercept ? 1 : 0);
  } else {
    loadDataSource();
  }
  displayInformation();
  DisplayVarList();
  DisplayDepVar();
  DisplayIndepVars();
}

void frmModelDesign::displayInformation() {
  PositionForm();
  if (!copy_.mbInfoAvailable) return;
  ReadVarInfo(copy_, desktop());
  DisplayComment();
  DisplayVarDef(1);
  DisplayVarDefs();
}

void frmModelDesign::loadDataSource() {
  const auto load = [this](auto* routine) {
    routine(copy_, sources_.scenarios, sources_.programFolder, desktop());
    displayLoadedModel();
  };
  if (state_.iDataSource == databasePage) return load(LoadNewDatabase);
  if (state_.iDataSource == dataEditor) return LoadFromDataEditor();
  if (state_.iDataSource == scenarioExample)
    return load(state_.bUseDefaultData ? LoadDefaultExample : LoadNewExample);
  return DimensionModelDesignerArrays(copy_);
}

void frmModelDesign::LoadFromDataEditor() {
  if (sources_.editor)
    tolmer::LoadFromDataEditor(copy_, sources_.editor->studentData());
  else
    DimensionModelDesignerArrays(copy_);
  displayLoadedModel();
  cmdFormerModel.setVisible(!columnsOfFormerModel(copy_, state_).empty());
  if (sources_.keepsModel && cmdFormerModel.visible()) cmdFormerModel_Click();
}

void frmModelDesign::displayLoadedModel() {
  chkUseIntercept.setValue(1);
  DisplayDepVar();
  DisplayIndepVars();
}

// Return still means OK: the list leaves it to the default button.
void frmModelDesign::Form_Activate() {
  mbOKToUnload_ = false;
  spdVarList.setFocus();
}

void frmModelDesign::Form_QueryUnload(bool& bCancel) const {
  if (!mbOKToUnload_) bCancel = true;
}

void frmModelDesign::cmdDepVarSelect_Click() {
  SpecifyDepVar(copy_, selectionOf(spdVarList), desktop());
  spdVarList.unmarkBlocks();
  // A refusal leaves the earlier name on the screen, but it counts no more: OK will say so.
  copy_.mbDepVarSpecified = copy_.mbNewDepVarOK;
  if (copy_.mbNewDepVarOK) DisplayDepVar();
}

// The first variable taken so is the dependent one, as a reader of the equation would name them.
void frmModelDesign::spdVarList_DblClick() {
  if (copy_.mbDepVarSpecified)
    cmdIndVarSelect_Click();
  else
    cmdDepVarSelect_Click();
}

void frmModelDesign::cmdDepVarDeselect_Click() {
  const bool hadOne = !txtDepVar.text().empty();
  UnSpecifyDepVar(copy_);
  DisplayDepVar();
  answer(cmdDepVarDeselect, hadOne, "No dependent variable is chosen.");
}

void frmModelDesign::cmdIndVarSelect_Click() {
  const Int16 before = copy_.miNumPredictors;
  SpecifyIndepVars(copy_, selectionOf(spdVarList));
  spdVarList.unmarkBlocks();
  DisplayIndepVars();
  answer(cmdIndVarSelect, copy_.miNumPredictors != before,
         "Nothing was added: mark a variable that is not in the model yet.");
}

void frmModelDesign::cmdIndVarDeselect_Click() {
  const Int16 before = copy_.miNumPredictors;
  UnSpecifyIndepVars(copy_, selectionOf(spdIndepVars));
  spdIndepVars.unmarkBlocks();
  DisplayIndepVars();
  answer(cmdIndVarDeselect, copy_.miNumPredictors != before,
         "Nothing was removed: mark a variable of the list Independent Variables.");
}

// A button that has found nothing to do says so, also to those who pressed its letter and look
// elsewhere.
void frmModelDesign::answer(Button& button, bool hasDone, const char* words) {
  desktop().tellAt(button, hasDone ? "" : words);
}

void frmModelDesign::cmdOK_Click() {
  copy_.mbUseIntercept = chkUseIntercept.value() == 1;
  CheckForChanges(copy_, state_);
  if (!copy_.mbModelHasChanged) {
    state_.bModelHasChanged = false;
  } else {
    CheckModelSpec(copy_);
    if (!copy_.mbModelOK) {
      desktop().messageBox({"Model Specification Error", copy_.mtErrorMessage,
                            MessageIcon::exclamation, MessageButtons::ok});
      return;
    }
    CopyModuleVarsToGlobal(copy_, state_);
  }
  leave();
  if (state_.bStartingUp && ShowInitialChildren) ShowInitialChildren();
}

// What Cancel means depends on why the window was opened.
void frmModelDesign::cmdCancel_Click() {
  if (state_.bChangeModelOnly) return leaveUnchanged();
  if (state_.bChangeDataOnly) return openEditorAgain();
  state_.bNewDataRequested = true;
  leave();
}

// The data came from the editor: its own Cancel ends the whole change, its OK brings new data.
void frmModelDesign::openEditorAgain() {
  EditorData* editor = sources_.editor;
  if (!editor || editor->UserCancel()) return leaveUnchanged();
  editor->ShowDataEditor();
  if (editor->UserCancel()) return leaveUnchanged();
  LoadFromDataEditor();
  displayInformation();
  DisplayVarList();
}

void frmModelDesign::leaveUnchanged() {
  state_.bModelHasChanged = false;
  leave();
}

void frmModelDesign::leave() {
  mbOKToUnload_ = true;
  hide();
}

void frmModelDesign::cmdHelp_Click() {
  desktop().showHelp({"tolmod", HelpRequest::Kind::topic, helpOnModels});
}

void frmModelDesign::cmdShowData_Click() {
  desktop().setBusyPointer(true);
  frmShowData list(desktop(), copy_);
  list.PositionControls();
  list.UpdateDisplay();
  desktop().setBusyPointer(false);
  list.showModal();
}

void frmModelDesign::cmdFormerModel_Click() {
  SpecifyModel(copy_, columnsOfFormerModel(copy_, state_));
  chkUseIntercept.setValue(state_.bUseIntercept ? 1 : 0);
  DisplayDepVar();
  DisplayIndepVars();
}

void frmModelDesign::showVarDefOfActiveRow() {
  if (fraVarDefs.visible() && txtVblDef.visible()) DisplayVarDef(spdVarList.selection().head().row);
}

void frmModelDesign::DisplayComment() { txtComments.setText(copy_.otVarInfo(0)); }

void frmModelDesign::DisplayDepVar() {
  txtDepVar.setText(copy_.mbDepVarSpecified
                        ? columnText(copy_.miDepVarCol) + "  " + copy_.otColName(copy_.miDepVarCol)
                        : std::string());
}

void frmModelDesign::DisplayVarList() {
  const RedrawLock lock(spdVarList);
  const int rows = std::max<int>(copy_.miNumCols, leastListRows);
  shapeList(spdVarList, rows, desktop().scrollBarThickness());
  spdVarList.clear({1, 1, rows, 2});
  for (int row = 1; row <= copy_.miNumCols; ++row) {
    spdVarList.setText(row, 1, columnText(row));
    spdVarList.setText(row, 2, copy_.otColName(row));
  }
}

void frmModelDesign::DisplayIndepVars() {
  const RedrawLock lock(spdIndepVars);
  const int rows = std::max<int>(copy_.miNumCols, leastListRows);
  shapeList(spdIndepVars, rows, desktop().scrollBarThickness());
  spdIndepVars.clear({1, 1, rows, 2});
  for (int row = 1; row <= copy_.miNumPredictors; ++row) {
    const int col = copy_.oiIndepVarCol(row);
    spdIndepVars.setText(row, 1, columnText(col));
    spdIndepVars.setText(row, 2, copy_.otColName(col));
  }
}

void frmModelDesign::DisplayVarDefs() {
  const RedrawLock lock(spdVarDefs);
  const int rows = std::max<int>(copy_.miNumCols, leastDefinitionRows);
  spdVarDefs.setSize(rows, 2);
  CellStyle style;
  style.back = colours::buttonFace;
  style.fore = colours::buttonText;
  spdVarDefs.setStyle({1, 1, rows, 2}, style);
  for (int row = 1; row <= rows; ++row) {
    const bool isVariable = row <= copy_.miNumCols;
    spdVarDefs.setText(row, 1, isVariable ? copy_.otColName(row) : std::string());
    spdVarDefs.setText(row, 2, isVariable ? copy_.otVarInfo(row) : std::string());
    spdVarDefs.setRowHeight(row, rowHeight);
  }
  const auto threeBlanks = static_cast<float>(std::ceil(textWidth(spdVarDefs.font(), "   ")));
  spdVarDefs.setColWidth(1, spdVarDefs.widestText(1) + pixels(threeBlanks));
  const Twips lines = pixels(3);
  const Twips left =
      fraVarDefsInside.width() - spdVarDefs.colWidth(1) - desktop().scrollBarThickness() - lines;
  const Twips room = pixels(std::floor(std::max(left, 0.0F) / twipsPerPixel));
  const Twips needed = spdVarDefs.widestText(2);
  spdVarDefs.setColWidth(2, std::max(room, needed));
  spdVarDefs.setScrollBars(needed > room ? ScrollBars::both : ScrollBars::vertical);
}

void frmModelDesign::DisplayVarDef(int iRow) {
  if (iRow < 1 || iRow > copy_.miNumCols) return;
  txtVblDef.setText(columnText(iRow) + "   " + copy_.otColName(iRow) + "\n\n" +
                    copy_.otVarInfo(iRow));
}

void frmModelDesign::describeControls() {
  cmdOK.setTip("Do the regression for the specified model");
  cmdCancel.setTip("Return to previous screen with no changes");
  cmdHelp.setTip("Obtain help on setting up a model");
  cmdShowData.setTip("Show a list of all the data");
  cmdFormerModel.setTip("Choose the variables of the last model again");
  cmdFormerModel.setVisible(false);
  speak(cmdDepVarSelect, "Choose dependent variable", "Choose selected variable as dependent.");
  speak(cmdDepVarDeselect, "Remove dependent variable", "Remove selected dependent variable.");
  speak(cmdIndVarSelect, "Choose independent variables",
        "Choose selected variables as independent.");
  speak(cmdIndVarDeselect, "Remove independent variables",
        "Remove selected variables from independent variable list.");
  spdVarList.setAccessibleName("List of Variables");
  spdIndepVars.setAccessibleName("Independent Variables");
  spdVarDefs.setAccessibleName("Definitions of Variables");
  txtDepVar.setAccessibleName("Dependent Variable");
  txtVblDef.setAccessibleName("Definition");
  txtComments.setAccessibleName("Comments");
  for (TextBox* box : {&txtDepVar, &txtVblDef, &txtComments}) box->setReadOnly(true);
  for (TextBox* box : {&txtVblDef, &txtComments}) box->setMultiLine(true);
  for (Grid* list : {&spdVarList, &spdIndepVars}) list->setSelectionMode(SelectionMode::rows);
  spdVarDefs.setSelectionMode(SelectionMode::none);
  cmdOK.setDefault(true);
  cmdCancel.setCancel(true);
}

void frmModelDesign::PositionForm() {
  const bool info = copy_.mbInfoAvailable;
  fraVarDefs.setVisible(info);
  fraComments.setVisible(info);
  pnlGround.setVisible(state_.bStartingUp);
  if (state_.bStartingUp) {
    const Size inner = innerOfMainWindow();
    layOut(startingHeightWithoutInfo, info ? startingHeight : startingHeightWithoutInfo, inner);
    return placeOverMainWindow(inner);
  }
  const Size screen = desktop().screenSize();
  layOut(usualHeightWithoutInfo, info ? usualHeight : usualHeightWithoutInfo,
         {screen.width, screen.height - titleBar});
  picControls.setBorder(false);
  setPlace({left(), top(), picControls.width(), picControls.height()});
  centreOnScreen();
}

Size frmModelDesign::innerOfMainWindow() const {
  const Size inner{mainWindow_.innerWidth(), mainWindow_.innerHeight()};
  return inner.width <= 0 || inner.height <= 0 ? desktop().screenSize() : inner;
}

void frmModelDesign::placeOverMainWindow(Size inner) {
  const Size screen = desktop().screenSize();
  // A maximised window's inner ground ends where the screen does.
  const bool maximised = mainWindow_.state() == WindowState::maximised;
  const Twips fromRight = inner.width - startingGapRight - picControls.width();
  const Twips fromBelow = inner.height - startingGapBelow - picControls.height();
  picControls.setBorder(true);
  picControls.setLeft(std::max(fromRight, 0.0F));
  picControls.setTop(std::max(fromBelow, 0.0F));
  const Size whole{std::max(inner.width, picControls.right()),
                   std::max(inner.height, picControls.bottom())};
  setPlace({maximised ? 0 : mainWindow_.left(),
            maximised ? std::max(screen.height - inner.height, 0.0F) : mainWindow_.top(),
            whole.width, whole.height});
  pnlGround.fill(whole);
}

// What lies below the lists gives way first.
void frmModelDesign::layOut(Twips upperHeight, Twips height, Size room) {
  const Twips lower = height - upperHeight;
  const Twips tooHigh = std::max(height - room.height, 0.0F);
  const Twips ofLower = std::min(tooHigh, std::max(lower - leastLower, 0.0F));
  const Twips ofUpper = std::min(tooHigh - ofLower, upperHeight - leastUpper);
  upperHeight -= ofUpper;
  height -= ofLower + ofUpper;
  picControls.setPlace({0, 0, std::clamp(room.width, leastWidth, usualWidth), height});
  placeLists(upperHeight - framesTop - gap);
  placeButtons();
  placeDefinitions(upperHeight, height - upperHeight - gap);
}

void frmModelDesign::placeLists(Twips height) {
  fraVarList.setPlace({gap, framesTop, listWidth, height});
  spdVarList.setPlace(filledByRows(insideOf(fraVarList)));
  const Twips included = picControls.width() - 2 * gap - commandWidth - includedLeft;
  fraIncluded.setPlace({includedLeft, framesTop, included, height});
  const Twips inside = included - 2 * gap;
  fraDepVar.setPlace({gap, underTitle, inside, depVarHeight});
  txtDepVar.setPlace({gap, underTitle, inside - 2 * gap, buttonHeight});
  const Twips indepTop = fraDepVar.bottom() + gap / 2;
  const Twips checkTop = height - gap / 2 - checkHeight;
  fraIndepVars.setPlace({gap, indepTop, inside, checkTop - gap / 2 - indepTop});
  spdIndepVars.setPlace(filledByRows(insideOf(fraIndepVars)));
  chkUseIntercept.setPlace({gap, checkTop, inside, checkHeight});
}

void frmModelDesign::placeButtons() {
  const Twips depTop = fraIncluded.top() + fraDepVar.top() + pixels(2);
  const Twips indTop = fraIncluded.top() + fraIndepVars.top() + underTitle;
  const Twips step = buttonHeight + pixels(2);
  cmdDepVarSelect.setPlace({arrowLeft, depTop, arrowWidth, buttonHeight});
  cmdDepVarDeselect.setPlace({arrowLeft, depTop + step, arrowWidth, buttonHeight});
  cmdIndVarSelect.setPlace({arrowLeft, indTop, arrowWidth, buttonHeight});
  cmdIndVarDeselect.setPlace({arrowLeft, indTop + step, arrowWidth, buttonHeight});
  Twips top = pixels(14);
  for (Button* button : {&cmdOK, &cmdCancel, &cmdHelp, &cmdShowData, &cmdFormerModel}) {
    button->setPlace({fraIncluded.right() + gap, top, commandWidth, pixels(28)});
    top = button->bottom() + gap;
  }
}

void frmModelDesign::placeDefinitions(Twips top, Twips height) {
  const Twips used = std::max(height, 0.0F);
  fraVarDefs.setPlace({gap, top, picControls.width() - commentsWidth - 3 * gap, used});
  const Rect inside = insideOf(fraVarDefs);
  const Twips listed = inside.width - gap - chosenWidth;
  fraVarDefsInside.setPlace({inside.left, inside.top, listed, inside.height});
  spdVarDefs.setPlace({0, 0, listed, inside.height});
  txtVblDef.setPlace({inside.left + listed + gap, inside.top, chosenWidth, inside.height});
  const Twips commentsLeft = fraVarDefs.right() + gap;
  fraComments.setPlace({commentsLeft, top, commentsWidth, used});
  txtComments.setPlace(insideOf(fraComments));
}

}  // namespace tolmer
