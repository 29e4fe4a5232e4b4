#include "notebook/notebook.h"

#include <utility>

#include "notebook/cover.h"
#include "notebook/notebook_window.h"
#include "notebook/object_file.h"
#include "platform/desktop.h"

namespace tolmer {
namespace {

template <class Outline>
auto& entryOf(Outline& outline, int j) {
  if (j < 1 || j > outline.iNumOutlines)
    throw std::out_of_range("the page has no outline " + std::to_string(j));
  return outline.uEntry[j];
}

}  // namespace

NoteBook::NoteBook(Desktop& desktop) : desktop_(desktop) {}

NoteBook::~NoteBook() = default;

void NoteBook::setBook(Book book) {
  window_.reset();
  book_ = std::move(book);
  iLastScenarioNumber = 0;
  iSelectedDatabase_ = {};
}

int NoteBook::pageRow(int iSection, int iPage) const {
  const SectionRecord& section = book_.uSection[iSection];
  if (iSection < 1 || iPage < 1 || iPage > section.iNumPages)
    throw std::out_of_range("the notebook has no page " + std::to_string(iPage) + " of section " +
                            std::to_string(iSection));
  return section.iFirstPage + iPage - 1;
}

// The page's element of that kind, counted from 1; null where there are fewer.
const PageElement* NoteBook::nthOfKind(int iSection, int iPage, Int16 iKind, int number) const {
  const PageRecord& record = page(iSection, iPage);
  for (int i = record.iFirstElement; i < record.iFirstElement + record.iNumElements; ++i)
    if (book_.uPageElement[i].iKind == iKind && --number == 0) return &book_.uPageElement[i];
  return nullptr;
}

Int16 NoteBook::GetSelectedScenario(int iSection, int iPage) const {
  return book_.uScenarioElement[page(iSection, iPage).iScenarioElement].iSelected;
}

void NoteBook::SetSelectedScenario(int iSection, int iPage, Int16 iSelectedItem) {
  ScenarioElement& list = book_.uScenarioElement[page(iSection, iPage).iScenarioElement];
  if (iSelectedItem < 0 || iSelectedItem >= list.iNumScenarios)
    throw std::out_of_range("the page has no scenario option " + std::to_string(iSelectedItem));
  list.iSelected = iSelectedItem;
}

void NoteBook::SetCheck(int iSection, int iPage, int iCheckNumber, Int16 iNewValue) {
  const PageElement* found = nthOfKind(iSection, iPage, ElementKind::check, iCheckNumber);
  if (found && iNewValue >= 0 && iNewValue <= 2) book_.uCheck[found->iIndex].iValue = iNewValue;
}

Int16 NoteBook::GetCheck(int iSection, int iPage, int iCheckNumber) const {
  const PageElement* found = nthOfKind(iSection, iPage, ElementKind::check, iCheckNumber);
  return found ? book_.uCheck[found->iIndex].iValue : Int16{0};
}

void NoteBook::SetVersion(int iSection, int iPage, int iVersionNumber, Int16 iNewValue) {
  const PageElement* found = nthOfKind(iSection, iPage, ElementKind::version, iVersionNumber);
  if (found) book_.uVersion[found->iIndex].iValue = iNewValue;
}

Int16 NoteBook::GetVersion(int iSection, int iPage) const {
  const PageElement* found = nthOfKind(iSection, iPage, ElementKind::version, 1);
  return found ? book_.uVersion[found->iIndex].iValue : Int16{0};
}

void NoteBook::SetSelectedDatabase(int iSection, int iPage, int iOutlineNumber,
                                   Int16 iSelectedItem) {
  OutlineElement& outline = book_.uOutline[page(iSection, iPage).iOutlineElement];
  OutlineEntry& entry = entryOf(outline, iOutlineNumber);
  if (iSelectedItem < 0 || iSelectedItem >= outline.uEntry[1].iNumDatabases)
    throw std::out_of_range("the outline has no item " + std::to_string(iSelectedItem));
  entry.iSelectedItem = iSelectedItem;
  if (window_) window_->selectOutlineItem(entry.iControlIndex, iSelectedItem);
}

Int16 NoteBook::GetSelectedDatabase(int iSection, int iPage, int iOutlineNumber) const {
  return entryOf(book_.uOutline[page(iSection, iPage).iOutlineElement], iOutlineNumber)
      .iSelectedItem;
}

void NoteBook::recordDatabase(int iOutline, int j, Int16 iSelectedItem) {
  OutlineEntry& entry = entryOf(book_.uOutline[iOutline], j);
  entry.iSelectedItem = iSelectedItem;
  iSelectedDatabase_.at(j) = static_cast<Int16>(entry.iFirstDatabase + iSelectedItem);
}

void NoteBook::CheckStringFormatCodes(std::string& tStringToCheck, bool& bIndent, bool& bEmphasis,
                                      Int16& iEmphasisStyle) {
  bIndent = bEmphasis = false;
  iEmphasisStyle = 0;
  for (bool found = true; found;) {
    found = false;
    if (tStringToCheck.starts_with("\\I")) {
      bIndent = found = true;
      tStringToCheck.erase(0, 2);
    }
    if (tStringToCheck.starts_with("\\E")) {
      bEmphasis = found = true;
      const char digit = tStringToCheck.size() > 2 ? tStringToCheck[2] : '0';
      iEmphasisStyle = digit >= '0' && digit <= '9' ? static_cast<Int16>(digit - '0') : Int16{0};
      tStringToCheck.erase(0, 3);
    }
  }
}

void NoteBook::LoadNotebook() {
  bAppIsLoading = true;
  if (ShowHider && loadHider) loadHider();
  cover_ = std::make_unique<frmNoteSplash>(desktop_, *this);
  cover_->pnlChapterName.setCaption(ModuleTitleLine);
  cover_->pnlLoadInfo.bringToFront();
  cover_->tmrLoading.setEnabled(true);
  cover_->show();
  desktop_.doEvents();
}

void NoteBook::ReadObjectFile(const std::string& tFileName) {
  auto fields = FieldReader::open(tFileName);
  if (!fields) return refuseObjectFile("Cannot read notebook object file.");
  auto book = readBook(*fields);
  if (!book) return refuseObjectFile("Damaged notebook object file.\n" + book.error().message());
  setBook(*std::move(book));
  SetupNotebook();
}

void NoteBook::refuseObjectFile(const std::string& text) {
  desktop_.beep();
  desktop_.messageBox({"Input Error", text, MessageIcon::critical, MessageButtons::ok});
  desktop_.endProgram(1);
}

frmNotebook& NoteBook::window() {
  if (!window_) window_ = std::make_unique<frmNotebook>(desktop_, *this);
  return *window_;
}

void NoteBook::SetupNotebook() {
  const auto controls = window().build();
  for (const auto& [iOutline, j, iControl] : controls)
    book_.uOutline[iOutline].uEntry[j].iControlIndex = static_cast<Int16>(iControl);
}

void NoteBook::endLoading() {
  if (cover_) {
    UpdateLock still(*cover_);
    cover_->tmrLoading.setEnabled(false);
    cover_->pnlLoadInfo.setVisible(false);
    cover_->pnlContinueMessage.setVisible(true);
    cover_->pnlContinueMessage.bringToFront();
  }
  bAppIsLoading = false;
  desktop_.doEvents();
  cover_.reset();
  frmOpeningBook(desktop_, tProgramFolder).showModal();
}

void NoteBook::StartAndShowNotebook() {
  endLoading();
  ShowNotebook(1, 1);
  if (ShowHider && unloadHider) unloadHider();
}

void NoteBook::StartOnPage(int iSection, int iPage) {
  endLoading();
  window().goTo(iSection, iPage);
  rememberStart();
  window().cmdOK.click();
  if (ShowHider && unloadHider) unloadHider();
}

void NoteBook::ShowNotebook(std::optional<int> vSection, std::optional<int> vPage) {
  if (vSection)
    window().goTo(*vSection, vPage.value_or(1));
  else if (miLeftSection > 0)
    window().goTo(miLeftSection, miLeftPage);
  miLeftSection = 0;
  rememberStart();
  window().fitToScreen();
  window().tbNoteBook.setFocus();  // and on no link: Return means OK
  window().showModal();
}

// What Cancel gives back.
void NoteBook::rememberStart() {
  miStartSection = static_cast<Int16>(window().tbNoteBook.activeTab() + 1);
  miStartPage = static_cast<Int16>(window().tbNoteBook.activePage() + 1);
  const PageRecord& shown = page(miStartSection, miStartPage);
  if (shown.iPageType == PageType::scenario)
    miStartScenario = book_.uScenarioElement[shown.iScenarioElement].iSelected;
  if (shown.iPageType != PageType::database) return;
  for (std::size_t j = 1; j <= maxOutlineEntries; ++j)
    iStartDatabase_[j] = book_.uOutline[shown.iOutlineElement].uEntry[j].iSelectedItem;
}

}  // namespace tolmer
