#include "shell/main_frame.h"

#include <algorithm>
#include <cmath>

#include "platform/desktop.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr Twips statusHeight = pixels(25);
constexpr Twips statusMargin = pixels(10);
constexpr int someSeconds = 8000;

}  // namespace

mdiReg::mdiReg(Desktop& desktop)
    : FrameWindow(desktop, "mdiReg", "Tolmer Analysis"),
      displays(mnuWindow, &Display::menuWords, "mnuScatterList"),
      mnuOptions(&menu, "mnuOptions", "&Options"),
      mnuShowRegression(&mnuOptions, "mnuShowRegression",
                        "Display &Regression Line on Scatterplots"),
      mnuShowCorrelation(&mnuOptions, "mnuShowCorrelation", "Display &Correlation on Scatterplots"),
      mnuKeepDisplays(&mnuOptions, "mnuKeepDisplays", "&Keep Displays After a Refit"),
      mnuOptionsBar1(&mnuOptions, "mnuOptionsBar1", "-"),
      mnuZoomIn(&mnuOptions, "mnuZoomIn", "&Larger", {.code = keys::plus, .control = true}),
      mnuZoomOut(&mnuOptions, "mnuZoomOut", "&Smaller", {.code = keys::minus, .control = true}),
      mnuZoomUsual(&mnuOptions, "mnuZoomUsual", "&Usual Size", {.code = '0', .control = true}),
      mnuExplore(&menu, "mnuExplore", "E&xplore"),
      mnuExploreNotes(&mnuExplore, "mnuExploreNotes", "&Notes..."),
      mnuExploreCase(&mnuExplore, "mnuExploreCase", "&Case..."),
      mnuExplorePredict(&mnuExplore, "mnuExplorePredict", "&Predict..."),
      mnuExploreModels(&mnuExplore, "mnuExploreModels", "Compare &Models..."),
      mnuExploreEditCopy(&mnuExplore, "mnuExploreEditCopy", "Edit a Copy of These &Data"),
      mnuHelp(&menu, "mnuHelp", "&Help"),
      mnuHelpContents(&mnuHelp, "mnuHelpContents", "&Contents"),
      mnuHelpHint(&mnuHelp, "mnuHelpHint", "Show &Hint..."),
      mnuHelpSearch(&mnuHelp, "mnuHelpSearch", "&Search for Help on..."),
      mnuHelpUsingHelp(&mnuHelp, "mnuHelpUsingHelp", "&Using Help"),
      mnuHelpBar1(&mnuHelp, "mnuHelpBar1", "-"),
      mnuHelpAbout(&mnuHelp, "mnuHelpAbout", "&About..."),
      tmrTold_(desktop.timers(), "tmrTold", someSeconds) {
  tmrTold_.Tick = [this] {
    tmrTold_.setEnabled(false);
    showLine(status_);
  };
  // Until there is an analysis to report.
  mnuFileReport.setEnabled(false);
  mnuFilePrint.setEnabled(false);
  mnuShowRegression.setCheckable(true);
  mnuShowCorrelation.setCheckable(true);
  mnuKeepDisplays.setCheckable(true);
  mnuEditCopy.setShortcut({.code = 'C', .control = true});
  setMenuBar(&menu);
  setFootHeight(statusHeight);
  lblNotes.setIsLink(true);
  lblNotes.setAlign(Align::right);
  lblNotes.setVisible(false);
  setState(WindowState::maximised);
  Resize = [this] { MDIForm_Resize(); };
}

// The frame can be minimised and maximised and never stays in a normal size.
void mdiReg::MDIForm_Resize() {
  if (mbProcessMainResize && state() == WindowState::normal) setState(WindowState::maximised);
  placeStatus();
  raise(placeQuadrants);
}

void mdiReg::showStatus(const std::string& status, const std::string& notes) {
  status_ = status;
  if (!tmrTold_.enabled()) showLine(status);
  lblNotes.setCaption(notes);
  lblNotes.setAccessibleDescription(status);
  lblNotes.setVisible(!status.empty());
  placeStatus();
}

void mdiReg::tell(const std::string& words) {
  showLine(words);
  tmrTold_.setEnabled(false);
  tmrTold_.setEnabled(true);
}

void mdiReg::showLine(const std::string& words) {
  lblStatus.setCaption(words);
  lblStatus.setTip(words);
}

// What is too long for the line is cut off at its end, and the tip has it whole.
void mdiReg::placeStatus() {
  const auto words = static_cast<float>(textWidth(lblNotes.font(), lblNotes.caption()));
  const Twips width = pixels(std::ceil(words) + 4);
  const Twips left = std::max(innerWidth() - statusMargin - width, 0.0F);
  const Twips top = pixels(1);  // below the line at its upper edge
  lblNotes.setPlace({left, top, width, statusHeight - top});
  lblStatus.setPlace(
      {statusMargin, top, std::max(left - 2 * statusMargin, 0.0F), statusHeight - top});
}

}  // namespace tolmer
