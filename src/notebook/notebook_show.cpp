// The life of the book on the screen: cover, reading, opening message, showing.
#include <utility>

#include "notebook/note_splash.h"
#include "notebook/notebook.h"
#include "notebook/notebook_window.h"
#include "notebook/object_file.h"
#include "notebook/opening_book.h"
#include "platform/desktop.h"

namespace tolmer {

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
    book_.uOutline[iOutline].uEntry[static_cast<std::size_t>(j)].iControlIndex =
        static_cast<Int16>(iControl);
}

void NoteBook::StartAndShowNotebook() {
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

  window().goTo(1, 1);
  ShowNotebook();
  if (ShowHider && unloadHider) unloadHider();
}

void NoteBook::ShowNotebook(std::optional<int> vSection, std::optional<int> vPage) {
  if (vSection) window().goTo(*vSection, vPage.value_or(1));
  rememberStart();
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
