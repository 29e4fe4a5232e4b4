// The data editor's menu.
#pragma once

#include "platform/menu.h"

namespace tolmer {

struct DataEditorMenu {
  MenuItem bar{nullptr, "menu"};

  MenuItem mnuFile{&bar, "mnuFile", "&File"};
  MenuItem mnuFileNew{&mnuFile, "mnuFileNew", "&New"};
  MenuItem mnuFileOpen{&mnuFile, "mnuFileOpen", "&Open..."};
  MenuItem mnuFileSave{&mnuFile, "mnuFileSave", "&Save"};
  MenuItem mnuFileSaveAs{&mnuFile, "mnuFileSaveAs", "Save &As..."};
  MenuItem mnuFileBar1{&mnuFile, "mnuFileBar1", "-"};
  MenuItem mnuFileExitUse{&mnuFile, "mnuFileExitUse", "Close Editor and &Use Data"};
  MenuItem mnuFileExitDiscard{&mnuFile, "mnuFileExitDiscard", "Close Editor and &Discard Data"};

  MenuItem mnuEdit{&bar, "mnuEdit", "&Edit"};
  MenuItem mnuEditUndo{&mnuEdit, "mnuEditUndo", "U&ndo"};
  MenuItem mnuEditRedo{&mnuEdit, "mnuEditRedo", "Red&o"};
  MenuItem mnuEditBar1{&mnuEdit, "mnuEditBar1", "-"};
  MenuItem mnuEditCut{&mnuEdit, "mnuEditCut", "Cu&t"};
  MenuItem mnuEditCopy{&mnuEdit, "mnuEditCopy", "&Copy"};
  MenuItem mnuEditPaste{&mnuEdit, "mnuEditPaste", "&Paste"};
  MenuItem mnuEditBar2{&mnuEdit, "mnuEditBar2", "-"};
  MenuItem mnuEditInsertRow{&mnuEdit, "mnuEditInsertRow", "&Insert Row"};
  MenuItem mnuEditDeleteRow{&mnuEdit, "mnuEditDeleteRow", "&Delete Row"};
  MenuItem mnuEditBar3{&mnuEdit, "mnuEditBar3", "-"};
  MenuItem mnuEditTypingReplaces{&mnuEdit, "mnuEditTypingReplaces", "&Typing Replaces Cell"};

  MenuItem mnuOption{&bar, "mnuOption", "&Options"};
  MenuItem mnuOptionFormat{&mnuOption, "mnuOptionFormat", "&Format"};
  MenuItem mnuOptionFormatStd{&mnuOptionFormat, "mnuOptionFormatStd", "&Standard Format..."};
  MenuItem mnuOptionFormatCol{&mnuOptionFormat, "mnuOptionFormatCol",
                              "&Individual Column Format..."};
  MenuItem mnuOptionWidth{&mnuOption, "mnuOptionWidth", "&Width"};
  MenuItem mnuOptionWidthStd{&mnuOptionWidth, "mnuOptionWidthStd", "&Standard Width..."};
  MenuItem mnuOptionWidthCol{&mnuOptionWidth, "mnuOptionWidthCol", "&Individual Column Width..."};
  MenuItem mnuOptionSort{&mnuOption, "mnuOptionSort", "&Sort..."};

  MenuItem mnuHelp{&bar, "mnuHelp", "&Help"};
  MenuItem mnuHelpContents{&mnuHelp, "mnuHelpContents", "&Contents"};
  MenuItem mnuHelpSearch{&mnuHelp, "mnuHelpSearch", "&Search for Help on..."};
  MenuItem mnuHelpInstruct{&mnuHelp, "mnuHelpInstruct", "&Instructions"};
  MenuItem mnuHelpInstructText{&mnuHelpInstruct, "mnuHelpInstruct(0)",
                               "Bringing &Text Files into Editor"};
  MenuItem mnuHelpInstructSheet{&mnuHelpInstruct, "mnuHelpInstruct(1)",
                                "Bringing Spreadsheet &Files into Editor"};
  MenuItem mnuHelpUsing{&mnuHelp, "mnuHelpUsing", "&Using Help"};
};

}  // namespace tolmer
