// The main window: a maximised frame around the quadrants, with the program's menu above and a line
// on the analysis below them.
#pragma once

#include <functional>

#include "platform/labels.h"
#include "platform/timer.h"
#include "platform/window.h"
#include "shell/display_menu.h"

namespace tolmer {

// The handlers of its menu are set by those who carry the commands out.
class mdiReg : public FrameWindow {
 public:
  explicit mdiReg(Desktop& desktop);

  // False while the frame is first being shown: its size is no command to anybody then.
  bool mbProcessMainResize = false;
  // The inner size has changed; the frame itself has nothing in it but the status line.
  std::function<void()> placeQuadrants;

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

  Label lblStatus{this, "lblStatus"};  // data set, cases, model
  Label lblNotes{this, "lblNotes"};    // "2 notes", which leads to them

  // The line says `status`, and `notes` is where a click leads to; it is not there before, and so
  // comes last in the window.
  void showStatus(const std::string& status, const std::string& notes);
  // Some seconds long the line says these words instead.
  void tell(const std::string& words);

 private:
  void showLine(const std::string& words);
  void MDIForm_Resize();
  void placeStatus();

  std::string status_;
  Timer tmrTold_;
};

}  // namespace tolmer
