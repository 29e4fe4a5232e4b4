#include "bookcompiler/student_view.h"

#include <utility>

#include "notebook/page_fit.h"

namespace tolmer {
namespace {

// Sections with a meaning to the program, beside examplesSection.
constexpr int startSection = 1;      // every page opens the default scenario
constexpr int databasesSection = 4;  // as in the examples, page 1 is an overview
constexpr int ownDataSection = 5;    // every page opens the data editor

bool opensData(int section, int page, Int16 type) {
  if (section == startSection || section == ownDataSection) return true;
  const bool hasScenarios = section == examplesSection || section == databasesSection;
  return hasScenarios && page > 1 && type == PageType::scenario;
}

class StudentView {
 public:
  StudentView(const SourcedBook& sourced, const CourseFolders& folders, Complaints& complaints)
      : sourced_(sourced), book_(sourced.book), folders_(folders), complaints_(complaints) {}

  void run() {
    if (!titleFits(book_)) warn(sourced_.titleLine, "the title is too long for its line");
    if (!chapterFits(book_)) warn(sourced_.chapterLine, "the chapter is too long for its line");
    if (const int section = firstTabBeyond(book_))
      warn(BookPart::section, section, "there is no room for all tabs with this one's name");
    for (int s = 1; s <= book_.uSection.count(); ++s)
      for (int p = 1; p <= book_.uSection[s].iNumPages; ++p) checkPage(s, p);
    for (int row = 1; row <= book_.uVersion.count(); ++row) checkVersion(row);
  }

 private:
  void warn(int line, std::string text) { complaints_.warning(line, std::move(text)); }
  void warn(BookPart part, int row, std::string text) {
    warn(sourced_.lines.at(std::pair(part, row)), std::move(text));
  }

  void checkPage(int section, int page) {
    const int row = book_.uSection[section].iFirstPage + page - 1;
    for (std::string& text : pageOverflow(book_, row, folders_.program))
      warn(BookPart::page, row, std::move(text));
    const PageRecord& record = book_.uPage[row];
    if (!okIsGrey(record) && !opensData(section, page, record.iPageType))
      warn(BookPart::page, row,
           "OK opens no data on this page; it is grey on one of type picture without a picture, "
           "and on one of type database whose outline has no database");
  }

  bool okIsGrey(const PageRecord& page) const {
    if (page.iPageType == PageType::picture) return !hasPicture(page);
    return page.iPageType == PageType::database &&
           !hasDatabase(book_.uOutline[page.iOutlineElement]);
  }

  bool hasDatabase(const OutlineElement& outline) const {
    const OutlineEntry& list = outline.uEntry[1];
    for (int k = list.iFirstDatabase; k < list.iFirstDatabase + list.iNumDatabases; ++k) {
      const std::string& file = book_.uDatabase[k].tDataFileName;
      if (file != groupMark && file != entryMark) return true;
    }
    return false;
  }

  bool hasPicture(const PageRecord& page) const {
    for (int i = page.iFirstElement; i < page.iFirstElement + page.iNumElements; ++i)
      if (book_.uPageElement[i].iKind == ElementKind::bitmap) return true;
    return false;
  }

  void checkVersion(int row) {
    const int value = book_.uVersion[row].iValue;
    if (value < 0 || value > highestVersion)
      warn(BookPart::version, row,
           "a version is a number from 0 to " + std::to_string(highestVersion) + ", not " +
               std::to_string(value));
  }

  const SourcedBook& sourced_;
  const Book& book_;
  const CourseFolders& folders_;
  Complaints& complaints_;
};

}  // namespace

void warnForStudents(const SourcedBook& sourced, const CourseFolders& folders,
                     Complaints& complaints) {
  StudentView(sourced, folders, complaints).run();
}

}  // namespace tolmer
