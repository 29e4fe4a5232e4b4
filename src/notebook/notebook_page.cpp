// What stands on the present page of the book.
#include <algorithm>
#include <cctype>
#include <string_view>

#include "base/text_encoding.h"
#include "base/trimmed.h"
#include "notebook/book_look.h"
#include "notebook/notebook_window.h"

namespace tolmer {
namespace {

// "group" in any case, with blanks around it or not.
bool isGroupMark(std::string_view fileName) {
  fileName = trimmed(fileName, " ");
  const std::string_view mark = groupMark;
  return std::equal(fileName.begin(), fileName.end(), mark.begin(), mark.end(),
                    [](unsigned char a, char b) { return std::tolower(a) == b; });
}

}  // namespace

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
      else if (row.bExpanded[static_cast<std::size_t>(j)])
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
  showHeader(onCoverPage);
  showTurners(iPage, nbNoteBook.book().uSection[iSection].iNumPages);
  const bool showsPicture = showElements(page, iSection, iPage);
  if (!onCoverPage && page.iPageType == PageType::database)
    CheckOKEnabled();
  else
    cmdOK.setEnabled(onCoverPage || page.iPageType != PageType::picture || showsPicture);
  picPageContainer.orderStopsByPlace();
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
    const OutlineEntry& entry = element.uEntry[static_cast<std::size_t>(j)];
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
  BuiltOutline& built = outlines_.at(static_cast<std::size_t>(iControlIndex));
  if (built.expandedOnce) return;
  selectOutlineItem(iControlIndex, iSelectedItem);
  for (const int item : built.groupsToExpand)
    elements.outOutline(iControlIndex).setExpanded(item, true);
  built.expandedOnce = true;
}

void frmNotebook::selectOutlineItem(int iControlIndex, int iItem) {
  Outline& outline = elements.outOutline(iControlIndex);
  const int indent = outline.items().at(static_cast<std::size_t>(iItem)).indent;
  for (int i = iItem - 1; i >= 0; --i) {
    const int above = outline.items().at(static_cast<std::size_t>(i)).indent;
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
  const BuiltOutline& built = outlines_.at(static_cast<std::size_t>(iControlIndex));
  nbNoteBook.recordDatabase(built.iOutline, built.j,
                            static_cast<Int16>(elements.outOutline(iControlIndex).listIndex()));
}

void frmNotebook::ShowRightDatafileDesc(int iControlIndex) {
  const Outline& outline = elements.outOutline(iControlIndex);
  const auto& item = outline.items().at(static_cast<std::size_t>(outline.listIndex()));
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
  const auto& item = outline.items().at(static_cast<std::size_t>(outline.listIndex()));
  return isGroupMark(nbNoteBook.book().uDatabase[item.itemData].tDataFileName);
}

void frmNotebook::recordPage(int iSection, int iPage) {
  if (nbNoteBook.book().uSection.count() < 1) return;
  nbNoteBook.iLastSectionNumber = static_cast<Int16>(iSection);
  nbNoteBook.iLastPageNumber = static_cast<Int16>(iPage);
  nbNoteBook.iLastPageType = nbNoteBook.page(iSection, iPage).iPageType;
}

}  // namespace tolmer
