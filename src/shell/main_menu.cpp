#include "shell/main_menu.h"

#include "platform/input.h"

namespace tolmer {

MainMenu::MainMenu()
    : displays(mnuWindow, &Display::menuWords, "mnuScatterList"),
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
      mnuHelpAbout(&mnuHelp, "mnuHelpAbout", "&About...") {
  // Until there is an analysis to report.
  mnuFileReport.setEnabled(false);
  mnuFilePrint.setEnabled(false);
  mnuShowRegression.setCheckable(true);
  mnuShowCorrelation.setCheckable(true);
  mnuKeepDisplays.setCheckable(true);
  mnuEditCopy.setShortcut({.code = 'C', .control = true});
}

}  // namespace tolmer
