// What the entries of the main menu and of the right-click menu do.
#pragma once

#include "shell/case_commands.h"
#include "shell/explore_commands.h"
#include "shell/main_flow.h"
#include "shell/report_commands.h"
#include "shell/shell_parts.h"

namespace tolmer {

class MenuCommands {
 public:
  MenuCommands(ShellParts& parts, MainFlow& flow);

 private:
  void wireFileAndEdit();
  void wireDisplays();
  void wireOptions();
  void wireNotes();
  void showNotes();
  void openNotes();
  void showCellsOf(const Note& note, const Display& display);
  void wireHelp();
  void wireHelpKey(Window& window, std::function<long()> topic);
  void mnuFileWorktext_Click();
  void mnuEditCopy_Click();
  void mnuWindow_Click();
  void mnuShowRegression_Click();
  void mnuShowCorrelation_Click();
  void mnuKeepDisplays_Click();
  void replaceActiveChild(int iCategory, int iIndex);

  ShellParts& parts_;
  MainFlow& flow_;
  ReportCommands reports_;
  CaseCommands cases_;
  ExploreCommands explore_;
};

}  // namespace tolmer
