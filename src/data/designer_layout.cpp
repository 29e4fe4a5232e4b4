// Places, tips and spoken names of the designer's controls.
#include <algorithm>
#include <cmath>

#include "data/designer.h"
#include "data/designer_look.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

// Heights of the panel, in twips: definitions and comments take what lies below the shorter one.
constexpr Twips startingHeight = 5700;
constexpr Twips startingHeightWithoutInfo = 3700;
constexpr Twips usualHeight = 6000;
constexpr Twips usualHeightWithoutInfo = 4000;
constexpr Twips startingGapRight = 100;
constexpr Twips startingGapBelow = 800;

constexpr Twips panelWidth = pixels(720);
constexpr Twips gap = pixels(8);
constexpr Twips underTitle = pixels(20);  // where the inside of a frame begins
constexpr Twips buttonHeight = pixels(26);
constexpr Twips listWidth = pixels(216);
constexpr Twips arrowWidth = pixels(84);
constexpr Twips commandWidth = pixels(92);
constexpr Twips arrowLeft = gap + listWidth + gap;
constexpr Twips includedLeft = arrowLeft + arrowWidth + gap;
constexpr Twips commandLeft = panelWidth - gap - commandWidth;
constexpr Twips includedWidth = commandLeft - gap - includedLeft;
constexpr Twips depVarHeight = pixels(56);
constexpr Twips framesTop = pixels(6);
constexpr Twips checkHeight = pixels(23);
constexpr Twips definitionsWidth = pixels(452);
constexpr Twips chosenWidth = pixels(170);

// Inside a frame of that size, below its title.
Rect insideOf(const Frame& frame) {
  return {gap, underTitle, frame.width() - 2 * gap, frame.height() - underTitle - gap};
}

// The part of a place that whole rows of a list fill, so that none is cut off.
Rect filledByRows(const Rect& place) {
  const Twips step = designer_look::rowHeightToFill(place.height) + twipsPerPixel;
  const Twips rows = std::floor((place.height - twipsPerPixel) / step);
  return {place.left, place.top, place.width, rows * step + twipsPerPixel};
}

void speak(Control& control, const char* name, const char* tip) {
  control.setAccessibleName(name);
  control.setTip(tip);
}

}  // namespace

void frmModelDesign::describeControls() {
  cmdOK.setTip("Do the regression for the specified model");
  cmdCancel.setTip("Return to previous screen with no changes");
  cmdHelp.setTip("Obtain help on setting up a model");
  cmdShowData.setTip("Show a list of all the data");
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
    layOut(startingHeightWithoutInfo, info ? startingHeight : startingHeightWithoutInfo);
    return placeOverMainWindow(picControls.height());
  }
  layOut(usualHeightWithoutInfo, info ? usualHeight : usualHeightWithoutInfo);
  picControls.setBorder(false);
  setPlace({left(), top(), picControls.width(), picControls.height()});
  centreOnScreen();
}

void frmModelDesign::placeOverMainWindow(Twips panelHeight) {
  const Size screen = desktop().screenSize();
  Size inner{mainWindow_.innerWidth(), mainWindow_.innerHeight()};
  if (inner.width <= 0 || inner.height <= 0) inner = screen;
  // A maximised window's inner ground ends where the screen does.
  const bool maximised = mainWindow_.state() == WindowState::maximised;
  setPlace({maximised ? 0 : mainWindow_.left(),
            maximised ? std::max(screen.height - inner.height, 0.0F) : mainWindow_.top(),
            inner.width, inner.height});
  pnlGround.fill(inner);
  picControls.setBorder(true);
  picControls.setPlace({std::max(inner.width - startingGapRight - panelWidth, 0.0F),
                        std::max(inner.height - startingGapBelow - panelHeight, 0.0F), panelWidth,
                        panelHeight});
}

void frmModelDesign::layOut(Twips upperHeight, Twips height) {
  picControls.setPlace({0, 0, panelWidth, height});
  placeLists(upperHeight - framesTop - gap);
  placeButtons();
  placeDefinitions(upperHeight, height - upperHeight - gap);
}

void frmModelDesign::placeLists(Twips height) {
  fraVarList.setPlace({gap, framesTop, listWidth, height});
  spdVarList.setPlace(filledByRows(insideOf(fraVarList)));
  fraIncluded.setPlace({includedLeft, framesTop, includedWidth, height});
  const Twips inside = includedWidth - 2 * gap;
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
  for (Button* button : {&cmdOK, &cmdCancel, &cmdHelp, &cmdShowData}) {
    button->setPlace({commandLeft, top, commandWidth, pixels(28)});
    top = button->bottom() + gap;
  }
}

void frmModelDesign::placeDefinitions(Twips top, Twips height) {
  const Twips used = std::max(height, 0.0F);
  fraVarDefs.setPlace({gap, top, definitionsWidth, used});
  const Rect inside = insideOf(fraVarDefs);
  const Twips listed = inside.width - gap - chosenWidth;
  fraVarDefsInside.setPlace({inside.left, inside.top, listed, inside.height});
  spdVarDefs.setPlace({0, 0, listed, inside.height});
  txtVblDef.setPlace({inside.left + listed + gap, inside.top, chosenWidth, inside.height});
  const Twips commentsLeft = fraVarDefs.right() + gap;
  fraComments.setPlace({commentsLeft, top, panelWidth - gap - commentsLeft, used});
  txtComments.setPlace(insideOf(fraComments));
}

}  // namespace tolmer
