// The notebook object: content, selections, how the book was closed, and its showing.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "notebook/book.h"

namespace tolmer {

class Desktop;
class Window;
class frmNoteSplash;
class frmNotebook;

// Sections and pages count from 1. A section, page, outline or parameter number outside the book
// is a fault of the caller: std::out_of_range, and nothing has changed.
class NoteBook {
 public:
  explicit NoteBook(Desktop& desktop);
  ~NoteBook();

  // Values of iLastAction.
  static constexpr Int16 neverClosed = 0;
  static constexpr Int16 closedByCancel = 1;
  static constexpr Int16 closedByOK = 2;

  bool bAppIsLoading = false;  // from LoadNotebook to StartAndShowNotebook
  std::string ModuleTitleLine;
  bool ShowHider = true;  // cover the screen while the book is at work
  Window* frmAppForm = nullptr;
  bool DebugOn = false;  // consulted nowhere
  Int16 iLastAction = neverClosed;
  Int16 iLastSectionNumber = 0;   // of the page last shown
  Int16 iLastPageNumber = 0;      //
  Int16 iLastPageType = 0;        //
  Int16 iLastScenarioNumber = 0;  // row of the scenarios table last selected
  Int16 iDefaultSectionNumber = 0;
  Int16 iDefaultPageNumber = 0;
  Int16 iDefaultPageType = 0;
  int miLeftSection = 0;      // by Cancel, to be opened on again; 0 for none
  int miLeftPage = 0;         //
  Int16 miStartSection = 0;   // when the book was shown
  Int16 miStartPage = 0;      //
  Int16 miStartScenario = 0;  // option index; 0 also where there was none

  std::string tProgramFolder;  // without a final backslash; pictures and help lie there
  // The curtain over the screen is the program's window. Unset functions do nothing.
  std::function<void()> loadHider;    // over the whole screen, shown and in front
  std::function<void()> unloadHider;  //

  // --- selections
  Int16 GetSelectedScenario(int iSection, int iPage) const;
  void SetSelectedScenario(int iSection, int iPage, Int16 iSelectedItem);
  // The iCheckNumber-th check of the page takes 0, 1 or 2; any other value changes nothing.
  void SetCheck(int iSection, int iPage, int iCheckNumber, Int16 iNewValue);
  Int16 GetCheck(int iSection, int iPage, int iCheckNumber) const;
  // The iVersionNumber-th version of the page takes any number: the edit box limits it.
  void SetVersion(int iSection, int iPage, int iVersionNumber, Int16 iNewValue);
  Int16 GetVersion(int iSection, int iPage) const;  // of the first version of the page
  // Stores the item, opens its ancestors and selects it in the window's outline.
  void SetSelectedDatabase(int iSection, int iPage, int iOutlineNumber, Int16 iSelectedItem);
  Int16 GetSelectedDatabase(int iSection, int iPage, int iOutlineNumber) const;

  // --- answers
  Int16 LastAction() const { return iLastAction; }
  Int16 DefaultSectionNumber() const { return iDefaultSectionNumber; }
  Int16 DefaultPageNumber() const { return iDefaultPageNumber; }
  Int16 DefaultPageType() const { return iDefaultPageType; }
  Int16 LastSectionNumber() const { return iLastSectionNumber; }
  Int16 LastPageNumber() const { return iLastPageNumber; }
  Int16 LastPageType() const { return iLastPageType; }
  // List index at the moment of showing.
  Int16 StartDatabase(int iIndex) const { return element(iStartDatabase_, iIndex); }

  const std::string& DefaultScenarioName() const { return book_.uDefaultScenario.tName; }
  const std::string& DefaultScenarioDesc() const { return book_.uDefaultScenario.tDesc; }
  const std::string& DefaultScenarioParameter(int iParam) const {
    return element(book_.uDefaultScenario.tParameter, iParam);
  }
  const std::string& LastScenarioName() const { return lastScenario().tName; }
  const std::string& LastScenarioDesc() const { return lastScenario().tDesc; }
  const std::string& LastScenarioParameter(int iParam) const {
    return element(lastScenario().tParameter, iParam);
  }

