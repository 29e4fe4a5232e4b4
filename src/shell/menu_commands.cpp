#include "shell/menu_commands.h"

#include "base/file_io.h"
#include "engine/fitted_equation.h"
#include "shell/status_line.h"

namespace tolmer {

MenuCommands::MenuCommands(ShellParts& parts, MainFlow& flow)
    : parts_(parts),
      flow_(flow),
      reports_(parts.desktop, parts.state, parts.cases),
      cases_(parts),
      explore_(parts, flow) {
  wireFileAndEdit();
  wireDisplays();
  wireOptions();
  wireNotes();
  wireHelp();
}

void MenuCommands::wireFileAndEdit() {
  parts_.frame.mnuFileZM.Click = [this] { parts_.desktop.activateProgram(suiteTitle); };
  parts_.frame.mnuFileWorktext.Click = [this] { mnuFileWorktext_Click(); };
  reports_.saved = [this](const std::string& path) {
    parts_.frame.tell("The report was saved: " + path);
  };
  parts_.frame.mnuFileReport.Click = [this] { reports_.SaveReport(); };
  parts_.frame.mnuFilePrint.Click = [this] { reports_.PrintReport(); };
  parts_.frame.mnuFileExit.Click = [this] { parts_.frame.requestClose(); };
  parts_.frame.mnuEditCopy.Click = [this] { mnuEditCopy_Click(); };
}

void MenuCommands::wireDisplays() {
  parts_.frame.mnuWindow.Click = [this] { mnuWindow_Click(); };
  parts_.frame.displays.chosen = [this](int iCategory, int iIndex) {
    replaceActiveChild(iCategory, iIndex);
  };
  // The right-click menu leaves frmCurrentDisplay as the click has set it.
  parts_.menus.displays.chosen = [this](int iCategory, int iIndex) {
    parts_.manager.ShowNewWindow(iCategory, iIndex);
  };
  parts_.menus.mnuHistoCopy.Click = [this] {
    if (auto* display = dynamic_cast<DisplayWindow*>(parts_.state.frmCurrentDisplay))
      display->CopyGraph();
  };
  parts_.host.openMenu = [this] {
    parts_.desktop.popupMenu(parts_.menus.mnuMenuTop, *parts_.state.frmCurrentDisplay);
  };
}

void MenuCommands::wireOptions() {
  parts_.frame.mnuZoomIn.Click = [this] { parts_.desktop.zoomIn(); };
  parts_.frame.mnuZoomOut.Click = [this] { parts_.desktop.zoomOut(); };
  parts_.frame.mnuZoomUsual.Click = [this] { parts_.desktop.zoomToUsual(); };
  parts_.frame.mnuShowRegression.Click = [this] { mnuShowRegression_Click(); };
  parts_.frame.mnuShowCorrelation.Click = [this] { mnuShowCorrelation_Click(); };
  parts_.frame.mnuKeepDisplays.Click = [this] { mnuKeepDisplays_Click(); };
}

void MenuCommands::mnuKeepDisplays_Click() {
  bool& bKeep = parts_.analysis.bKeepDisplays;
  bKeep = !bKeep;
  parts_.frame.mnuKeepDisplays.setChecked(bKeep);
}

void MenuCommands::wireNotes() {
  parts_.analysis.fitted = [this] {
    parts_.notes.renew();
    cases_.follow();
  };
  parts_.notes.changed = [this] { showNotes(); };
  parts_.frame.mnuExploreNotes.Click = [this] { openNotes(); };
  parts_.frame.lblStatus.Click = [this] { openNotes(); };
  parts_.frame.lblNotes.Click = [this] { openNotes(); };
  parts_.notesWindow.helpOn = [this](const Note& note) {
    parts_.desktop.showHelp({.file = helpFile,
                             .context = Note::helpTopic,
                             .entry = std::string(helpEntryOf(note.kind))});
  };
  parts_.notesWindow.showIn = [this](const Note& note, const std::string& form) {
    if (const Display* display = findDisplay(form)) showCellsOf(note, *display);
  };
  wireHelpKey(parts_.notesWindow, [] { return Note::helpTopic; });
  wireHelpKey(parts_.caseWindow, [] { return CaseCommands::helpTopic; });
  parts_.caseWindow.cmdHelp.Click = [this] { flow_.ShowHelpTopic(CaseCommands::helpTopic); };
}

// Everywhere but in the window, which is filled when it is opened or while it stands.
void MenuCommands::showNotes() {
  parts_.frame.showStatus(statusLine(parts_.state), parts_.notes.countText());
  parts_.displays.showRemarks();
  cases_.followFit();
  explore_.followFit();
  if (parts_.notesWindow.visible()) parts_.notesWindow.setNotes(parts_.notes.known());
}

void MenuCommands::openNotes() {
  parts_.notesWindow.setNotes(parts_.notes.notes());
  parts_.notesWindow.open();
}

void MenuCommands::showCellsOf(const Note& note, const Display& display) {
  std::vector<CellPosition> cells;
  for (const NotedCell& cell : note.cells)
    if (cell.display == display.form) cells.push_back({cell.row, cell.column});
  DisplayWindow& window = parts_.manager.bringUp(display);
  if (cells.empty())
    parts_.cases.select(note.cases);
  else
    window.showCells(cells);
  parts_.desktop.present(parts_.frame);
}

void MenuCommands::wireHelp() {
  parts_.frame.mnuHelpContents.Click = [this] { flow_.ShowHelpTopic(helpContents); };
  parts_.frame.mnuHelpSearch.Click = [this] { flow_.ShowHelpTopic(helpSearch); };
  parts_.frame.mnuHelpUsingHelp.Click = [this] { flow_.ShowHelpTopic(helpOnHelp); };
  parts_.frame.mnuHelpHint.Click = [this] { flow_.showHint(); };
  parts_.frame.mnuHelpAbout.Click = [this] { parts_.about.ShowAbout(); };
  wireHelpKey(parts_.frame, [] { return helpContents; });
  wireHelpKey(parts_.panel, [] { return helpOnPanel; });
  parts_.displays.created = [this, before = parts_.displays.created](DisplayWindow& display) {
    if (before) before(display);
    wireHelpKey(display, [&display] { return display.display().helpTopic(); });
  };
}

void MenuCommands::wireHelpKey(Window& window, std::function<long()> topic) {
  window.takeKey({keys::f1}, [this, topic = std::move(topic)] { flow_.ShowHelpTopic(topic()); });
}

void MenuCommands::mnuFileWorktext_Click() {
  const std::string worktext = parts_.tProgramFolder + "/Worktext/Ch17.pdf";
  if (!isRegularFile(worktext)) {
    parts_.desktop.messageBox(
        {.title = "Worktext not Found",
         .text = "Either your Zelmar CD has been removed from your CD reader or your Worktext "
                 "files have been moved!",
         .icon = MessageIcon::critical});
    return;
  }
  if (parts_.desktop.activateProgram("Ch. 17 Tolmer Analysis")) return;
  parts_.desktop.openDocument(worktext, [&desktop = parts_.desktop, worktext] {
    desktop.messageBox({.title = "Worktext",
                        .text = "No program of this computer opens " + worktext +
                                ". Install one that shows PDF documents.",
                        .icon = MessageIcon::exclamation});
  });
}

void MenuCommands::mnuEditCopy_Click() {
  Window* active = parts_.frame.activeChild();
  if (!active) return;
  if (active->focus() && active->focus()->kind() == ControlKind::textBox) {
    parts_.desktop.setClipboard({.text = fittedEquation(parts_.state)});
    return;
  }
  if (auto* display = dynamic_cast<DisplayWindow*>(active)) display->CopyGraph();
}

void MenuCommands::mnuWindow_Click() {
  DisplayMenu& menu = parts_.frame.displays;
  const bool bReplaceable = parts_.frame.activeChild() != &parts_.panel;
  menu.mnuGraphList.setEnabled(bReplaceable);
  menu.mnuTableList.setEnabled(bReplaceable);
  MenuItem& mnuInterpretation = *menu.entry(textDisplays, 1);
  mnuInterpretation.setEnabled(bReplaceable &&
                               parts_.state.iDisplayState(textDisplays, 1) != displayShown);
}

void MenuCommands::replaceActiveChild(int iCategory, int iIndex) {
  parts_.state.frmCurrentDisplay = parts_.frame.activeChild();
  parts_.manager.ShowNewWindow(iCategory, iIndex);
}

void MenuCommands::mnuShowRegression_Click() {
  bool& bShow = parts_.state.bShowRegressionLine;
  bShow = !bShow;
  parts_.frame.mnuShowRegression.setChecked(bShow);
  parts_.panel.optionsChanged();
}

void MenuCommands::mnuShowCorrelation_Click() {
  bool& bShow = parts_.state.bShowCorrelation;
  bShow = !bShow;
  parts_.frame.mnuShowCorrelation.setChecked(bShow);
  parts_.panel.optionsChanged();
}

}  // namespace tolmer
