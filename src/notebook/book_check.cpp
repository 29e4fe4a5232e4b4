#include "notebook/book_check.h"

namespace tolmer {
namespace {

std::string number(int value) { return std::to_string(value); }

class BookChecker {
 public:
  explicit BookChecker(const Book& book) : book_(book) {}

  std::vector<BookFault> run() {
    if (book_.uSection.count() < 1) add(BookPart::section, 0, "the book has no section");
    for (int i = 1; i <= book_.uSection.count(); ++i) checkSection(i);
    for (int i = 1; i <= book_.uPage.count(); ++i) checkPage(i);
    for (int i = 1; i <= book_.uDatabase.count(); ++i) checkDatabase(i);
    for (int i = 1; i <= book_.uJump.count(); ++i) checkJump(i);
    for (int i = 1; i <= book_.uScenarioElement.count(); ++i) checkScenarioElement(i);
    for (int i = 1; i <= book_.uOutline.count(); ++i) checkOutline(i);
    for (int i = 1; i <= book_.uCheck.count(); ++i) checkBox(i);
    for (int i = 1; i <= book_.uPageElement.count(); ++i) checkPageElement(i);
    checkJumpsWithinSections();
    return std::move(faults_);
  }

 private:
  void add(BookPart part, int row, std::string text) {
    faults_.push_back({part, row, std::move(text)});
  }

  // Rows first to first + count - 1 must lie in 1..rows. An empty range may begin anywhere.
  bool inTable(int first, int count, int rows) const {
    return count == 0 || (first >= 1 && count > 0 && first + count - 1 <= rows);
  }

  void checkRange(BookPart part, int row, int first, int count, int rows, const char* what) {
    if (count >= 0 && inTable(first, count, rows)) return;
    add(part, row,
        number(count) + " " + what + "s from " + number(first) + " on, but the book has " +
            number(rows));
  }

  void checkReference(BookPart part, int row, int index, int lowest, int rows, const char* what) {
    if (index >= lowest && index <= rows) return;
    add(part, row,
        std::string(what) + " " + number(index) + " is not there, the book has " + number(rows));
  }

  void checkSection(int row) {
    const SectionRecord& section = book_.uSection[row];
    if (section.iNumPages < 1) return add(BookPart::section, row, "it has no page");
    checkRange(BookPart::section, row, section.iFirstPage, section.iNumPages, book_.uPage.count(),
               "page");
  }

  void checkPage(int row) {
    const PageRecord& page = book_.uPage[row];
    checkRange(BookPart::page, row, page.iFirstElement, page.iNumElements,
               book_.uPageElement.count(), "page element");
    checkReference(BookPart::page, row, page.iScenarioElement, 0, book_.uScenarioElement.count(),
                   "scenario element");
    checkReference(BookPart::page, row, page.iOutlineElement, 0, book_.uOutline.count(),
                   "outline element");
  }

  void checkDatabase(int row) {
    if (book_.uDatabase[row].iLevel < 0) add(BookPart::database, row, "its level is below 0");
  }

  // A jump within its own section is checked from the pages on which it stands.
  void checkJump(int row) {
    const JumpElement& jump = book_.uJump[row];
    if (jump.iSection != 0) checkTarget(row, jump.iSection, jump.iPage);
  }

  void checkTarget(int row, int section, int page) {
    const bool exists = section >= 1 && section <= book_.uSection.count() && page >= 1 &&
                        page <= book_.uSection[section].iNumPages;
    if (!exists)
      add(BookPart::jump, row,
          "there is no page " + number(page) + " of section " + number(section) + " to jump to");
  }

  void checkScenarioElement(int row) {
    const ScenarioElement& element = book_.uScenarioElement[row];
    const int options = element.iNumScenarios;
    if (options < 1 || options > maxScenariosOnPage)
      return add(BookPart::scenarioElement, row,
                 "it lists " + number(options) + " scenarios, from 1 to " +
                     number(maxScenariosOnPage) + " are possible");
    checkRange(BookPart::scenarioElement, row, element.iFirstScenario, options,
               book_.uScenario.count(), "scenario");
    checkSelection(BookPart::scenarioElement, row, element.iSelected, options);
  }

  void checkSelection(BookPart part, int row, int selected, int options) {
    if (selected < 0 || selected >= options)
      add(part, row,
          "selection " + number(selected) + " is not within 0 to " + number(options - 1));
  }

