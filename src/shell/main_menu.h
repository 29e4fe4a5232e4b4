// The words of the main menu, their order and their keys.
#pragma once

#include "platform/menu.h"
#include "shell/display_menu.h"

namespace tolmer {

// The handlers are set by those who carry the commands out (menu_commands.h).
struct MainMenu {
  MainMenu();

  MenuItem menu{nullptr, "menu"};

  MenuItem mnuFile{&menu, "mnuFile", "&File"};
  MenuItem mnuFileZM{&mnuFile, "mnuFileZM", "Return to Z&M Menu"};
  MenuItem mnuFileWorktext{&mnuFile, "mnuFileWorktext", "View &Worktext"};
  MenuItem mnuFileBar1{&mnuFile, "mnuFileBar1", "-"};
  MenuItem mnuFileReport{&mnuFile, "mnuFileReport", "Save &Report..."};
  MenuItem mnuFilePrint{&mnuFile, "mnuFilePrint", "&Print..."};
  MenuItem mnuFileBar2{&mnuFile, "mnuFileBar2", "-"};
  MenuItem mnuFileExit{&mnuFile, "mnuFileExit", "E&xit"};

  MenuItem mnuEdit{&menu, "mnuEdit", "&Edit"};
  MenuItem mnuEditCopy{&mnuEdit, "mnuEditCopy", "&Copy"};

  MenuItem mnuWindow{&menu, "mnuWindow", "&Displays"};
  DisplayMenu displays;

  MenuItem mnuOptions;
  MenuItem mnuShowRegression;
  MenuItem mnuShowCorrelation;
  MenuItem mnuKeepDisplays;
  MenuItem mnuOptionsBar1;
  MenuItem mnuZoomIn;
  MenuItem mnuZoomOut;
  MenuItem mnuZoomUsual;

  MenuItem mnuExplore;
  MenuItem mnuExploreNotes;
  MenuItem mnuExploreCase;
  MenuItem mnuExplorePredict;
  MenuItem mnuExploreModels;
  MenuItem mnuExploreEditCopy;  // of data that are not in the editor already

  MenuItem mnuHelp;
  MenuItem mnuHelpContents;
  MenuItem mnuHelpHint;
  MenuItem mnuHelpSearch;
  MenuItem mnuHelpUsingHelp;
  MenuItem mnuHelpBar1;
  MenuItem mnuHelpAbout;
};

}  // namespace tolmer