  const std::string& DefaultDatabaseName(int iIndex) const { return defaultDatabase(iIndex).tName; }
  const std::string& DefaultDatabaseShortName(int iIndex) const {
    return defaultDatabase(iIndex).tShortName;
  }
  const std::string& DefaultDatabaseDesc(int iIndex) const { return defaultDatabase(iIndex).tDesc; }
  const std::string& DefaultDatabaseDataFileName(int iIndex) const {
    return defaultDatabase(iIndex).tDataFileName;
  }
  const std::string& DefaultDatabaseLabelFileName(int iIndex) const {
    return defaultDatabase(iIndex).tLabelFileName;
  }
  const std::string& DefaultDatabaseHeading(int iIndex) const {
    return defaultDatabase(iIndex).tHeading;
  }
  const std::string& LastDatabaseName(int iIndex) const { return lastDatabase(iIndex).tName; }
  const std::string& LastDatabaseShortName(int iIndex) const {
    return lastDatabase(iIndex).tShortName;
  }
  const std::string& LastDatabaseDesc(int iIndex) const { return lastDatabase(iIndex).tDesc; }
  const std::string& LastDatabaseDataFileName(int iIndex) const {
    return lastDatabase(iIndex).tDataFileName;
  }
  const std::string& LastDatabaseLabelFileName(int iIndex) const {
    return lastDatabase(iIndex).tLabelFileName;
  }
  const std::string& LastDatabaseHeading(int iIndex) const { return lastDatabase(iIndex).tHeading; }

  // --- life of the book on the screen, in the order in which a start calls it
  // Begins the loading stage: curtain and cover.
  void LoadNotebook();
  // Reads the object file (course or host spelling) and builds the window. A file that is missing
  // or damaged is told in a message box, and ends the program.
  void ReadObjectFile(const std::string& tFileName);
  // Ends the loading stage: the opening message, then the book on its first page.
  void StartAndShowNotebook();
  // The same as though OK had been pressed on that page at once.
  void StartOnPage(int iSection, int iPage);
  // Shows the book and returns when it has been closed; at a page, or as it was left.
  void ShowNotebook(std::optional<int> vSection = std::nullopt,
                    std::optional<int> vPage = std::nullopt);

  // Takes the format codes off the front of a text: "\I" indents, "\E" and a digit give the style
  // of emphasis. It is the contract by which the writer of an object file fills bIndent and
  // iEmphasisStyle; nothing in the program calls it.
  static void CheckStringFormatCodes(std::string& tStringToCheck, bool& bIndent, bool& bEmphasis,
                                     Int16& iEmphasisStyle);

  // --- for the windows of the book
  const Book& book() const { return book_; }
  // The content without a window: for a report, and for ReadObjectFile.
  void setBook(Book book);
  // Row of the pages table.
  int pageRow(int iSection, int iPage) const;
  const PageRecord& page(int iSection, int iPage) const {
    return book_.uPage[pageRow(iSection, iPage)];
  }
  // The selection of entry j of an outline element, which makes it the database last selected.
  void recordDatabase(int iOutline, int j, Int16 iSelectedItem);
  Desktop& desktop() const { return desktop_; }
  frmNotebook& window();                                 // loaded by first use
  frmNoteSplash* cover() const { return cover_.get(); }  // null outside the loading stage

 private:
  void SetupNotebook();
  void endLoading();
  void rememberStart();
  void refuseObjectFile(const std::string& text);
  const PageElement* nthOfKind(int iSection, int iPage, Int16 iKind, int number) const;
  template <class Value, std::size_t size>
  static const Value& element(const std::array<Value, size>& array, int index) {
    if (index < 0) throw std::out_of_range("negative index");
    return array.at(index);
  }
  const Scenario& lastScenario() const { return book_.uScenario[iLastScenarioNumber]; }
  const Database& lastDatabase(int iIndex) const {
    return book_.uDatabase[element(iSelectedDatabase_, iIndex)];
  }
  const Database& defaultDatabase(int iIndex) const {
    return element(book_.uDefaultDatabase, iIndex);
  }

  Desktop& desktop_;
  Book book_;
  std::array<Int16, maxOutlineEntries + 1> iSelectedDatabase_{};  // rows of the databases table
  std::array<Int16, maxOutlineEntries + 1> iStartDatabase_{};     // list indices
  std::unique_ptr<frmNotebook> window_;
  std::unique_ptr<frmNoteSplash> cover_;
};

}  // namespace tolmer
