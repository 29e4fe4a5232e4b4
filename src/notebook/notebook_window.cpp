#include "notebook/notebook_window.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string_view>

#include "base/paths.h"
#include "base/text_encoding.h"
#include "base/trimmed.h"
#include "notebook/book_look.h"
#include "notebook/kept_pages.h"
#include "notebook/sample_only.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

using namespace book_look;

constexpr Twips margin = pixels(12);
constexpr Size container = pageContainer;
constexpr Twips turnerHeight = pixels(26);
constexpr Twips turnerSides = pixels(8);  // between the words and the mark of the focus
constexpr Twips logoSide = pixels(26);
constexpr Size buttonSize{pixels(96), pixels(28)};

constexpr Size book{bookWidth,
                    TabBook::tabHeight + pixels(10) + container.height + turnerHeight + pixels(16)};
constexpr Size windowSize{book.width + 2 * margin, book.height + buttonSize.height + 3 * margin};
static_assert(windowSize == bookWindow);

constexpr Twips titleBar = pixels(40);
constexpr Twips leastPage = pixels(120);  // of the page's height that is seen

// "group" in any case, with blanks around it or not.
bool isGroupMark(std::string_view fileName) {
  fileName = trimmed(fileName, " ");
  const std::string_view mark = groupMark;
  return std::equal(fileName.begin(), fileName.end(), mark.begin(), mark.end(),
                    [](unsigned char a, char b) { return std::tolower(a) == b; });
}

}  // namespace

frmNotebook::frmNotebook(Desktop& desktop, NoteBook& noteBook)
    : Window(desktop, "frmNotebook", WindowStyle::dialog, "Notebook"),
      nbNoteBook(noteBook),
      scenarios(picPageContainer, noteBook.book().uScenario),
      tmrFlashOK(desktop.timers(), "tmrFlashOK", 500) {
  for (int i = 0; i < 2; ++i) {
    lblPageHeader.load();
    ZMLogo.load();
  }
  dressControls();
  lblIntroChapterHeading.setPlace({headerLeft, 0, headerWidth, 500});
  picPageContainer.setPlace({0, 0, container.width, container.height});
  vsbPage.setAccessibleName("Scroll the page");
  fitToScreen();
  connectEvents();
}

void frmNotebook::fitToScreen() {
  const Size screen = desktop().screenSize();
  setMagnification(magnificationOn(screen));
  const Twips beside =
      std::clamp(screen.width - container.width, pageMargin, windowSize.width - container.width);
  const Twips tooHigh = std::max(windowSize.height + titleBar - screen.height, 0.0F);
  placeControls(std::min(pageMargin, beside / 2), beside,
                std::max(container.height - tooHigh, leastPage));
  centreOnScreen();
}

// `side` is what the book has beside the page, `beside` the window on both sides together.
void frmNotebook::placeControls(Twips side, Twips beside, Twips pageHeight) {
  const Twips around = beside / 2 - side;
  const Twips less = container.height - pageHeight;
  setPlace({left(), top(), container.width + beside, windowSize.height - less});
  tbNoteBook.setPlace({around, margin, container.width + 2 * side, book.height - less});
  // On a narrow book the bar beside the page needs more of the margins than the other side.
  const Twips bar = desktop().scrollBarThickness() + pixels(3);
  picPageView.setPlace({std::min(side, 2 * side - bar), TabBook::tabHeight + pixels(10),
                        container.width, pageHeight});
  fitPage();
  placeFoot(picPageView.bottom() + pixels(4));
  placeButtons();
}

// As high as what stands on the page: one that has room does not scroll.
void frmNotebook::fitPage() {
  picPageContainer.setHeight(std::max(picPageView.height(), elements.nextControlTop()));
  page_.fit(desktop().scrollBarThickness());
}

void frmNotebook::focusMoved() {
  if (focus()) page_.bringIntoView(*focus());
}

