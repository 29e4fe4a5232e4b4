// The book on the screen: tabs are sections, and one container shows the elements of the present
// page from top to bottom.
#pragma once

#include <vector>

#include "notebook/notebook.h"
#include "notebook/page_elements.h"
#include "notebook/scenario_list.h"
#include "platform/buttons.h"
#include "platform/control_array.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/scrolled_panel.h"
#include "platform/tab_book.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace tolmer {

class frmNotebook : public Window {
 public:
  frmNotebook(Desktop& desktop, NoteBook& noteBook);

  // One outline on the screen, for entry j of an outline element.
  struct OutlineControl {
    int iOutline;
    int j;
    int iControl;
  };
  // Fills in what is the same on every page: headings, tabs, outlines with their lists.
  std::vector<OutlineControl> build();

  void SetupPage(int iSection, int iPage);
  void HideControlsOnPage();
  // Turns to that page, and the tabs with it.
  void goTo(int iSection, int iPage);
  // Opens the ancestors of an item and selects it, without any event.
  void selectOutlineItem(int iControlIndex, int iItem);

  // Its size on the screen as it is now: larger as a whole where there is room, and where there is
  // too little the page scrolls between tabs and buttons.
  void fitToScreen();

  void cmdOK_Click();
  void cmdCancel_Click();
  void cmdHelp_Click();
  void cmdKeepBeside_Click();

  NoteBook& nbNoteBook;
  TabBook tbNoteBook{this, "tbNoteBook"};
  Panel picPageView{&tbNoteBook, "picPageView"};
  Panel picPageContainer{&picPageView, "picPageContainer"};
  Label lblIntroChapterHeading{&picPageContainer, "lblIntroChapterHeading"};
  ControlArray<Label> lblPageHeader{picPageContainer, "lblPageHeader", 0};
  PageElements elements{picPageContainer};
  ScenarioList scenarios;
  ScrollBar vsbPage{&tbNoteBook, "vsbPage"};
  Label lblPreviousPage{&tbNoteBook, "lblPreviousPage", "Previous page ->"};
  Label lblProductName{&tbNoteBook, "lblProductName", "Zelmar"};
  ControlArray<Image> ZMLogo{tbNoteBook, "ZMLogo", 0};
  Label lblNextPage{&tbNoteBook, "lblNextPage", "Next page ->"};
  Button cmdOK{this, "cmdOK", "OK"};
  Button cmdCancel{this, "cmdCancel", "Cancel"};
  Button cmdHelp{this, "cmdHelp", "Help"};
  Button cmdKeepBeside{this, "cmdKeepBeside", "&Keep Beside"};
  Timer tmrFlashOK;
  int miOutlineControlsLoaded = 0;

 private:
  void placeControls(Twips side, Twips beside, Twips pageHeight);
  void placeFoot(Twips top);
  void fitPage();
  void focusMoved() override;
  void placeButtons();
  void dressControls();
  void connectEvents();
  void buildOutline(int iOutline, std::vector<OutlineControl>& loaded);

  int section() const { return tbNoteBook.activeTab() + 1; }
  int pageNumber() const { return tbNoteBook.activePage() + 1; }
  void showHeader(bool onCoverPage);
  void showTurners(int iPage, int iNumPages);
  bool showElements(const PageRecord& page, int iSection, int iPage);
  void growScenarios();
  void ShowScenarioElement(int iScenarioElementIndex, int iSection, int iPage);
  void ShowOutlineElement(int iOutlineElementIndex);
  void expandGroupsOnce(int iControlIndex, int iSelectedItem);
  void setListIndex(int iControlIndex, int iItem);
  void RecordSelectedScenario(int iSection, int iPage, int iSelectedItem);
  void RecordSelectedDatabase(int iControlIndex);
  void ShowRightDatafileDesc(int iControlIndex);
  void CheckOKEnabled();
  bool groupIsSelected(int iControlIndex);
  void recordPage(int iSection, int iPage);
  void giveBackSelection(const PageRecord& page);

  void tbNoteBook_TabPageActivate(int TabToActivate, int PageToActivate);
  void turnPage(int step);
  void keepFocus(Control* before);
  void lblContentsEntry_Click(int Index);
  void outOutline_Click(int Index);
  void takeSelectedItem(int Index);
  void outOutline_DblClick(int Index);
  void imgPicture_Click();
  void tmrFlashOK_Timer();
  void Form_Activate();
  void declareKeys();

  // What an outline on the screen stands for, and which of its groups are open at first.
  struct BuiltOutline {
    int iOutline = 0;
    int j = 0;
    bool expandedOnce = false;
    std::vector<int> groupsToExpand;  // list indices
  };
  std::vector<BuiltOutline> outlines_ = std::vector<BuiltOutline>(1);  // by number of the control
  bool mbProcessControlEvents_ = true;
  ScrolledPanel page_{picPageView, picPageContainer, vsbPage};
};

}  // namespace tolmer
