#include "report/html_report.h"

#include <set>

#include "markup_reader.h"
#include "report_fixture.h"
#include "tables/html_writer.h"

namespace tolmer {
namespace {

using test::Element;
using ::testing::Contains;
using ::testing::Each;
using ::testing::HasSubstr;
using ::testing::IsSupersetOf;
using ::testing::SizeIs;
using ::testing::StartsWith;

class HtmlReport : public test::ReportFixture {
 protected:
  static std::vector<std::string> texts(const Element& root) {
    std::vector<std::string> all;
    // A word of the key stands behind its sign and a blank.
    root.walk([&all](const Element& element) {
      all.push_back(element.text.substr(element.text.starts_with(' ') ? 1 : 0));
    });
    return all;
  }
  Element page(const std::vector<std::string>& words) const {
    return test::MarkupReader(output(words, "html")).readPage();
  }
};

// Names as nasty as a file can bring them must neither break the page nor get lost.
TEST_F(HtmlReport, WellFormedPageHoldsEveryDisplayWhole) {
  const std::string file = write(
      "a&b.csv",
      "Ort,R<1>&,\"</td>\"\"'\",\"Größe;&lt;\",<b>\n\"<!--\",1,2,0,7\n\"&amp;\",2,3,1,7.5\n"
      "\"\x01]]>\",4,5,0,9\nä,4,9,1,2\n<,3,7,1,5\n>,9,12,0,1\n\"\"\"\",8,14,1,3\n'/,6,9,0,4\n");
  ReportOptions options;
  options.y = "R<1>&";
  options.labels = "Ort";
  options.request.format = ReportFormat::html;
  const auto run = analysed(file, options);
  const Element page = this->page({file, "--y", "R<1>&", "--labels", "Ort"});
  EXPECT_EQ(page.all("h1").at(0)->text, "Multiple regression of R<1>&");
  EXPECT_THAT(texts(*page.all("dl").at(0)),
              IsSupersetOf({"a&b.csv", "8 read, all of them used", "R<1>&",
                            "</td>\"', Größe;&lt;, <b>", "2026-05-04"}));
  ASSERT_THAT(run.document.parts, SizeIs(15));
  for (const ReportedPart& shown : run.document.parts) {
    const Element& section = page.withId(std::string(wordOf(shown.part)));
    EXPECT_THAT(texts(section), IsSupersetOf(std::visit(test::TextsOf{}, shown.content)))
        << shown.title;
    const bool isGraph = std::holds_alternative<GraphContent>(shown.content);
    EXPECT_EQ(section.all("svg").size(), isGraph ? 1U : 0U);
    EXPECT_EQ(section.all("h2").at(0)->text, shown.title);
    EXPECT_THAT(texts(section), Contains(captionOf(shown.part)));
  }
}

TEST_F(HtmlReport, TellsTheMessagesOfTheRunAboveItsDisplays) {
  const std::string twins = write("twins.csv", "Y,A,B\n1,1,1\n3,2,2\n2,3,3\n5,4,4\n4,5,5\n");
  const std::string html = output({twins, "--y", "Y"}, "html");
  const auto messages = html.find("<h2>Messages</h2>");
  ASSERT_NE(messages, html.npos);
  EXPECT_LT(messages, html.find("<svg"));
  EXPECT_THAT(texts(page({twins, "--y", "Y"})),
              Contains(StartsWith("Singular variance-covariance matrix")));
  EXPECT_EQ(output({table, "--y", "Rent"}, "html").find("<h2>Messages</h2>"), html.npos);
}

TEST_F(HtmlReport, StandsAloneAndItsLinksLeadSomewhere) {
  const Element page = this->page({table, "--y", "Rent"});
  std::set<std::string> ids;
  page.walk([&](const Element& element) {
    for (const auto& [name, value] : element.attributes) {
      EXPECT_THAT((std::array{"src", "srcset", "onload", "onclick"}), Each(testing::StrNe(name)));
      if (name == "href") {
        EXPECT_THAT(value, StartsWith("#"));
        EXPECT_NO_THROW(page.withId(value.substr(1)));
      }
      if (name == "id") {
        EXPECT_TRUE(ids.insert(value).second) << value;
      }
    }
    EXPECT_THAT((std::array{"script", "link", "img", "iframe"}),
                Each(testing::StrNe(element.name)));
  });
  const std::string style = page.all("style").at(0)->text;
  for (const char* outside : {"url(", "@import", "@font-face"})
    EXPECT_EQ(style.find(outside), std::string::npos) << outside;
  EXPECT_THAT(style, HasSubstr("break-inside: avoid"));
  EXPECT_THAT(page.all("a"), SizeIs(15));
}

TEST_F(HtmlReport, TablesHaveCaptionsAndScopes) {
  const Element page = this->page({table, "--y", "Rent", "--labels", "Street"});
  for (const Element* shown : page.all("table")) {
    EXPECT_THAT(shown->all("caption"), SizeIs(1));
    for (const Element* head : shown->all("th"))
      EXPECT_THAT(head->attribute("scope"), testing::AnyOf("row", "col"));
  }
  const Element& list = page.withId("data");
  EXPECT_THAT(list.all("thead").at(0)->all("th"), SizeIs(5));
  EXPECT_THAT(list.all("tbody").at(0)->all("tr"), SizeIs(10));
  EXPECT_THAT(list.all("tbody").at(0)->all("th"), SizeIs(20));  // case and label
  // Summary figures do not stand under the heads of the variance table.
  EXPECT_THAT(page.withId("anova").all("table"), SizeIs(2));
  EXPECT_THAT(texts(*page.withId("coefficients").all("p").at(0)), Contains("p < .01"));
}

// Neither colour nor eyes are needed: a marked figure has a sign, which is spoken, and a P of 0.000
// says what it means. A copy holds the same, and nothing of the frame.
TEST(HtmlTable, MarksAreSignsInPageAndCopy) {
  TableContent table(2 + TableContent::rowsBelow, 2);
  table.heading(1, 1, "=Name", Align::left);
  table.heading(1, 2, "P", Align::right);
  table.heading(2, 1, "a<b", Align::left);
  table.probability(2, 2, "0.000", CellMark::pBelow01);
  table.frameRowsBelow();
  table.key(1, CellMark::pBelow01);
  const std::string sign =
      "<span class=\"sign\" role=\"img\" aria-label=\"p below .01\" title=\"p below "
      ".01\">**</span>";
  EXPECT_THAT(tableHtml(table, "T"), HasSubstr("background:#A9EEF4\">0.000" + sign + "</td>"));
  EXPECT_EQ(copiedTableHtml(table),
            "<table border=\"1\" cellspacing=\"0\" cellpadding=\"3\">\n"
            "<tr><th scope=\"col\" align=\"left\" style=\"mso-number-format:'\\@'\" "
            "sdnum=\"1033;0;@\">=Name</th><th scope=\"col\" align=\"right\">P</th></tr>\n"
            "<tr><th scope=\"row\" align=\"left\">a&lt;b</th><td align=\"right\" sdval=\"0.000\" "
            "sdnum=\"1033;0;0.000\" bgcolor=\"#A9EEF4\"><b>0.000</b> " +
                sign + "</td></tr>\n</table>\n<p class=\"key\">Key: " + sign +
                " p &lt; .01</p>\n<p class=\"note\">A P of 0.000 is below 0.0005.</p>\n");
}

// A table of that many columns of seven figures, in HTML.
Element tableOf(int columns) {
  TableContent table(3, columns);
  for (int col = 1; col <= columns; ++col) {
    const std::string number = std::to_string(99 + col);
    table.heading(1, col, "Head" + number, Align::left);
    for (const int row : {2, 3}) {
      if (col == 1)
        table.heading(row, col, "1234." + number, Align::left);
      else
        table.figure(row, col, "1234." + number, Align::left);
    }
  }
  return test::MarkupReader("<!DOCTYPE html>\n" + tableHtml(table, "Long & wide")).readPage();
}

// A figure takes 0.572 of the letters' size, a point 0.268: with a padding of one, 5.3 of each
// column of seven figures. A sheet has room for 53 upright and for 89 across.
TEST(HtmlTable, LiesAcrossOrIsCutWhereASheetIsTooNarrow) {
  EXPECT_EQ(tableOf(9).attribute("class"), "upright");
  EXPECT_EQ(tableOf(15).attribute("class"), "across");
  EXPECT_THAT(tableOf(15).all("table"), SizeIs(1));
  const Element html = tableOf(60);
  EXPECT_EQ(html.attribute("class"), "cut");
  std::vector<std::string> heads;
  for (const Element* shown : html.all("thead")) {
    const auto row = shown->all("th");
    EXPECT_EQ(row.at(0)->text, "Head100");
    EXPECT_THAT(row.size(), testing::AllOf(testing::Ge(10U), testing::Le(12U)));  // alike
    for (std::size_t i = 1; i < row.size(); ++i) heads.push_back(row[i]->text);
  }
  ASSERT_THAT(heads, SizeIs(59));
  EXPECT_TRUE(std::is_sorted(heads.begin(), heads.end()));
  EXPECT_THAT(html.all("caption").at(1)->text, StartsWith("Long & wide, continued: Head1"));
}

}  // namespace
}  // namespace tolmer
