#include "notebook/kept_pages.h"

#include <algorithm>
#include <string_view>

#include "base/markup_text.h"
#include "base/paths.h"
#include "notebook/picture_size.h"

namespace tolmer {
namespace {

constexpr float widestPicture = 460;  // pixels

std::string element(std::string_view name, const std::string& content) {
  return "<" + std::string(name) + ">" + content + "</" + std::string(name) + ">";
}

// Of the text behind "12. "; npos where the line does not begin so.
std::size_t stepText(std::string_view line) {
  const std::size_t end = line.find_first_not_of("0123456789");
  return end > 0 && line.substr(std::min(end, line.size())).starts_with(". ") ? end + 2 : line.npos;
}

std::string textHtml(std::string_view text) {
  std::string html;
  bool isList = false;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::size_t step = stepText(line);
    const bool isStep = step != line.npos;
    if (isStep != isList) html += isStep ? "<ol>" : "</ol>";
    isList = isStep;
    html += isStep ? element("li", markupText(line.substr(step))) : element("p", markupText(line));
  }
  return isList ? html + "</ol>" : html;
}

class PageHtml {
 public:
  PageHtml(const Book& book, const std::string& programFolder, KeptPages& kept)
      : book_(book), folder_(programFolder), kept_(kept) {}

  std::string of(int iSection, const PageRecord& page, bool isShown) {
    std::string html;
    marksChosen_ = isShown;
    for (int i = page.iFirstElement; i < page.iFirstElement + page.iNumElements; ++i)
      html += of(iSection, book_.uPageElement[i]);
    return html;
  }

 private:
  std::string of(int iSection, const PageElement& one) {
    switch (one.iKind) {
      case ElementKind::text:
        return text(book_.uText[one.iIndex]);
      case ElementKind::heading:
        return element("h3", markupText(book_.tHeading[one.iIndex]));
      case ElementKind::jump:
        return jump(iSection, book_.uJump[one.iIndex]);
      case ElementKind::scenario:
        return scenarios(book_.uScenarioElement[one.iIndex]);
      case ElementKind::outline:
        return databases(book_.uOutline[one.iIndex].uEntry[1]);
      case ElementKind::bitmap:
        return picture(book_.tBitmap[one.iIndex]);
      default:
        return {};
    }
  }

  static std::string text(const TextElement& text) {
    const std::string html = textHtml(text.tText);
    return text.iEmphasisStyle == EmphasisStyle::bold ? element("b", html) : html;
  }

  std::string jump(int iSection, const JumpElement& jump) const {
    int page = jump.iPage - 1;
    for (int i = 1; i < (jump.iSection == 0 ? iSection : jump.iSection); ++i)
      page += book_.uSection[i].iNumPages;
    return "<p><a href=\"page:" + std::to_string(page) + "\">" + markupText(jump.tText) +
           "</a></p>";
  }

  std::string scenarios(const ScenarioElement& list) const {
    std::string html;
    for (int i = 0; i < list.iNumScenarios; ++i) {
      const Scenario& scenario = book_.uScenario[list.iFirstScenario + i];
      const bool isPlace = marksChosen_ && i > 0 && i == list.iSelected;
      html +=
          element("h4", (isPlace ? "<a name=\"chosen\"></a>" : "") + markupText(scenario.tName)) +
          textHtml(scenario.tDesc);
    }
    return html;
  }

  std::string databases(const OutlineEntry& list) const {
    std::string html;
    for (int i = list.iFirstDatabase; i < list.iFirstDatabase + list.iNumDatabases; ++i)
      html +=
          element("h4", markupText(book_.uDatabase[i].tName)) + textHtml(book_.uDatabase[i].tDesc);
    return html;
  }

  std::string picture(const std::string& file) {
    const std::string path = hostPath(folder_ + "\\" + file);
    const std::size_t name = path.find_last_of('/') + 1;
    const std::string folder = path.substr(0, name == 0 ? 0 : name - 1);
    if (std::ranges::find(kept_.pictureFolders, folder) == kept_.pictureFolders.end())
      kept_.pictureFolders.push_back(folder);
    const float width = std::min(pictureSize(path).width / twipsPerPixel, widestPicture);
    return "<p><img src=\"" + markupText(path.substr(name)) + "\" width=\"" +
           std::to_string(static_cast<int>(width)) + "\"></p>";
  }

  const Book& book_;
  const std::string& folder_;
  KeptPages& kept_;
  bool marksChosen_ = false;
};

}  // namespace

KeptPages keptPages(const Book& book, int iSection, int iPage, const std::string& programFolder) {
  KeptPages kept;
  PageHtml html(book, programFolder, kept);
  for (int section = 1; section <= book.uSection.count(); ++section) {
    const SectionRecord& record = book.uSection[section];
    for (int page = 1; page <= record.iNumPages; ++page) {
      const bool isShown = section == iSection && page == iPage;
      if (isShown) kept.shown = kept.pages.size();
      const std::string title = record.tName + ", page " + std::to_string(page) + " of " +
                                std::to_string(record.iNumPages);
      kept.pages.push_back(
          {title, html.of(section, book.uPage[record.iFirstPage + page - 1], isShown)});
    }
  }
  return kept;
}

}  // namespace tolmer