// Page turners, name and logo in one row; the turners' words end where the page's texts do.
void frmNotebook::placeFoot(Twips top) {
  const auto wide = [](const Label& label) { return widthOf(label.font(), label.caption()); };
  const Twips previousWidth = wide(lblPreviousPage) + 2 * turnerSides;
  const Twips nextWidth = wide(lblNextPage) + 2 * turnerSides;
  const Twips left = picPageView.left() + headerLeft;
  const Twips right = left + headerWidth;
  lblPreviousPage.setPlace({left - turnerSides, top, previousWidth, turnerHeight});
  lblNextPage.setPlace({right + turnerSides - nextWidth, top, nextWidth, turnerHeight});
  const Twips nameWidth = wide(lblProductName);
  lblProductName.setPlace({(tbNoteBook.width() - nameWidth) / 2, top, nameWidth, turnerHeight});
  ZMLogo(0).setPlace({left, top, logoSide, logoSide});
  // the second place of the logo is beside the product's name, in the middle
  ZMLogo(1).setPlace({lblProductName.left() - pixels(8) - logoSide, top, logoSide, logoSide});
}

void frmNotebook::placeButtons() {
  Twips right = std::min(innerWidth() - margin, tbNoteBook.right());
  const Twips buttonTop = innerHeight() - margin - buttonSize.height;
  for (Button* button : {&cmdHelp, &cmdCancel, &cmdOK}) {
    button->setPlace({right - buttonSize.width, buttonTop, buttonSize.width, buttonSize.height});
    right -= buttonSize.width + pixels(8);
  }
  cmdKeepBeside.setPlace({tbNoteBook.left(), buttonTop, pixels(120), buttonSize.height});
}

void frmNotebook::dressControls() {
  tbNoteBook.setBackColour(paper);
  picPageView.setBackColour(paper);
  picPageContainer.setBackColour(paper);
  const auto dress = [](Label& label, const Font& font, Colour colour, Align align) {
    label.setFont(font);
    label.setForeColour(colour);
    label.setBackColour(paper);
    label.setAlign(align);
  };
  dress(lblIntroChapterHeading, coverHeadingFont, headingInk, Align::left);
  dress(lblPageHeader(0), pageHeaderFont, quietInk, Align::left);
  dress(lblPageHeader(1), pageHeaderFont, quietInk, Align::left);
  dress(lblProductName, boldFont, quietInk, Align::centre);
  dress(lblPreviousPage, textFont, linkInk, Align::centre);
  dress(lblNextPage, textFont, linkInk, Align::centre);
  lblPreviousPage.setTip("Ctrl+Page Up");
  lblNextPage.setTip("Ctrl+Page Down");
  lblPreviousPage.setIsLink(true);
  lblNextPage.setIsLink(true);
  for (int i = 0; i < 2; ++i)
    ZMLogo(i).setFile(hostPath(nbNoteBook.tProgramFolder + "\\tolmer.svg"));
  cmdKeepBeside.setTip("Keep this page open while you work");
  cmdOK.setDefault(true);
  cmdCancel.setCancel(true);
}

void frmNotebook::connectEvents() {
  tbNoteBook.TabPageActivate = [this](int tab, int page) { tbNoteBook_TabPageActivate(tab, page); };
  lblNextPage.Click = [this] { turnPage(1); };
  lblPreviousPage.Click = [this] { turnPage(-1); };
  elements.jumped = [this](int index) { lblContentsEntry_Click(index); };
  elements.checked = [this](int index, int value) {
    nbNoteBook.SetCheck(section(), pageNumber(), index, static_cast<Int16>(value));
  };
  elements.versionChanged = [this](int index, int value) {
    nbNoteBook.SetVersion(section(), pageNumber(), index, static_cast<Int16>(value));
  };
  elements.pictureClicked = [this] { imgPicture_Click(); };
  elements.outlineMoved = [this](int index) { takeSelectedItem(index); };
  elements.outlineClicked = [this](int index) { outOutline_Click(index); };
  elements.outlineDoubleClicked = [this](int index) { outOutline_DblClick(index); };
  scenarios.selected = [this](int index) {
    RecordSelectedScenario(section(), pageNumber(), index);
  };
  scenarios.doubleClicked = [this] { cmdOK_Click(); };
  cmdOK.Click = [this] { cmdOK_Click(); };
  cmdCancel.Click = [this] { cmdCancel_Click(); };
  cmdHelp.Click = [this] { cmdHelp_Click(); };
  cmdKeepBeside.Click = [this] { cmdKeepBeside_Click(); };
  tmrFlashOK.Tick = [this] { tmrFlashOK_Timer(); };
  Activate = [this] { Form_Activate(); };
  ScreenChanged = [this] { fitToScreen(); };
  declareKeys();
  // the close box leaves the book as the button does
  QueryUnload = [this](bool& cancel) {
    cancel = true;
    cmdCancel_Click();
  };
}

