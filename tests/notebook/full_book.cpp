#include "notebook/full_book.h"

#include <vector>

namespace tolmer::test {
namespace {

constexpr int pages = 30, elementsOnPage = 15, scenarioPages = 20, outlinePages = 8;

std::string numbered(const char* word, int i) { return word + std::to_string(i); }

Int16 shortOf(int value) { return static_cast<Int16>(value); }

void addSections(Book& book) {
  for (int i = 1, first = 1; i <= 8; ++i) {
    const int count = i <= 6 ? 4 : 3;
    book.uSection.add({numbered("Section ", i), shortOf(first), shortOf(count)});
    first += count;
  }
}

void addScenariosAndDatabases(Book& book) {
  for (int i = 1; i <= 50; ++i) {
    Scenario row;
    row.tName = numbered("scenario ", i);
    row.tDesc = numbered("about scenario ", i);
    row.tParameter[1] = numbered("file ", i);
    row.tParameter[maxParameter] = numbered("last ", i);
    book.uScenario.add(row);
  }
  for (int i = 1; i <= 200; ++i) {
    Database row;
    row.tName = numbered("database ", i);
    row.tDesc = numbered("about database ", i);
    row.iLevel = i % 5 == 1 ? 1 : 2;
    row.tDataFileName = i % 5 == 1 ? groupMark : numbered("data ", i);
    row.bExpanded = {false, i % 10 == 1, false};
    book.uDatabase.add(row);
  }
}

void addElements(Book& book) {
  for (int i = 1; i <= 200; ++i) book.uText.add({numbered("text ", i), i % 2 == 0, shortOf(i % 3)});
  for (int i = 1; i <= 30; ++i) book.tHeading.add(numbered("heading ", i));
  for (int i = 1; i <= 40; ++i)
    book.uJump.add({numbered("jump ", i), false, 0, shortOf(i % 9), shortOf(1 + i % 3)});
  for (int i = 1; i <= 8; ++i) book.tBitmap.add(numbered("picture ", i) + ".png");
  for (int i = 1; i <= 20; ++i) {
    book.uCheck.add({numbered("check ", i), false, 0, shortOf(i % 3)});
    book.uVersion.add({numbered("version ", i), true, 1, shortOf(i)});
  }
  // 10 lists of three scenarios and 10 of two, 8 outlines of 25 databases
  for (int i = 1, first = 1; i <= scenarioPages; ++i) {
    const int count = i <= 10 ? 3 : 2;
    book.uScenarioElement.add({shortOf(count), shortOf(first), shortOf(i % count)});
    first += count;
  }
  for (int i = 1; i <= outlinePages; ++i) {
    OutlineElement outline;
    outline.iNumOutlines = shortOf(1 + i % 2);
    for (std::size_t j = 1; j <= maxOutlineEntries; ++j)
      if (j <= static_cast<std::size_t>(outline.iNumOutlines))
        outline.uEntry[j] = {0, shortOf(i + 1), 0, shortOf(25 * i - 24), 25};
    book.uOutline.add(outline);
  }
}

// Deals the elements of all kinds out to the pages; what is left of a page are spaces.
class Dealer {
 public:
  explicit Dealer(Book& book) : book_(book) {}

  void addPage(int i) {
    using K = ElementKind;
    PageRecord page{PageType::plain, shortOf(book_.uPageElement.count() + 1), elementsOnPage, 0, 0};
    put(K::heading, book_.tHeading.count());
    if (i <= scenarioPages) {
      page.iPageType = PageType::scenario;
      page.iScenarioElement = shortOf(put(K::scenario, scenarioPages));
    } else if (i <= scenarioPages + outlinePages) {
      page.iPageType = PageType::database;
      page.iOutlineElement = shortOf(put(K::outline, outlinePages));
    } else {
      page.iPageType = PageType::picture;
      for (int n = 0; n < 4; ++n) put(K::bitmap, book_.tBitmap.count());
    }
    for (int n = 0; n < 2; ++n) put(K::jump, book_.uJump.count());
    put(K::check, book_.uCheck.count());
    put(K::version, book_.uVersion.count());
    while (book_.uPageElement.count() < page.iFirstElement + elementsOnPage - 1)
      put(K::text, book_.uText.count());
    book_.uPage.add(page);
  }

 private:
  // The next element of that kind, or a space where there are no more.
  int put(Int16 kind, int count) {
    int& used = used_[static_cast<std::size_t>(kind)];
    if (used == count) return book_.uPageElement.add({ElementKind::space, 0, 0}), 0;
    book_.uPageElement.add({kind, shortOf(++used), 0});
    return used;
  }

  Book& book_;
  std::array<int, 10> used_{};
};

}  // namespace

Book fullBook() {
  Book book;
  book.tTitle = "A full book";
  book.tChapter = "Ch. 99 Everything";
  addSections(book);
  addScenariosAndDatabases(book);
  addElements(book);
  Dealer dealer(book);
  for (int i = 1; i <= pages; ++i) dealer.addPage(i);
  return book;
}

}  // namespace tolmer::test