  void checkOutline(int row) {
    const OutlineElement& outline = book_.uOutline[row];
    if (outline.iNumOutlines < 1 || outline.iNumOutlines > maxOutlineEntries)
      return add(BookPart::outline, row,
                 "it has " + number(outline.iNumOutlines) + " outlines, from 1 to " +
                     number(maxOutlineEntries) + " are possible");
    for (int j = 1; j <= outline.iNumOutlines; ++j) checkEntry(row, outline, j);
  }

  // Every entry shows entry 1's list, and turns a list index into a database row by its own start.
  void checkEntry(int row, const OutlineElement& outline, int j) {
    const OutlineEntry& entry = outline.uEntry[j];
    const int items = outline.uEntry[1].iNumDatabases;
    if (items < 1) return add(BookPart::outline, row, "its list is empty");
    checkRange(BookPart::outline, row, entry.iFirstDatabase, items, book_.uDatabase.count(),
               "database");
    checkSelection(BookPart::outline, row, entry.iSelectedItem, items);
    if (inTable(entry.iFirstDatabase, items, book_.uDatabase.count()))
      checkOpenGroups(row, outline, static_cast<std::size_t>(j));
  }

  void checkOpenGroups(int row, const OutlineElement& outline, std::size_t j) {
    const OutlineEntry& list = outline.uEntry[1];
    if (!inTable(list.iFirstDatabase, list.iNumDatabases, book_.uDatabase.count())) return;
    int open = 0;
    for (int k = list.iFirstDatabase; k < list.iFirstDatabase + list.iNumDatabases; ++k)
      if (book_.uDatabase[k].tDataFileName == groupMark && book_.uDatabase[k].bExpanded[j]) ++open;
    if (open > maxGroupsToExpand)
      add(BookPart::outline, row,
          "more than " + number(maxGroupsToExpand) + " of its groups are open at first");
  }

  void checkBox(int row) {
    const int value = book_.uCheck[row].iValue;
    if (value < 0 || value > 2)
      add(BookPart::check, row, "its value " + number(value) + " is not 0, 1 or 2");
  }

  // Kinds that nobody knows show nothing, so their index does not matter.
  int rowsOfKind(int kind) const {
    for (const auto& [known, rows] : {std::pair{ElementKind::text, book_.uText.count()},
                                      {ElementKind::heading, book_.tHeading.count()},
                                      {ElementKind::jump, book_.uJump.count()},
                                      {ElementKind::scenario, book_.uScenarioElement.count()},
                                      {ElementKind::outline, book_.uOutline.count()},
                                      {ElementKind::bitmap, book_.tBitmap.count()},
                                      {ElementKind::check, book_.uCheck.count()},
                                      {ElementKind::version, book_.uVersion.count()}})
      if (known == kind) return rows;
    return -1;
  }

  void checkPageElement(int row) {
    const PageElement& element = book_.uPageElement[row];
    const int rows = rowsOfKind(element.iKind);
    if (rows >= 0) checkReference(BookPart::pageElement, row, element.iIndex, 1, rows, "element");
  }

  void checkJumpsWithinSections() {
    for (int s = 1; s <= book_.uSection.count(); ++s) {
      const SectionRecord& section = book_.uSection[s];
      if (!inTable(section.iFirstPage, section.iNumPages, book_.uPage.count())) continue;
      for (int p = section.iFirstPage; p < section.iFirstPage + section.iNumPages; ++p)
        checkJumpsOfPage(s, book_.uPage[p]);
    }
  }

  void checkJumpsOfPage(int section, const PageRecord& page) {
    if (!inTable(page.iFirstElement, page.iNumElements, book_.uPageElement.count())) return;
    for (int e = page.iFirstElement; e < page.iFirstElement + page.iNumElements; ++e) {
      const PageElement& element = book_.uPageElement[e];
      const bool isJump = element.iKind == ElementKind::jump && element.iIndex >= 1 &&
                          element.iIndex <= book_.uJump.count();
      if (isJump && book_.uJump[element.iIndex].iSection == 0)
        checkTarget(element.iIndex, section, book_.uJump[element.iIndex].iPage);
    }
  }

  const Book& book_;
  std::vector<BookFault> faults_;
};

}  // namespace

std::vector<BookFault> checkBook(const Book& book) { return BookChecker(book).run(); }

}  // namespace tolmer
