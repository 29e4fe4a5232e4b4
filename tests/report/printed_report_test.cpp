// The report on paper.
#include "report/printed_report.h"

#include "platform/text_metrics.h"
#include "report_fixture.h"

namespace tolmer {
namespace {

std::string withoutBlanks(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\n' || c == '\r'; });
  return text;
}

// Left, top, right and bottom of a mark, letters as wide as they may be.
struct Bounds {
  double left, top, right, bottom;
};
struct BoundsOf {
  Bounds operator()(const PrintedBox& box) const {
    return {box.left, box.top, box.left + box.width, box.top + box.height};
  }
  Bounds operator()(const PrintedText& text) const {
    const double natural = textWidth(text.font, text.text);
    const double width = text.room > 0 ? std::min(natural, text.room) : natural;
    const double left = text.align == Align::right ? text.x - width : text.x;
    return {left, text.baseLine - text.font.pixels, left + width, text.baseLine};
  }
  Bounds operator()(const PrintedPicture& picture) const {
    const ViewSize& size = picture.picture->size;
    return {picture.left, picture.top, picture.left + picture.width,
            picture.top + picture.width * size.height / size.width};
  }
};

class PrintedReport : public test::ReportFixture {
 protected:
  static test::Analysed analysedPage(const std::string& file, ReportOptions options) {
    options.request.format = ReportFormat::html;
    return analysed(file, options);
  }
  // Cases whose names, figures and labels take much room.
  std::string largeTable(int predictors, int cases) const {
    std::string text = "Label,Y";
    for (int j = 1; j <= predictors; ++j)
      text += "," + std::string(static_cast<std::size_t>(j % 40), 'w') + std::to_string(j);
    unsigned random = 1;
    for (int i = 1; i <= cases; ++i) {
      text += "\n" + std::string(static_cast<std::size_t>(i % 200), 'W') + "L" + std::to_string(i);
      for (int j = 0; j <= predictors; ++j)
        text += "," + std::to_string((random = random * 1103515245U + 12345U) >> 12U);
    }
    return write("large.csv", text + "\n");
  }
};

void expectSoundPages(const PrintedPages& pages) {
  constexpr double edge = 18;  // what printers leave white
  for (const PrintedPage& page : pages.pages) {
    EXPECT_GT(page.marks.size(), 1U) << "an empty page";
    for (const PrintedMark& mark : page.marks) {
      const Bounds at = std::visit(BoundsOf{}, mark);
      const auto* text = std::get_if<PrintedText>(&mark);
      ASSERT_TRUE(at.left >= edge && at.top >= edge && at.right <= pages.widthOf(page) - edge &&
                  at.bottom <= pages.heightOf(page) - edge)
          << (text ? text->text : "a box") << " on page " << &page - pages.pages.data() + 1;
    }
  }
}

TEST_F(PrintedReport, SaysWhatTheDocumentSaysInItsOrder) {
  ReportOptions options;
  options.y = "Rent";
  options.request = {.title = "Flats", .author = "A. B.", .remarks = "one\n\ntwo <&"};
  const auto [state, document] = analysedPage(table, options);
  const PrintedPages pages = printedReport(document);
  EXPECT_EQ(pages.title, "Flats");
  EXPECT_EQ(pages.author, "A. B.");
  std::string all;
  for (const PrintedPage& page : pages.pages)
    for (const PrintedMark& mark : page.marks)
      if (const auto* text = std::get_if<PrintedText>(&mark)) all += withoutBlanks(text->text);
  EXPECT_THAT(all, testing::StartsWith("FlatsAuthorA.B.Datafileflats.csv"));
  EXPECT_THAT(all, testing::HasSubstr("onetwo<&FittedModel"));
  std::size_t at = 0;
  ASSERT_EQ(pages.headings.size(), document.parts.size());
  for (std::size_t i = 0; i < document.parts.size(); ++i) {
    const ReportedPart& shown = document.parts[i];
    EXPECT_EQ(pages.headings[i].title, shown.title);
    at = all.find(withoutBlanks(shown.title), at);
    ASSERT_NE(at, all.npos) << shown.title;
    for (const std::string& text : std::visit(test::TextsOf{}, shown.content))
      EXPECT_NE(all.find(withoutBlanks(text), at), all.npos) << shown.title << ": " << text;
  }
  expectSoundPages(pages);
}

// A table of a few rows stays whole, a long one repeats its heads on each of its pages.
TEST_F(PrintedReport, LargeTablesBreakBetweenRowsAndColumnsAndStayOnTheirPages) {
  for (const auto& [predictors, paper] :
       {std::pair{8, Paper::a4}, {8, Paper::letter}, {49, Paper::a4}, {49, Paper::letter}}) {
    const std::string file = largeTable(predictors, 120);
    ReportOptions options;
    options.y = "Y";
    options.labels = "Label";
    options.request.paper = paper;
    const auto [state, document] = analysedPage(file, options);
    const PrintedPages pages = printedReport(document);
    expectSoundPages(pages);
    EXPECT_EQ(pages.paper.width, paper == Paper::a4 ? 595 : 612);
    EXPECT_EQ(std::ranges::any_of(pages.pages, &PrintedPage::isAcross), predictors == 8);
    const auto list = std::ranges::find(pages.headings, "Data List", &PrintedHeading::title);
    ASSERT_NE(list, pages.headings.end());
    int cases = 0;
    for (std::size_t i = list->page; i < pages.pages.size(); ++i) {
      std::vector<std::string> texts;
      for (const PrintedMark& mark : pages.pages[i].marks)
        if (const auto* text = std::get_if<PrintedText>(&mark)) texts.push_back(text->text);
      EXPECT_THAT(texts, testing::Contains("Label")) << "page " << i + 1 << " has no heads";
      cases += static_cast<int>(std::ranges::count(texts, "120"));
    }
    EXPECT_EQ(cases > 1, predictors == 49) << "the last case stands in every block of columns";
  }
}

}  // namespace
}  // namespace tolmer
