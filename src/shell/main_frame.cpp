#include "shell/main_frame.h"

namespace tolmer {
mdiReg::mdiReg(Desktop& desktop)
    : FrameWindow(desktop, "mdiReg", "Tolmer Analysis"),
      displays(mnuWindow, &Display::menuWords, "mnuScatterList"),
      mnuOptions(&menu, "mnuOptions", "&Options"),
      mnuShowRegression(&mnuOptions, "mnuShowRegression",
                        "Display &Regression Line on Scatterplots"),
      mnuShowCorrelation(&mnuOptions, "mnuShowCorrelation", "Display &Correlation on Scatterplots"),
      mnuHelp(&menu, "mnuHelp", "&Help"),
      mnuHelpContents(&mnuHelp, "mnuHelpContents", "&Contents"),
      mnuHelpHint(&mnuHelp, "mnuHelpHint", "Show &Hint..."),
      mnuHelpSearch(&mnuHelp, "mnuHelpSearch", "&Search for Help on..."),
      mnuHelpUsingHelp(&mnuHelp, "mnuHelpUsingHelp", "&Using Help"),
      mnuHelpBar1(&mnuHelp, "mnuHelpBar1", "-"),
      mnuHelpAbout(&mnuHelp, "mnuHelpAbout", "&About...") {
  // Until there is an analysis to report.
  mnuFileReport.setEnabled(false);
  mnuFilePrint.setEnabled(false);
  mnuShowRegression.setCheckable(true);
  mnuShowCorrelation.setCheckable(true);
  mnuEditCopy.setShortcut({.code = 'C', .control = true});
  setMenuBar(&menu);
  setState(WindowState::maximised);
  Resize = [this] { MDIForm_Resize(); };
}

// The frame can be minimised and maximised and never stays in a normal size: the sizes of the
// quadrants are computed once.
void mdiReg::MDIForm_Resize() {
  if (mbProcessMainResize && state() == WindowState::normal) setState(WindowState::maximised);
}

}  // namespace tolmer