void frmNotebook::tbNoteBook_TabPageActivate(int TabToActivate, int PageToActivate) {
  if (TabToActivate >= 0) goTo(TabToActivate + 1, PageToActivate + 1);
}

void frmNotebook::goTo(int iSection, int iPage) {
  UpdateLock still(*this);
  Control* const before = focus();
  HideControlsOnPage();
  SetupPage(iSection, iPage);
  tbNoteBook.setActive(iSection - 1, iPage - 1);
  keepFocus(before);
}

// Where the control with the focus is not on the new page, the focus must not fall on OK: the next
// Return would close the book.
void frmNotebook::keepFocus(Control* before) {
  if (!before) return;
  if (before->canBeUsed()) return before->setFocus();
  Control* other = before == &lblNextPage       ? &lblPreviousPage
                   : before == &lblPreviousPage ? &lblNextPage
                                                : nullptr;
  (other && other->canBeUsed() ? other : &tbNoteBook)->setFocus();
}

void frmNotebook::turnPage(int step) { goTo(section(), pageNumber() + step); }

void frmNotebook::lblContentsEntry_Click(int Index) {
  const JumpElement& jump = elements.jumpOf(Index);
  goTo(jump.iSection == 0 ? section() : jump.iSection, jump.iPage);
}

void frmNotebook::outOutline_Click(int Index) {
  Outline& outline = elements.outOutline(Index);
  const int item = outline.listIndex();
  if (!mbProcessControlEvents_ || item < 0) return;
  takeSelectedItem(Index);
  if (!outline.items().at(item).isLeaf) outline.setExpanded(item, !outline.expanded(item));
}

void frmNotebook::takeSelectedItem(int Index) {
  ShowRightDatafileDesc(Index);
  RecordSelectedDatabase(Index);
  CheckOKEnabled();
}

void frmNotebook::outOutline_DblClick(int Index) {
  outOutline_Click(Index);
  if (cmdOK.enabled()) cmdOK_Click();
}

// The box speaks of pressing OK, which a grey one does not allow.
void frmNotebook::imgPicture_Click() {
  if (!cmdOK.enabled()) return;
  tmrFlashOK.setEnabled(true);
  desktop().beep();
  desktop().doEvents();
  frmSampleOnly(desktop(), hostPath(nbNoteBook.tProgramFolder + "\\tolmer.svg")).showModal();
  tmrFlashOK.setEnabled(false);
  cmdOK.setBackColour(colours::buttonFace);
  cmdOK.setForeColour(colours::buttonText);
}

void frmNotebook::tmrFlashOK_Timer() {
  const bool quiet = cmdOK.backColour() == colours::buttonFace;
  cmdOK.setBackColour(quiet ? colours::red : colours::buttonFace);
  cmdOK.setForeColour(quiet ? colours::white : colours::buttonText);
}

void frmNotebook::Form_Activate() {
  recordPage(section(), pageNumber());
  desktop().doEvents();
}

