#include "support/sample_book.h"

#include <utility>

namespace tolmer::test {
namespace {

Scenario scenario(const std::string& name) {
  Scenario row;
  row.tName = name;
  row.tDesc = "About " + name + ", told at length.";
  row.tParameter[1] = "\\data\\" + name + ".csv";
  row.tParameter[2] = "\\data\\" + name + ".inf";
  row.tParameter[3] = "True";
  row.tParameter[maxParameter] = "last of " + name;
  return row;
}

Database database(const std::string& name, Int16 level, const std::string& file) {
  Database row;
  row.tName = name;
  row.tShortName = name.substr(0, 3);
  row.iLevel = level;
  row.tDesc = "About " + name;
  row.tDataFileName = file;
  row.tLabelFileName = "\\data\\" + name + ".lab";
  row.tHeading = "Heading of " + name;
  return row;
}

void addDatabases(Book& book) {
  book.uDatabase.add(database("Open group", 1, groupMark));
  book.uDatabase[1].bExpanded = {false, true, true};
  book.uDatabase.add(database("First", 2, "\\data\\first.csv"));
  book.uDatabase.add(database("Second", 2, "\\data\\second.csv"));
  book.uDatabase.add(database("Closed group", 1, groupMark));
  book.uDatabase.add(database("Third", 2, "\\data\\third.csv"));
  for (std::size_t i = 1; i <= maxOutlineEntries; ++i) {
    book.uDefaultDatabase[i] = database("Default " + std::to_string(i), 0, "\\data\\d.csv");
    book.uDefaultDatabase[i].iLevel = 0;
  }
}

void addElements(Book& book) {
  book.tHeading.add("Welcome");
  book.uText.add({"A text, with a comma", true, EmphasisStyle::bold});
  book.uJump.add({"To the scenarios", false, 0, 2, 1});
  book.uJump.add({"To the first page here", true, 1, 0, 1});
  book.uScenarioElement.add({3, 1, 1});
  OutlineElement outline;
  outline.iNumOutlines = 2;
  outline.uEntry[1] = {0, 1, 0, 1, 5};
  outline.uEntry[2] = {0, 2, 0, 1, 5};
  book.uOutline.add(outline);
  book.tBitmap.add("one.png");
  book.tBitmap.add("two.png");
  book.uCheck.add({"First check", false, 0, 0});
  book.uCheck.add({"Second check", true, 1, 1});
  book.uVersion.add({"First version", false, 0, 7});
  book.uVersion.add({"Second version", true, 1, 8});
}

}  // namespace

void addPage(Book& book, PageRecord page, const std::vector<PageElement>& elements) {
  page.iFirstElement = static_cast<Int16>(book.uPageElement.count() + 1);
  page.iNumElements = static_cast<Int16>(elements.size());
  for (const PageElement& element : elements) book.uPageElement.add(element);
  book.uPage.add(page);
}

Book sampleBook() {
  Book book;
  book.tTitle = "A Sample";
  book.tChapter = "Ch. 99 A Sample of Everything";
  book.uSection.add({"Start", 1, 1});
  book.uSection.add({"More", 2, 3});
  for (const char* name : {"alpha", "beta", "gamma", "delta"}) book.uScenario.add(scenario(name));
  book.uDefaultScenario = scenario("standard");
  addDatabases(book);
  addElements(book);
  using K = ElementKind;
  addPage(book, {PageType::plain, 0, 0, 0, 0},
          {{K::heading, 1, 0}, {K::text, 1, 0}, {K::space, 0, 0}, {K::jump, 1, 0}});
  addPage(book, {PageType::scenario, 0, 0, 1, 0}, {{K::text, 1, 0}, {K::scenario, 1, 0}});
  addPage(book, {PageType::database, 0, 0, 0, 1}, {{K::outline, 1, 0}});
  addPage(book, {PageType::picture, 0, 0, 0, 0},
          {{K::bitmap, 1, 0},
           {K::check, 1, 0},
           {K::version, 1, 0},
           {K::bitmap, 2, 0},
           {K::check, 2, 0},
           {K::version, 2, 0},
           {K::jump, 2, 0}});
  return book;
}

}  // namespace tolmer::test
