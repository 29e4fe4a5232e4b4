#include "shell/control_panel.h"

#include <algorithm>
#include <string>
#include <utility>

#include "displays/display_list.h"
#include "graphs/scatter_plot.h"
#include "platform/desktop.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr Size listSize{pixels(210), pixels(26)};
constexpr Twips labelHeight = pixels(18);
constexpr Twips captionWidth = pixels(100);  // beside its list
constexpr Twips captionHeight = pixels(16);  // of a frame
constexpr Twips leastGap = pixels(4);
constexpr Size buttonSize{pixels(126), pixels(30)};
// Where there is little room.
constexpr Twips lowList = pixels(24);
constexpr Twips lowButton = pixels(26);

// What a quadrant of 320 x 220 pixels has inside, less the width of a scroll bar: a lower one needs
// an upright bar, and shall need no other.
constexpr Size leastInside{pixels(320) - 2 * FrameWindow::childSide - pixels(16),
                           pixels(220) - FrameWindow::childTop - FrameWindow::childSide};

constexpr std::array scatterPlots{1, 2, 3};

}  // namespace

frmControlPanel::frmControlPanel(Desktop& desktop, AnalysisState& state)
    : Window(desktop, "frmControlPanel", WindowStyle::child, "Control Panel"),
      tmrFlashUpdate(desktop.timers(), "tmrFlashUpdate", 500),
      state_(state) {
  designSizes();
  designTexts();
  wireEvents();
}

void frmControlPanel::designSizes() {
  setLeastInner(leastInside);
  sizeControls();
}

void frmControlPanel::sizeControls() {
  for (Label* label : {&lblYAxisVar, &lblXAxisVar})
    label->setPlace({0, 0, listSize.width, labelHeight});
  for (ComboBox* list : {&cboYAxisVar, &cboXAxisVar})
    list->setPlace({0, 0, listSize.width, listSize.height});
  txtFittedModel.setTop(pixels(22));
  for (Button* button : buttons_) button->setPlace({0, 0, buttonSize.width, buttonSize.height});
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
  declareLetters();
  tmrFlashUpdate.Tick = [this] { tmrFlashUpdate_Timer(); };
}

// The letters that it shares with menus are the panel's own while it is the active child.
void frmControlPanel::declareLetters() {
  for (const int letter : {'D', 'E'})
    takeKey(
        {.code = letter, .shift = Held::no, .control = Held::no, .alt = Held::yes},
        [this] { cmdChangeDataSource.click(); },
        [this, letter] { return mnemonicOf(cmdChangeDataSource.caption()) == letter; });
}

void frmControlPanel::PositionControls() {
  if (!hasRoomAsDesigned()) return placeTightly();
  sizeControls();
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
  spreadRow(buttons_, fraCurrentModel.bottom() + fraScatterControls.top());
}

// At equal distances.
void frmControlPanel::spreadRow(std::span<Button* const> buttons, Twips top) {
  Twips widths = 0;
  for (const Button* button : buttons) widths += button->width();
  const Twips between = (innerWidth() - widths) / static_cast<float>(buttons.size() + 1);
  Twips left = between;
  for (Button* button : buttons) {
    button->setLeft(left);
    button->setTop(top);
    left = button->right() + between;
  }
}

// Four buttons side by side, two lists side by side, and these with their labels below the frame's
// caption.
bool frmControlPanel::hasRoomAsDesigned() const {
  const Twips buttons = 4 * buttonSize.width + 5 * leastGap;
  const Twips lists = 2 * listSize.width + 3 * leastGap;
  const Twips frameHeight = innerHeight() / 3 - 25;
  return innerWidth() >= buttons && innerWidth() - 50 >= lists &&
         frameHeight >= labelHeight + listSize.height + 20 + 2 * captionHeight;
}

// From below: the buttons, in two rows unless there is room for one; from above: the lists, below
// one another unless there is room beside; the model takes what is left.
void frmControlPanel::placeTightly() {
  for (Button* button : buttons_) button->setHeight(lowButton);
  const bool oneRow = innerWidth() >= 4 * buttonSize.width + 5 * leastGap;
  const Twips lastRow = innerHeight() - leastGap - lowButton;
  const Twips firstRow = oneRow ? lastRow : lastRow - leastGap - lowButton;
  const std::span<Button* const> buttons(buttons_);
  spreadRow(oneRow ? buttons : buttons.first(2), firstRow);
  if (!oneRow) spreadRow(buttons.last(2), lastRow);

  const Twips width = innerWidth() - 50;
  const bool beside = width >= 2 * listSize.width + 3 * leastGap;
  const Twips listsHeight = beside ? labelHeight + lowList : 2 * lowList + leastGap;
  fraScatterControls.setPlace({25, 0, width, captionHeight + listsHeight + leastGap});
  placeListsTightly(beside);
  fraCurrentModel.setPlace(
      {25, fraScatterControls.bottom(), width, firstRow - leastGap - fraScatterControls.bottom()});
  txtFittedModel.setPlace({2 * leastGap, captionHeight, width - 4 * leastGap,
                           fraCurrentModel.height() - captionHeight - leastGap});
}

