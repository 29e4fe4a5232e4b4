// The data editor's menus.
#pragma once

#include "platform/menu.h"

namespace tolmer {

constexpr KeyPress withControl(int key) { return {.code = key, .control = true}; }

struct DataEditorMenu {
  MenuItem bar{nullptr, "menu"};

  MenuItem mnuFile{&bar, "mnuFile", "&File"};
  MenuItem mnuFileNew{&mnuFile, "mnuFileNew", "&New", withControl('N')};
  MenuItem mnuFileOpen{&mnuFile, "mnuFileOpen", "&Open...", withControl('O')};
  MenuItem mnuFileSave{&mnuFile, "mnuFileSave", "&Save", withControl('S')};
  MenuItem mnuFileSaveAs{
      &mnuFile, "mnuFileSaveAs", "Save &As...", {.code = 'S', .shift = true, .control = true}};
  MenuItem mnuFileBar1{&mnuFile, "mnuFileBar1", "-"};
  MenuItem mnuFileExitUse{&mnuFile, "mnuFileExitUse", "Close Editor and &Use Data"};
  MenuItem mnuFileExitDiscard{&mnuFile, "mnuFileExitDiscard", "Close Editor and &Discard Data"};

  MenuItem mnuEdit{&bar, "mnuEdit", "&Edit"};
  MenuItem mnuEditUndo{&mnuEdit, "mnuEditUndo", "U&ndo", withControl('Z')};
  MenuItem mnuEditRedo{&mnuEdit, "mnuEditRedo", "Red&o", withControl('Y')};
  MenuItem mnuEditBar1{&mnuEdit, "mnuEditBar1", "-"};
  MenuItem mnuEditCut{&mnuEdit, "mnuEditCut", "Cu&t", withControl('X')};
  MenuItem mnuEditCopy{&mnuEdit, "mnuEditCopy", "&Copy", withControl('C')};
  MenuItem mnuEditPaste{&mnuEdit, "mnuEditPaste", "&Paste", withControl('V')};
  MenuItem mnuEditBar2{&mnuEdit, "mnuEditBar2", "-"};
  MenuItem mnuEditInsertRow{&mnuEdit, "mnuEditInsertRow", "&Insert Row"};
  MenuItem mnuEditDeleteRow{&mnuEdit, "mnuEditDeleteRow", "&Delete Row"};
  MenuItem mnuEditBar3{&mnuEdit, "mnuEditBar3", "-"};
  MenuItem mnuEditFillDown{&mnuEdit, "mnuEditFillDown", "Fill Do&wn", withControl('D')};
  MenuItem mnuEditFillSeries{&mnuEdit, "mnuEditFillSeries", "Fill &Series"};
  MenuItem mnuEditBar4{&mnuEdit, "mnuEditBar4", "-"};
  MenuItem mnuEditFind{&mnuEdit, "mnuEditFind", "&Find...", withControl('F')};
  MenuItem mnuEditReplace{&mnuEdit, "mnuEditReplace", "R&eplace...", withControl('H')};
  MenuItem mnuEditBar5{&mnuEdit, "mnuEditBar5", "-"};
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

  MenuItem mnuOptionLabel{&mnuOption, "mnuOptionLabel", "Variable &Label..."};

  MenuItem mnuHelp{&bar, "mnuHelp", "&Help"};
  MenuItem mnuHelpContents{&mnuHelp, "mnuHelpContents", "&Contents", {.code = keys::f1}};
  MenuItem mnuHelpSearch{&mnuHelp, "mnuHelpSearch", "&Search for Help on..."};
  MenuItem mnuHelpInstruct{&mnuHelp, "mnuHelpInstruct", "&Instructions"};
  MenuItem mnuHelpInstructText{&mnuHelpInstruct, "mnuHelpInstruct(0)",
                               "Bringing &Text Files into Editor"};
  MenuItem mnuHelpInstructSheet{&mnuHelpInstruct, "mnuHelpInstruct(1)",
                                "Bringing Spreadsheet &Files into Editor"};
  MenuItem mnuHelpUsing{&mnuHelp, "mnuHelpUsing", "&Using Help"};
};

// On the right mouse button in the sheet: what can be done with the cells there.
struct DataEditorCellMenu {
  MenuItem top{nullptr, "mnuCells"};
  MenuItem mnuCellsCut{&top, "mnuCellsCut", "Cu&t"};
  MenuItem mnuCellsCopy{&top, "mnuCellsCopy", "&Copy"};
  MenuItem mnuCellsPaste{&top, "mnuCellsPaste", "&Paste"};
  MenuItem mnuCellsClear{&top, "mnuCellsClear", "C&lear"};
  MenuItem mnuCellsBar1{&top, "mnuCellsBar1", "-"};
  MenuItem mnuCellsInsertRow{&top, "mnuCellsInsertRow", "&Insert Row"};
  MenuItem mnuCellsDeleteRow{&top, "mnuCellsDeleteRow", "&Delete Row"};
  MenuItem mnuCellsBar2{&top, "mnuCellsBar2", "-"};
  MenuItem mnuCellsFillDown{&top, "mnuCellsFillDown", "Fill Do&wn"};
  MenuItem mnuCellsFillSeries{&top, "mnuCellsFillSeries", "Fill &Series"};
  MenuItem mnuCellsBar3{&top, "mnuCellsBar3", "-"};
  MenuItem mnuCellsSort{&top, "mnuCellsSort", "S&ort..."};
};

}  // namespace tolmer