// The pages of a section turn by keys too, wherever the focus is.
void frmNotebook::declareKeys() {
  takeKey({keys::f1}, [this] { cmdHelp_Click(); });
  const auto turns = [this](int code, Label& turner, int step) {
    takeKey({code, Held::no, Held::yes, Held::no}, [this, &turner, step] {
      if (turner.visible()) turnPage(step);
    });
  };
  turns(keys::pageDown, lblNextPage, 1);
  turns(keys::pageUp, lblPreviousPage, -1);
  const auto moves = [this](int code, float ofView) {
    takeKey(
        {code, Held::no, Held::no, Held::no}, [this, ofView] { page_.moveBy(ofView); },
        [this] {
          return page_.scrolls() && !(focus() && focus()->kind() == ControlKind::outline);
        });
  };
  moves(keys::pageDown, 0.9F);
  moves(keys::pageUp, -0.9F);
}

void frmNotebook::cmdOK_Click() {
  nbNoteBook.iLastAction = NoteBook::closedByOK;
  recordPage(section(), pageNumber());
  hide();
}

// Gives the book back as it was when it was shown; checks and versions stay as they are.
void frmNotebook::cmdCancel_Click() {
  nbNoteBook.iLastAction = NoteBook::closedByCancel;
  nbNoteBook.miLeftSection = section();
  nbNoteBook.miLeftPage = pageNumber();
  UpdateLock still(*this);
  HideControlsOnPage();
  const int startSection = nbNoteBook.miStartSection, startPage = nbNoteBook.miStartPage;
  if (startSection >= 1 && startPage >= 1) {
    SetupPage(startSection, startPage);
    tbNoteBook.setActive(startSection - 1, startPage - 1);
    giveBackSelection(nbNoteBook.page(startSection, startPage));
  } else {
    nbNoteBook.iLastSectionNumber = nbNoteBook.iLastPageNumber = 1;
    nbNoteBook.iLastPageType = PageType::picture;
  }
  hide();
}

void frmNotebook::giveBackSelection(const PageRecord& page) {
  if (page.iPageType == PageType::scenario && scenarios.offers(nbNoteBook.miStartScenario)) {
    scenarios.turnOn(nbNoteBook.miStartScenario);
    RecordSelectedScenario(section(), pageNumber(), nbNoteBook.miStartScenario);
  }
  if (page.iPageType != PageType::database) return;
  const OutlineElement& outline = nbNoteBook.book().uOutline[page.iOutlineElement];
  for (int j = 1; j <= outline.iNumOutlines; ++j) {
    nbNoteBook.SetSelectedDatabase(section(), pageNumber(), j, nbNoteBook.StartDatabase(j));
    RecordSelectedDatabase(outline.uEntry[j].iControlIndex);
  }
}

void frmNotebook::cmdHelp_Click() {
  desktop().showHelp({"notebook", HelpRequest::Kind::contents, 0});
}

void frmNotebook::cmdKeepBeside_Click() {
  desktop().keepBeside(
      keptPages(nbNoteBook.book(), section(), pageNumber(), nbNoteBook.tProgramFolder));
}

std::vector<frmNotebook::OutlineControl> frmNotebook::build() {
  const Book& book = nbNoteBook.book();
  lblIntroChapterHeading.setCaption(book.tTitle);
  const std::size_t cut = utf8Prefix(book.tChapter, chapterNumberLength);
  const std::string captions[] = {book.tChapter.substr(0, cut), book.tChapter.substr(cut)};
  Twips left = book_look::headerLeft;
  for (int i = 0; i < 2; ++i) {
    Label& header = lblPageHeader(i);
    header.setCaption(captions[i]);
    const Twips width = book_look::widthOf(header.font(), captions[i]);
    header.setPlace({left, 80, width, 340});
    left += width;
  }
  for (int i = 1; i <= book.uSection.count(); ++i)
    tbNoteBook.addTab(book.uSection[i].tName, book.uSection[i].iNumPages - 1);
  std::vector<OutlineControl> loaded;
  for (int i = 1; i <= book.uOutline.count(); ++i) buildOutline(i, loaded);
  recordPage(section(), pageNumber());
  return loaded;
}

