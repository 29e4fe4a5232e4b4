// A book as large as one can be: every page is shown.
#include "notebook/full_book.h"

#include <algorithm>
#include <filesystem>

#include "notebook/notebook_fixture.h"

namespace tolmer {
namespace {

using Texts = std::vector<std::string>;

class FullBook : public test::NotebookFixture {
 protected:
  FullBook() { load(test::fullBook()); }

  // What the page should show, in the order of its elements.
  Texts expected(int section, int page) {
    const Book& book = noteBook.book();
    const PageRecord& record = noteBook.page(section, page);
    Texts texts;
    for (int i = record.iFirstElement; i < record.iFirstElement + record.iNumElements; ++i)
      expect(book, book.uPageElement[i], texts);
    return texts;
  }
  static void expect(const Book& book, const PageElement& element, Texts& texts) {
    const int row = element.iIndex;
    using K = ElementKind;
    if (element.iKind == K::text) texts.push_back(book.uText[row].tText);
    if (element.iKind == K::heading) texts.push_back(book.tHeading[row]);
    if (element.iKind == K::jump) texts.push_back(book.uJump[row].tText);
    if (element.iKind == K::bitmap) texts.push_back(book.tBitmap[row]);
    if (element.iKind == K::check)
      texts.push_back(book.uCheck[row].tCaption + "=" + std::to_string(book.uCheck[row].iValue));
    if (element.iKind == K::version) {
      texts.push_back("=" + std::to_string(book.uVersion[row].iValue));
      texts.push_back(book.uVersion[row].tCaption);
    }
    if (element.iKind == K::scenario) {
      const ScenarioElement& list = book.uScenarioElement[row];
      const Scenario& on = book.uScenario[list.iFirstScenario + list.iSelected];
      texts.push_back(std::to_string(list.iNumScenarios) + " scenarios: " + on.tDesc);
    }
    if (element.iKind != K::outline) return;
    const OutlineElement& outline = book.uOutline[row];
    for (std::size_t j = 1; j <= static_cast<std::size_t>(outline.iNumOutlines); ++j) {
      const OutlineEntry& entry = outline.uEntry[j];
      texts.push_back(std::to_string(entry.iNumDatabases) + " items");
      texts.push_back(book.uDatabase[entry.iFirstDatabase + entry.iSelectedItem].tDesc);
    }
  }

  // What it shows, from top to bottom.
  Texts shown() {
    std::vector<Control*> controls;
    for (Control* control : window().picPageContainer.children())
      if (control->visible() && !control->name().starts_with("lblPageHeader") &&
          control != &window().lblIntroChapterHeading)
        controls.push_back(control);
    std::stable_sort(controls.begin(), controls.end(), [](Control* a, Control* b) {
      return std::pair(a->top(), a->left()) < std::pair(b->top(), b->left());
    });
    Texts texts;
    for (Control* control : controls) texts.push_back(textOf(*control));
    return texts;
  }
  std::string textOf(Control& control) {
    switch (control.kind()) {
      case ControlKind::label:
        return static_cast<Label&>(control).caption();
      case ControlKind::image:
        return std::filesystem::path(static_cast<Image&>(control).file()).filename().string();
      case ControlKind::checkBox: {
        const auto& box = static_cast<CheckBox&>(control);
        return box.caption() + "=" + std::to_string(box.value());
      }
      case ControlKind::numberBox:
        return "=" + std::to_string(static_cast<NumberBox&>(control).value());
      case ControlKind::outline:
        return std::to_string(static_cast<Outline&>(control).items().size()) + " items";
      default: {
        int options = 0;
        for (int i = 0; i < maxScenariosOnPage; ++i)
          options += window().scenarios.optScenario(i).visible() ? 1 : 0;
        return std::to_string(options) +
               " scenarios: " + window().scenarios.lblScenarioDesc.caption();
      }
    }
  }
};

TEST_F(FullBook, everyPageShowsAllThatIsOnIt) {
  const Book& book = noteBook.book();
  EXPECT_TRUE(book.uSection.isFull() && book.uPage.isFull() && book.uScenario.isFull() &&
              book.uDatabase.isFull() && book.uText.isFull() && book.tHeading.isFull() &&
              book.uJump.isFull() && book.uScenarioElement.isFull() && book.uOutline.isFull() &&
              book.tBitmap.isFull() && book.uCheck.isFull() && book.uVersion.isFull() &&
              book.uPageElement.isFull());
  int pages = 0;
  show([&] {
    for (int section = 1; section <= book.uSection.count(); ++section) {
      get<TabBook>("tbNoteBook").chooseTab(section - 1);
      for (int page = 1; page <= book.uSection[section].iNumPages; ++page, ++pages) {
        if (page > 1) click("lblNextPage");
        EXPECT_EQ(shown(), expected(section, page)) << section << "." << page;
      }
    }
    click("cmdCancel");
  });
  EXPECT_EQ(pages, 30);
}

}  // namespace
}  // namespace tolmer