// Side by side below their labels, or below one another and behind them.
void frmControlPanel::placeListsTightly(bool beside) {
  const Twips inside = fraScatterControls.width() - 4 * leastGap;
  Twips left = 2 * leastGap;
  Twips top = captionHeight;
  for (auto [label, list] : {std::pair(&lblYAxisVar, &cboYAxisVar), {&lblXAxisVar, &cboXAxisVar}}) {
    if (beside) {
      label->setPlace({left, top, listSize.width, labelHeight});
      list->setPlace({left, label->bottom(), listSize.width, lowList});
      left += inside - listSize.width;
    } else {
      label->setPlace({left, top, captionWidth, lowList});
      list->setPlace({label->right(), top, inside - captionWidth, lowList});
      top = list->bottom() + leastGap;
    }
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
                         miYChoice[plot()] == state_.iSavedPlotYVar[plot()];
  if (bUpToDate && std::ranges::none_of(scatterPlots, [this](int i) { return isOutOfDate(i); }))
    stopFlash();
  else
    FlashUpdate();
}

void frmControlPanel::checkAfterDrawing() {
  if (state_.bDisplaysReady) CheckUpdateFlash();
}

bool frmControlPanel::isOutOfDate(int iPlot) const {
  const auto i = static_cast<std::size_t>(iPlot);
  return state_.iDisplayState(scatterDisplays, iPlot) == displayShown &&
         (state_.iPlotXVar[i] != state_.iSavedPlotXVar[i] ||
          state_.iPlotYVar[i] != state_.iSavedPlotYVar[i] ||
          state_.bShowRegressionLine != state_.bDrawnRegressionLine[i] ||
          state_.bShowCorrelation != state_.bDrawnCorrelation[i]);
}

void frmControlPanel::optionsChanged() {
  if (!cmdUpdateGraphs.enabled()) updateOutOfDate();
  CheckUpdateFlash();
}

void frmControlPanel::updateOutOfDate() {
  for (const int iPlot : scatterPlots)
    if (isOutOfDate(iPlot)) raise(updateScatterPlot, iPlot);
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

// Of what an entry of a list filled for the model before stands at now; -1 for a variable that is
// not in the model any more.
int frmControlPanel::choiceNow(const ComboBox& list, Int16 iChoice) const {
  const int K = state_.iNumPredictors;
  const int fromEnd = static_cast<int>(list.items().size()) - iChoice;
  if (fromEnd <= 2) return K + 3 - fromEnd;
  for (int i = 0; i <= K; ++i)
    if (list.items()[static_cast<std::size_t>(iChoice)] == variableName(state_, i + 1)) return i;
  return -1;
}

void frmControlPanel::keepAxes() {
  const auto iXBefore = state_.iPlotXVar;
  const auto iYBefore = state_.iPlotYVar;
  chooseStartAxes(state_);
  for (const int iPlot : scatterPlots) {
    const auto i = static_cast<std::size_t>(iPlot);
    const int iX = choiceNow(cboXAxisVar, iXBefore[i]);
    const int iY = choiceNow(cboYAxisVar, iYBefore[i]);
    if (iX < 0 || iY < 0) continue;
    state_.iPlotXVar[i] = static_cast<Int16>(iX);
    state_.iPlotYVar[i] = static_cast<Int16>(iY);
  }
}

void frmControlPanel::showModel(std::string tEquation, bool bKeepAxes) {
  const bool bKeeps = bKeepAxes && !cboXAxisVar.items().empty();
  const bool bIsLive = bKeeps && cmdUpdateGraphs.enabled();
  fraCurrentModel.setCaption("Fitted Model" + fitMark(state_));
  txtFittedModel.setText(std::move(tEquation));
  txtFittedModel.setVisible(true);
  txtFittedModel.setEnabled(true);
  if (bKeeps) {
    keepAxes();
  } else {
    state_.iCurrentPlot = 1;
    chooseStartAxes(state_);
  }
  InitializeComboBoxes();
  if (bIsLive)
    ControlsEnabled();
  else
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
  updateOutOfDate();
  SaveControlState();
  stopFlash();
}

void frmControlPanel::tmrFlashUpdate_Timer() {
  const bool bAtRest = cmdUpdateGraphs.backColour() == colours::buttonFace;
  cmdUpdateGraphs.setBackColour(bAtRest ? colours::red : colours::buttonFace);
  cmdUpdateGraphs.setForeColour(bAtRest ? colours::white : colours::buttonText);
}

}  // namespace tolmer
