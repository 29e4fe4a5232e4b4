// The top right quadrant: the fitted model, the axes of the scatter plot at hand, and the commands.
#pragma once

#include <array>
#include <functional>
#include <span>

#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/timer.h"
#include "platform/window.h"
#include "state/analysis_state.h"

namespace tolmer {

class frmControlPanel : public Window {
 public:
  frmControlPanel(Desktop& desktop, AnalysisState& state);

  // Lays the panel out in its inner size: with more in less room where that is small, down to a
  // quadrant of 320 x 220 pixels.
  void PositionControls();
  // What the plots show now is what they were last updated to.
  void SaveControlState();
  // Starts the flashing if a choice is not yet on the plots, and stops it otherwise.
  void CheckUpdateFlash();
  // Another plot stands on the screen, or shows something else.
  void checkAfterDrawing();
  // Whether a scatter plot stands on the screen with other axes or options than are in force.
  bool isOutOfDate(int iPlot) const;
  // An option of the scatter plots was changed: the button flashes, or where it cannot be pressed
  // the plots are drawn anew.
  void optionsChanged();
  // What was chosen for a plot and never drawn is given up: the lists show what stands on the
  // screen, and the flash follows that.
  void showChoices();
  // For the scatter plot iCurrentPlot, which has taken the focus.
  void ControlsEnabled();
  void ControlsDisabled();
  void DisableAxisLists();
  void FlashUpdate();
  // Caption and tool tip by iDataSource; a source that does not exist is told in a message box.
  void SetupChangeDataSourceButton();
  // Fills both lists for the model in force and disables them.
  void InitializeComboBoxes();

  // The fitted equation, marked after a failed fit, and the start selection of the scatter plots,
  // or the one they have, by names.
  void showModel(std::string tEquation, bool bKeepAxes = false);
  void stopFlash();

  // The panel's commands, carried out by the main flow.
  std::function<void()> changeModel;
  std::function<void()> showNotebook;
  std::function<void()> changeDataSource;
  std::function<void(int)> updateScatterPlot;  // 1 to 3

  Frame fraScatterControls{this, "fraScatterControls", "Scatter Plot Controls"};
  Label lblYAxisVar{&fraScatterControls, "lblYAxisVar", "Y Axis Variable"};
  ComboBox cboYAxisVar{&fraScatterControls, "cboYAxisVar"};
  Label lblXAxisVar{&fraScatterControls, "lblXAxisVar", "X Axis Variable"};
  ComboBox cboXAxisVar{&fraScatterControls, "cboXAxisVar"};
  Frame fraCurrentModel{this, "fraCurrentModel", "Fitted Model"};
  TextBox txtFittedModel{&fraCurrentModel, "txtFittedModel"};
  Button cmdUpdateGraphs{this, "cmdUpdateGraphs", "&Update Displays"};
  Button cmdChangeModel{this, "cmdChangeModel", "&Change Model"};
  Button cmdShowNotebook{this, "cmdShowNotebook", "Show &Notebook"};
  Button cmdChangeDataSource{this, "cmdChangeDataSource"};
  Timer tmrFlashUpdate;

 private:
  void designSizes();
  void sizeControls();
  void designTexts();
  void wireEvents();
  void declareLetters();
  void updateOutOfDate();
  void keepAxes();
  int choiceNow(const ComboBox& list, Int16 iChoice) const;
  void fillList(ComboBox& list, const char* last);
  bool hasRoomAsDesigned() const;
  void placeFrames();
  void placeScatterControls();
  void spreadButtons();
  void placeTightly();
  void placeListsTightly(bool beside);
  void spreadRow(std::span<Button* const> buttons, Twips top);
  void cboXAxisVar_Click();
  void cboYAxisVar_Click();
  void cmdUpdateGraphs_Click();
  void tmrFlashUpdate_Timer();
  std::size_t plot() const { return static_cast<std::size_t>(state_.iCurrentPlot); }

  AnalysisState& state_;
  std::array<Button*, 4> buttons_{&cmdUpdateGraphs, &cmdChangeModel, &cmdShowNotebook,
                                  &cmdChangeDataSource};
  std::array<Int16, 4> miXChoice{};
  std::array<Int16, 4> miYChoice{};
};

}  // namespace tolmer
