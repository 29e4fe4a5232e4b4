#include "shell/control_panel.h"

#include <algorithm>
#include <string>
#include <utility>

#include "displays/display_list.h"
#include "graphs/scatter_plot.h"
#include "platform/desktop.h"

namespace tolmer {

frmControlPanel::frmControlPanel(Desktop& desktop, AnalysisState& state)
    : Window(desktop, "frmControlPanel", WindowStyle::child, "Control Panel"),
      tmrFlashUpdate(desktop.timers(), "tmrFlashUpdate", 500),
      state_(state) {
  designSizes();
  designTexts();
  wireEvents();
}

void frmControlPanel::designSizes() {
  for (Label* label : {&lblYAxisVar, &lblXAxisVar})
    label->setPlace({0, 0, pixels(210), pixels(18)});
  for (ComboBox* list : {&cboYAxisVar, &cboXAxisVar})
    list->setPlace({0, 0, pixels(210), pixels(26)});
  txtFittedModel.setTop(pixels(22));
  for (Button* button : {&cmdUpdateGraphs, &cmdChangeModel, &cmdShowNotebook, &cmdChangeDataSource})
    button->setPlace({0, 0, pixels(126), pixels(30)});
}

void frmControlPanel::designTexts() {
  cboYAxisVar.setTip("Name of theoretical model you want to fit.");
  cmdUpdateGraphs.setTip("Update scatter plots or order plots.");
  cmdChangeModel.setTip("Change the variables included in your model");
  cmdShowNotebook.setTip("Return to the Notebook");
  txtFittedModel.setMultiLine(true);
  txtFittedModel.setReadOnly(true);
  txtFittedModel.setAccessibleName("Fitted Model");
  txtFittedModel.setFont({FontFamily::interface, 14, false});
}

void frmControlPanel::wireEvents() {
  QueryUnload = [this](bool& bCancel) {
    if (!state_.bAllowUnload) bCancel = true;
  };
  Resize = [this] {
    if (!state_.bStartingUp) PositionControls();
  };
  cboXAxisVar.Click = [this] { cboXAxisVar_Click(); };
  cboYAxisVar.Click = [this] { cboYAxisVar_Click(); };
  cmdUpdateGraphs.Click = [this] { cmdUpdateGraphs_Click(); };
  cmdChangeModel.Click = [this] { raise(changeModel); };
  cmdShowNotebook.Click = [this] { raise(showNotebook); };
  cmdChangeDataSource.Click = [this] { raise(changeDataSource); };
  tmrFlashUpdate.Tick = [this] { tmrFlashUpdate_Timer(); };
}

void frmControlPanel::PositionControls() {
  placeFrames();
  placeScatterControls();
  spreadButtons();
}

void frmControlPanel::placeFrames() {
  const Twips W = innerWidth();
  const Twips H = innerHeight();
  for (Frame* frame : {&fraScatterControls, &fraCurrentModel}) {
    frame->setWidth(std::max(W - 50, 0.0F));
    frame->setHeight(std::max(H / 3 - 25, 0.0F));
    frame->setLeft((W - frame->width()) / 2);
  }
  txtFittedModel.setWidth(std::max(fraCurrentModel.width() - 300, 0.0F));
  txtFittedModel.setHeight(std::max(fraCurrentModel.height() - txtFittedModel.top() - 50, 0.0F));
  txtFittedModel.setLeft((fraCurrentModel.width() - txtFittedModel.width()) / 2);

  const Twips gap =
      (H - fraScatterControls.height() - fraCurrentModel.height() - cmdUpdateGraphs.height()) / 4;
  fraScatterControls.setTop(gap);
  fraCurrentModel.setTop(fraScatterControls.bottom() + gap);
}

void frmControlPanel::placeScatterControls() {
  const Twips gap =
      (fraScatterControls.height() - lblYAxisVar.height() - cboYAxisVar.height() - 20) / 2;
  const Twips across = (fraScatterControls.width() - cboYAxisVar.width() - cboXAxisVar.width()) / 3;
  lblYAxisVar.setLeft(across);
  cboYAxisVar.setLeft(across);
  lblXAxisVar.setLeft(cboYAxisVar.right() + across);
  cboXAxisVar.setLeft(cboYAxisVar.right() + across);
  for (Label* label : {&lblYAxisVar, &lblXAxisVar}) label->setTop(gap);
  for (ComboBox* list : {&cboYAxisVar, &cboXAxisVar}) list->setTop(lblYAxisVar.bottom() + 20);
}

void frmControlPanel::spreadButtons() {
  const std::array buttons = {&cmdUpdateGraphs, &cmdChangeModel, &cmdShowNotebook,
                              &cmdChangeDataSource};
  Twips widths = 0;
  for (const Button* button : buttons) widths += button->width();
  const Twips between = (innerWidth() - widths) / 5;
  const Twips gap = fraScatterControls.top();
  Twips left = between;
  for (Button* button : buttons) {
    button->setLeft(left);
    button->setTop(fraCurrentModel.bottom() + gap);
    left = button->right() + between;
  }
}

void frmControlPanel::InitializeComboBoxes() {
  fillList(cboYAxisVar, "Residuals");
  fillList(cboXAxisVar, "Entry Order");
  ControlsDisabled();
}

// The lists differ in their last entry: residuals stand on the Y axis only, the entry order on the
// X axis only.
void frmControlPanel::fillList(ComboBox& list, const char* last) {
  list.clear();
  for (int i = 0; i <= state_.iNumPredictors; ++i) {
    const auto column = static_cast<std::size_t>(state_.iModelCol[i + 1]);
    list.addItem(state_.tVarName[column]);
  }
  list.addItem("Fitted Y");
  list.addItem(last);
}

void frmControlPanel::ControlsEnabled() {
  fraScatterControls.setEnabled(true);
  fraScatterControls.setCaption("Scatter Plot " + std::to_string(state_.iCurrentPlot));
  for (Label* label : {&lblYAxisVar, &lblXAxisVar}) label->setEnabled(true);
  for (ComboBox* list : {&cboYAxisVar, &cboXAxisVar}) list->setEnabled(true);
  showChoices();
  cmdUpdateGraphs.setEnabled(true);
}

// What was chosen for a plot and never drawn is given up when another one takes the lists: they
// show what stands on the screen, and the flash follows that.
void frmControlPanel::showChoices() {
  miXChoice = state_.iPlotXVar;
  miYChoice = state_.iPlotYVar;
  cboXAxisVar.setListIndex(state_.iPlotXVar[plot()]);
  cboYAxisVar.setListIndex(state_.iPlotYVar[plot()]);
  if (state_.bDisplaysReady) CheckUpdateFlash();
}

void frmControlPanel::ControlsDisabled() {
  fraScatterControls.setEnabled(false);
  for (Label* label : {&lblYAxisVar, &lblXAxisVar}) label->setEnabled(false);
  DisableAxisLists();
  cmdUpdateGraphs.setEnabled(false);
}

void frmControlPanel::DisableAxisLists() {
  for (ComboBox* list : {&cboYAxisVar, &cboXAxisVar}) list->setEnabled(false);
}

void frmControlPanel::SaveControlState() {
  state_.iSavedPlotXVar[plot()] = static_cast<Int16>(cboXAxisVar.listIndex());
  state_.iSavedPlotYVar[plot()] = static_cast<Int16>(cboYAxisVar.listIndex());
  state_.bSavedRegressionLine = state_.bShowRegressionLine;
  state_.bSavedCorrelation = state_.bShowCorrelation;
  state_.bSavedUseIntercept = state_.bUseIntercept;
}

void frmControlPanel::CheckUpdateFlash() {
  const bool bUpToDate = miXChoice[plot()] == state_.iSavedPlotXVar[plot()] &&
                         miYChoice[plot()] == state_.iSavedPlotYVar[plot()] &&
                         state_.bShowRegressionLine == state_.bSavedRegressionLine &&
                         state_.bShowCorrelation == state_.bSavedCorrelation;
  if (bUpToDate)
    stopFlash();
  else
    FlashUpdate();
}

void frmControlPanel::FlashUpdate() { tmrFlashUpdate.setEnabled(true); }

void frmControlPanel::stopFlash() {
  tmrFlashUpdate.setEnabled(false);
  cmdUpdateGraphs.setBackColour(colours::buttonFace);
  cmdUpdateGraphs.setForeColour(colours::buttonText);
}

void frmControlPanel::SetupChangeDataSourceButton() {
  const auto offer = [this](const char* caption, const char* tip) {
    cmdChangeDataSource.setCaption(caption);
    cmdChangeDataSource.setTip(tip);
  };
  const Int16 source = state_.iDataSource;
  if (source == databasePage) return offer("Select &Database", "Choose a new database");
  if (source == dataEditor) return offer("&Edit Data", "Activate the Data Editor");
  if (source == scenarioExample) return offer("Select &Example", "Choose a new example");
  desktop().messageBox(
      {{}, "Error in SetupChangeDataSourceButton - bad source:" + std::to_string(source)});
}

void frmControlPanel::showModel(std::string tEquation) {
  fraCurrentModel.setCaption("Fitted Model" + fitMark(state_));
  txtFittedModel.setText(std::move(tEquation));
  txtFittedModel.setVisible(true);
  txtFittedModel.setEnabled(true);
  state_.iCurrentPlot = 1;
  chooseStartAxes(state_);
  InitializeComboBoxes();
  showChoices();
  SetupChangeDataSourceButton();
}

void frmControlPanel::cboXAxisVar_Click() {
  miXChoice[plot()] = static_cast<Int16>(cboXAxisVar.listIndex());
  if (state_.bDisplaysReady) CheckUpdateFlash();
}

void frmControlPanel::cboYAxisVar_Click() {
  miYChoice[plot()] = static_cast<Int16>(cboYAxisVar.listIndex());
  if (state_.bDisplaysReady) CheckUpdateFlash();
}

void frmControlPanel::cmdUpdateGraphs_Click() {
  state_.iPlotXVar[plot()] = static_cast<Int16>(cboXAxisVar.listIndex());
  state_.iPlotYVar[plot()] = static_cast<Int16>(cboYAxisVar.listIndex());
  raise(updateScatterPlot, state_.iCurrentPlot);
  SaveControlState();
  stopFlash();
}

void frmControlPanel::tmrFlashUpdate_Timer() {
  const bool bAtRest = cmdUpdateGraphs.backColour() == colours::buttonFace;
  cmdUpdateGraphs.setBackColour(bAtRest ? colours::red : colours::buttonFace);
  cmdUpdateGraphs.setForeColour(bAtRest ? colours::white : colours::buttonText);
}

}  // namespace tolmer