// The entries of an outline element share one list, made from entry 1's databases.
void frmNotebook::buildOutline(int iOutline, std::vector<OutlineControl>& loaded) {
  const Book& book = nbNoteBook.book();
  const OutlineElement& element = book.uOutline[iOutline];
  const OutlineEntry& list = element.uEntry[1];
  for (int j = 1; j <= element.iNumOutlines; ++j) {
    const int control = elements.loadOutline();
    miOutlineControlsLoaded = control;
    Outline& outline = elements.outOutline(control);
    outline.setTag(std::to_string(iOutline));
    elements.lblDatabaseDesc(control).setTag(std::to_string(j));
    outlines_.push_back({iOutline, j, false, {}});
    for (int k = list.iFirstDatabase; k < list.iFirstDatabase + list.iNumDatabases; ++k) {
      const Database& row = book.uDatabase[k];
      const int item = k - list.iFirstDatabase;
      outline.addItem(row.tName, row.iLevel, k);
      if (row.tDataFileName != groupMark)
        outline.setLeaf(item);
      else if (row.bExpanded[j])
        outlines_.back().groupsToExpand.push_back(item);
    }
    loaded.push_back({iOutline, j, control});
  }
}

void frmNotebook::HideControlsOnPage() {
  elements.hideAll();
  scenarios.hide();
}

void frmNotebook::SetupPage(int iSection, int iPage) {
  const PageRecord& page = nbNoteBook.page(iSection, iPage);
  const bool onCoverPage = iSection == 1 && iPage == 1;
  elements.beginPage();
  picPageContainer.setHeight(container.height);
  showHeader(onCoverPage);
  showTurners(iPage, nbNoteBook.book().uSection[iSection].iNumPages);
  const bool showsPicture = showElements(page, iSection, iPage);
  growScenarios();
  if (!onCoverPage && page.iPageType == PageType::database)
    CheckOKEnabled();
  else
    cmdOK.setEnabled(onCoverPage || page.iPageType != PageType::picture || showsPicture);
  picPageContainer.orderStopsByPlace();
  page_.toTop();
  fitPage();
  recordPage(iSection, iPage);
}

void frmNotebook::showHeader(bool onCoverPage) {
  lblIntroChapterHeading.setVisible(onCoverPage);
  for (int i = 0; i < 2; ++i) lblPageHeader(i).setVisible(!onCoverPage);
}

// The logo keeps the place at the left until there is a way back to be shown there.
void frmNotebook::showTurners(int iPage, int iNumPages) {
  lblPreviousPage.setVisible(iPage >= 2);
  ZMLogo(0).setVisible(iPage < 2);
  ZMLogo(1).setVisible(iPage >= 2);
  lblNextPage.setVisible(iPage < iNumPages);
}

// Returns whether one of them was a picture.
bool frmNotebook::showElements(const PageRecord& page, int iSection, int iPage) {
  const Book& book = nbNoteBook.book();
  bool showsPicture = false;
  for (int i = page.iFirstElement; i < page.iFirstElement + page.iNumElements; ++i) {
    const PageElement& element = book.uPageElement[i];
    showsPicture = showsPicture || element.iKind == ElementKind::bitmap;
    if (elements.show(book, element, nbNoteBook.tProgramFolder)) continue;
    if (element.iKind == ElementKind::scenario)
      ShowScenarioElement(element.iIndex, iSection, iPage);
    else
      ShowOutlineElement(element.iIndex);
  }
  return showsPicture;
}

void frmNotebook::ShowScenarioElement(int iScenarioElementIndex, int iSection, int iPage) {
  const ScenarioElement& element = nbNoteBook.book().uScenarioElement[iScenarioElementIndex];
  scenarios.show(element, elements.nextControlTop());
  RecordSelectedScenario(iSection, iPage, element.iSelected);
  elements.UpdateNextControlTop(scenarios.fraScenarios);
}

// What the page leaves free shows more of the descriptions.
void frmNotebook::growScenarios() {
  if (!scenarios.fraScenarios.visible()) return;
  const Twips below = scenarios.fraScenarios.bottom();
  elements.moveDown(below, scenarios.growInto(picPageView.height() - elements.nextControlTop()));
}

