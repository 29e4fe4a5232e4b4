#include "notebook/page_fit.h"

#include <algorithm>
#include <cmath>

#include "notebook/book_look.h"
#include "notebook/page_elements.h"
#include "notebook/scenario_list.h"
#include "platform/tab_book.h"

namespace tolmer {
namespace {

// The page laid out as in the window, without one.
class TrialPage {
 public:
  TrialPage(const Book& book, const std::string& programFolder)
      : book_(book), programFolder_(programFolder), scenarios_(page_, book.uScenario) {
    page_.setPlace({0, 0, book_look::pageContainer.width, book_look::pageContainer.height});
    elements_.beginPage();
  }

  void lay(const PageElement& element) {
    if (element.iKind == ElementKind::check) checkCaption(book_.uCheck[element.iIndex]);
    if (elements_.show(book_, element, programFolder_)) return measureBottom();
    if (element.iKind == ElementKind::scenario)
      layScenarios(book_.uScenarioElement[element.iIndex]);
    else
      layOutline(book_.uOutline[element.iIndex]);
    measureBottom();
  }

  std::vector<std::string> overflow() && {
    const auto below = static_cast<int>(std::ceil((bottom_ - page_.height()) / twipsPerPixel));
    if (below > 0)
      found_.push_back("the page ends " + std::to_string(below) +
                       " pixels too low; move some of it to a new page");
    return std::move(found_);
  }

 private:
  void layScenarios(const ScenarioElement& list) {
    scenarios_.show(list, elements_.nextControlTop());
    elements_.UpdateNextControlTop(scenarios_.fraScenarios);
    for (int i = 0; i < list.iNumScenarios; ++i) {
      const Label& name = scenarios_.lblScenName(i);
      if (book_look::heightOf(name.font(), name.caption(), name.width()) > name.height())
        found_.push_back("the scenario's name \"" + name.caption() + "\" is too long");
    }
  }

  // Descriptions stand beside the outline and are no longer than it.
  void layOutline(const OutlineElement& outline) {
    int index = 0;
    for (int j = 1; j <= outline.iNumOutlines; ++j) {
      index = elements_.loadOutline();
      elements_.showOutline(index);
    }
    const OutlineEntry& list = outline.uEntry[1];
    for (int k = list.iFirstDatabase; k < list.iFirstDatabase + list.iNumDatabases; ++k) {
      elements_.describeOutline(index, book_.uDatabase[k].tDesc);
      const Label& label = elements_.lblDatabaseDesc(index);
      if (book_look::heightOf(label.font(), label.caption(), label.width()) > label.height())
        found_.push_back("the description of \"" + book_.uDatabase[k].tName + "\" is too long");
    }
  }

  // A check's caption stands on one line, beside its box.
  void checkCaption(const ValueElement& check) {
    constexpr Twips box = pixels(22);
    const Font& font =
        check.iEmphasisStyle == EmphasisStyle::bold ? book_look::boldFont : book_look::textFont;
    if (book_look::widthOf(font, check.tCaption) + box > page_.width() - pixels(54))
      found_.push_back("the caption \"" + check.tCaption + "\" is too long");
  }

  // Where the last of the visible controls ends.
  void measureBottom() {
    for (const Control* control : page_.children())
      if (control->visible()) bottom_ = std::max(bottom_, control->bottom());
  }

  const Book& book_;
  std::string programFolder_;
  Panel page_{nullptr, "page"};
  PageElements elements_{page_};
  ScenarioList scenarios_;
  Twips bottom_ = 0;
  std::vector<std::string> found_;
};

}  // namespace

bool titleFits(const Book& book) {
  return book_look::widthOf(book_look::coverHeadingFont, book.tTitle) <= book_look::headerWidth;
}

bool chapterFits(const Book& book) {
  return book_look::widthOf(book_look::pageHeaderFont, book.tChapter) <= book_look::headerWidth;
}

int firstTabBeyond(const Book& book) {
  Twips width = 0;
  for (int i = 1; i <= book.uSection.count(); ++i) {
    width += book_look::widthOf(book_look::textFont, book.uSection[i].tName) + TabBook::tabSides;
    if (width > book_look::bookWidth) return i;
  }
  return 0;
}

std::vector<std::string> pageOverflow(const Book& book, int row, const std::string& programFolder) {
  const PageRecord& record = book.uPage[row];
  TrialPage page(book, programFolder);
  for (int i = record.iFirstElement; i < record.iFirstElement + record.iNumElements; ++i)
    page.lay(book.uPageElement[i]);
  return std::move(page).overflow();
}

}  // namespace tolmer
