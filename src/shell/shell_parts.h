// What the program is made of. Owned in one place; the flow and the commands work on it.
#pragma once

#include <functional>
#include <string>

#include "data/data_sources.h"
#include "notebook/notebook.h"
#include "shell/about.h"
#include "shell/analysis.h"
#include "shell/analysis_notes.h"
#include "shell/case_window.h"
#include "shell/models_window.h"
#include "shell/notes_window.h"
#include "shell/own_data.h"
#include "shell/predict_window.h"
#include "shell/quadrant_manager.h"

namespace tolmer {

// Lets a display's clicks reach the panel and the right-click menu.
class PanelHost : public DisplayHost {
 public:
  PanelHost(frmControlPanel& panel, AnalysisNotes& notes, CaseSelection& cases)
      : panel_(panel), notes_(notes), cases_(cases) {}
  void controlsDisabled() override { panel_.ControlsDisabled(); }
  void controlsEnabled() override { panel_.ControlsEnabled(); }
  void axisListsDisabled() override { panel_.DisableAxisLists(); }
  void scatterPlotDrawn() override { panel_.checkAfterDrawing(); }
  void openDisplayMenu() override {
    if (openMenu) openMenu();
  }
  std::vector<CellRemark> remarksOn(const Display& display) override {
    return notes_.remarksOn(display.form);
  }
  std::vector<std::string> notesOn(const Display& display) override {
    return notes_.sentencesOn(display.form);
  }

  CaseSelection* selectedCases() override { return &cases_; }

  std::function<void()> openMenu;

 private:
  frmControlPanel& panel_;
  AnalysisNotes& notes_;
  CaseSelection& cases_;
};

struct ShellParts {
  ShellParts(Desktop& theDesktop, std::string theProgramFolder)
      : desktop(theDesktop), tProgramFolder(std::move(theProgramFolder)) {}

  Desktop& desktop;
  std::string tProgramFolder;  // the host's spelling, without a final separator
  AnalysisState state;
  NoteBook notebook{desktop};
  mdiReg frame{desktop};
  frmMenus menus;
  frmControlPanel panel{desktop, state};
  AnalysisNotes notes{state, desktop.timers()};
  CaseSelection cases;
  PanelHost host{panel, notes, cases};
  AllDisplays displays{desktop, state, host};
  Analysis analysis{state, desktop, displays, panel};
  QuadrantManager manager{state, desktop, displays, frame, menus, panel};
  frmNotes notesWindow{desktop};
  frmCase caseWindow{desktop};
  frmPredict predictWindow{desktop, state};
  frmModels modelsWindow{desktop, state};
  frmAbout about{desktop};
  VisitPlaces* aside = nullptr;  // where the data editor writes work aside; null: nowhere
  OwnData ownData{desktop, tProgramFolder, aside};
  EditorData* editor = &ownData;
  std::string fileAtStart;  // opens in the data editor; the host's spelling, empty: none
};

}  // namespace tolmer