void frmNotebook::RecordSelectedScenario(int iSection, int iPage, int iSelectedItem) {
  // a damaged page may show a list that it does not name as its own
  const int own = nbNoteBook.page(iSection, iPage).iScenarioElement;
  if (iSelectedItem < nbNoteBook.book().uScenarioElement[own].iNumScenarios)
    nbNoteBook.SetSelectedScenario(iSection, iPage, static_cast<Int16>(iSelectedItem));
  nbNoteBook.iLastScenarioNumber = scenarios.scenarioOf(iSelectedItem);
}

void frmNotebook::ShowOutlineElement(int iOutlineElementIndex) {
  const OutlineElement& element = nbNoteBook.book().uOutline[iOutlineElementIndex];
  for (int j = 1; j <= element.iNumOutlines; ++j) {
    const OutlineEntry& entry = element.uEntry[j];
    const int control = entry.iControlIndex;
    expandGroupsOnce(control, entry.iSelectedItem);
    setListIndex(control, entry.iSelectedItem);
    elements.showOutline(control);
    ShowRightDatafileDesc(control);
    RecordSelectedDatabase(control);
  }
}

// On the first showing of an outline the groups that the course wants open are opened, and those
// around the selected item: what OK would open is then in sight.
void frmNotebook::expandGroupsOnce(int iControlIndex, int iSelectedItem) {
  BuiltOutline& built = outlines_.at(iControlIndex);
  if (built.expandedOnce) return;
  selectOutlineItem(iControlIndex, iSelectedItem);
  for (const int item : built.groupsToExpand)
    elements.outOutline(iControlIndex).setExpanded(item, true);
  built.expandedOnce = true;
}

void frmNotebook::selectOutlineItem(int iControlIndex, int iItem) {
  Outline& outline = elements.outOutline(iControlIndex);
  const int indent = outline.items().at(iItem).indent;
  for (int i = iItem - 1; i >= 0; --i) {
    const int above = outline.items().at(i).indent;
    if (above < indent) outline.setExpanded(i, true);
    if (above == 1) break;
  }
  setListIndex(iControlIndex, iItem);
}

void frmNotebook::setListIndex(int iControlIndex, int iItem) {
  mbProcessControlEvents_ = false;
  elements.outOutline(iControlIndex).setListIndex(iItem);
  mbProcessControlEvents_ = true;
}

void frmNotebook::RecordSelectedDatabase(int iControlIndex) {
  const BuiltOutline& built = outlines_.at(iControlIndex);
  nbNoteBook.recordDatabase(built.iOutline, built.j,
                            static_cast<Int16>(elements.outOutline(iControlIndex).listIndex()));
}

void frmNotebook::ShowRightDatafileDesc(int iControlIndex) {
  const Outline& outline = elements.outOutline(iControlIndex);
  const auto& item = outline.items().at(outline.listIndex());
  elements.describeOutline(iControlIndex, nbNoteBook.book().uDatabase[item.itemData].tDesc);
}

// A group cannot be chosen as a data set.
void frmNotebook::CheckOKEnabled() {
  bool groupSelected = false;
  for (int i = 1; i <= miOutlineControlsLoaded; ++i)
    groupSelected = groupSelected || (elements.outOutline(i).visible() && groupIsSelected(i));
  cmdOK.setEnabled(!groupSelected);
}

bool frmNotebook::groupIsSelected(int iControlIndex) {
  const Outline& outline = elements.outOutline(iControlIndex);
  if (outline.listIndex() < 0) return false;
  const auto& item = outline.items().at(outline.listIndex());
  return isGroupMark(nbNoteBook.book().uDatabase[item.itemData].tDataFileName);
}

void frmNotebook::recordPage(int iSection, int iPage) {
  if (nbNoteBook.book().uSection.count() < 1) return;
  nbNoteBook.iLastSectionNumber = static_cast<Int16>(iSection);
  nbNoteBook.iLastPageNumber = static_cast<Int16>(iPage);
  nbNoteBook.iLastPageType = nbNoteBook.page(iSection, iPage).iPageType;
}

}  // namespace tolmer
