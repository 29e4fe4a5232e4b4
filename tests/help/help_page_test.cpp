// Pages, their links, search and the way back, on a book of a few lines; folders of pages that are
// missing, damaged or meant to do harm.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <fstream>

#include "help/help_reader.h"
#include "help/help_topic.h"
#include "help/topic_page.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// Pages, their links, search and the way back, on a book of a few lines.
HelpTopic topic(const std::string& name, const std::string& source) {
  auto topic = readTopic(name, source);
  if (!topic) throw std::invalid_argument(topic.error().message());
  return *topic;
}

HelpBook sampleBook() {
  return HelpBook({
      topic("start", "title: Contents\nopens: tolmod, tolmod 101\n\nSee the coefficients."),
      topic("table",
            "title: Estimated Coefficients\nopens: tolmod 231\nkeywords: P-value, limits\n"
            "\nA *t* and a [glossary](400#vif).\n"),
      topic("words",
            "title: Glossary\nopens: tolmod 400\n\n= t\nCoefficient by error.\n\n"
            "= VIF, variance inflation factor\nSee [table](231).\n"),
      topic("own", "title: Own Data\nopens: dataedit\n\nTable of VIFs to come."),
  });
}

std::vector<std::string> titles(const std::vector<HelpHit>& hits) {
  std::vector<std::string> titles;
  for (const HelpHit& hit : hits) titles.push_back(hit.title);
  return titles;
}

TEST(HelpPage, BecomesHtmlOfAFewElements) {
  const auto page = topic("p", R"(title: A < B
keywords: x

# Head *bold*
Text with {red VIF & co} and
[words](notebook) on two lines.

- one
  goes on
- two
| a | b |
| c | [d](12#e f) |
![A curve](curve-1.svg))");
  EXPECT_EQ(topicHtml(page),
            "<h2>A &lt; B</h2><h3>Head <b>bold</b></h3>"
            "<p>Text with <span style=\"background-color:#FF0000;color:#000000\">&nbsp;VIF &amp; "
            "co&nbsp;</span> and <a href=\"help:notebook\">words</a> on two lines.</p>"
            "<ul><li>one goes on</li><li>two</li></ul>"
            "<table><tr><th>a</th><th>b</th></tr>"
            "<tr><td>c</td><td><a href=\"help:tolmod/12#e-f\">d</a></td></tr></table>"
            "<p><img src=\"curve-1.svg\" alt=\"A curve\"></p>");
  EXPECT_THAT(topicPictures(page), ElementsAre("curve-1.svg"));
}

// Nothing that a page may contain loads a file or breaks out of the page.
TEST(HelpPage, KeepsWhatItCannotReadAsText) {
  for (const std::string text :
       {"a * b * c", "[x](http://evil)", "[x](../231)", "[](231)", "{blue x}", "*", "[", "{red}",
        "![p](../x.svg)", "![p](a/b.svg)", "![p](x.gif)", "[x](99999999999999999999)"}) {
    const std::string html = topicHtml(HelpTopic{.name = "p", .title = "T", .body = text});
    EXPECT_EQ(html, "<h2>T</h2><p>" + text + "</p>");
  }
  const std::string html = topicHtml(HelpTopic{.title = "T", .body = "<img src=\"x\">\n= <b>\"\n"});
  EXPECT_THAT(html, Not(HasSubstr("<img")));
  EXPECT_THAT(html, HasSubstr("<a name=\"b\">"));
}

TEST(HelpPage, HeaderFaultsNameThePageAndLine) {
  EXPECT_EQ(readTopic("p", "keywords: x\n\nText").error().message(), "p: The page has no title.");
  EXPECT_EQ(readTopic("p", "title: T\nopens: tolmod x\n").error().where, "p:2");
  EXPECT_EQ(readTopic("p", "title: T\nNo key\n").error().where, "p:2");
  EXPECT_EQ(readTopic("p", "title: T\ncolour: red\n").error().where, "p:2");
}

TEST(HelpReader, AnswersByFileAndNumberAndSaysWhatIsMissing) {
  HelpReader reader(sampleBook());
  reader.open({"tolmod", 231});
  EXPECT_EQ(reader.place().topic, 1U);
  reader.openContents("dataedit");
  EXPECT_EQ(reader.place().topic, 3U);
  EXPECT_THAT(reader.html(), testing::StartsWith("<h2>Own Data"));
  reader.open({"tolmod", 999});
  EXPECT_EQ(reader.place().topic, 0U);
  EXPECT_THAT(reader.html(), testing::StartsWith("<p><i>The help has no page number 999."));
  reader.open({"dataedit", 7});
  EXPECT_EQ(reader.place().topic, 3U) << "an unknown number stays in its help file";
  reader.openContents("other");
  EXPECT_THAT(reader.place().notice, HasSubstr("\"other\""));
}

TEST(HelpReader, GoesBackAndForwardAsABrowserDoes) {
  HelpReader reader(sampleBook());
  reader.openContents("tolmod");
  EXPECT_FALSE(reader.canGoBack());
  EXPECT_TRUE(reader.follow("help:tolmod/231"));
  EXPECT_TRUE(reader.follow("help:tolmod/400#vif"));
  EXPECT_TRUE(reader.follow("help:tolmod/400#vif")) << "the same place is no step";
  EXPECT_EQ(reader.place(), (HelpPlace{2, "vif", {}}));
  reader.back();
  reader.back();
  reader.back();
  EXPECT_EQ(reader.place().topic, 0U);
  reader.forward();
  EXPECT_EQ(reader.place().topic, 1U);
  EXPECT_TRUE(reader.canGoForward());
  reader.openContents("dataedit");
  EXPECT_FALSE(reader.canGoForward());
  reader.back();
  EXPECT_EQ(reader.place().topic, 1U);
  EXPECT_FALSE(reader.follow("https://example.org"));
  for (int i = 0; i < 1000; ++i) reader.open(HelpPlace{.topic = static_cast<std::size_t>(i % 4)});
  EXPECT_EQ(reader.place().topic, 3U);
  int steps = 0;
  for (; reader.canGoBack(); ++steps) reader.back();
  EXPECT_GE(steps, 100);
}

TEST(HelpSearch, FindsBeginningsOfWordsTheBestFirst) {
  HelpReader reader(sampleBook());
  EXPECT_THAT(titles(reader.find("COEF")),
              ElementsAre("Estimated Coefficients", "Contents", "Glossary"));
  EXPECT_THAT(titles(reader.find("est coeff")), ElementsAre("Estimated Coefficients"));
  EXPECT_THAT(titles(reader.find("val")), ElementsAre("Estimated Coefficients")) << "a keyword";
  EXPECT_THAT(titles(reader.find("inflation")),
              ElementsAre("Glossary: VIF, variance inflation factor"));
  EXPECT_EQ(reader.find("vif")[0].place, (HelpPlace{2, "vif", {}}));
  EXPECT_THAT(titles(reader.find("vif")),
              ElementsAre("Glossary: VIF, variance inflation factor", "Own Data"));
  EXPECT_THAT(reader.find("efficients"), IsEmpty());
  EXPECT_THAT(reader.find("coefficients unheard"), IsEmpty());
  EXPECT_THAT(reader.find(" -*- "), IsEmpty());
}

// Folders of pages that are missing, damaged or meant to do harm.
class HelpFolder : public testing::Test {
 protected:
  void write(const std::string& name, const std::string& text) {
    std::ofstream(folder.file(name), std::ios::binary) << text;
  }
  Result<HelpBook> read() { return readHelpBook(folder.path()); }
  // The message for these contents, with one good page "a" in the folder.
  std::string faultOf(const std::string& contents) {
    write("a.txt", "title: A\n\nText");
    write("contents.txt", contents);
    const auto book = read();
    return book ? "none" : book.error().message();
  }
  test::TempFolder folder;
};

TEST_F(HelpFolder, MissingIsToldAndShownAsAPage) {
  const auto book = readHelpBook(folder.file("nowhere"));
  ASSERT_FALSE(book);
  EXPECT_THAT(book.error().message(), HasSubstr("nowhere/contents.txt"));
  HelpReader reader(helpBookIn(folder.file("nowhere")));
  reader.open({"tolmod", 231});
  EXPECT_THAT(reader.html(), HasSubstr("nowhere/contents.txt"));
}

TEST_F(HelpFolder, ContentsAreATreeOfNames) {
  EXPECT_EQ(faultOf("# remark\na\n"), "none");
  EXPECT_THAT(faultOf("../a\n"), HasSubstr("contents.txt:1"));
  EXPECT_THAT(faultOf("a\n    b\n"), HasSubstr("contents.txt:2")) << "two levels at once";
  EXPECT_THAT(faultOf("a\n b\n"), HasSubstr("contents.txt:2"));
  EXPECT_THAT(faultOf("a\na\n"), HasSubstr("twice"));
  EXPECT_THAT(faultOf("\n"), HasSubstr("names no page"));
  std::string deep;
  for (int i = 0; i < 20; ++i) deep += std::string(2 * static_cast<std::size_t>(i), ' ') + "x\n";
  EXPECT_THAT(faultOf(deep), HasSubstr("contents.txt:10"));
  std::string many;
  for (int i = 0; i < 1001; ++i) many += "p" + std::to_string(i) + "\n";
  EXPECT_THAT(faultOf(many), HasSubstr("too many"));
}

TEST_F(HelpFolder, DamagedPageSaysSoAndLeavesTheOthers) {
  write("contents.txt", "a\n  b\n  c\n");
  write("a.txt", "title: A\nopens: tolmod\n\nText");
  write("b.txt", "no title");
  const auto book = read();
  ASSERT_TRUE(book);
  ASSERT_EQ(book->faults.size(), 2U);
  EXPECT_EQ(book->topics().size(), 3U);
  EXPECT_THAT(topicHtml(book->topic(1)), HasSubstr("b:1"));
  EXPECT_THAT(topicHtml(book->topic(2)), HasSubstr("c.txt"));
  EXPECT_EQ(book->find({"tolmod", 0}), 0U);
}

}  // namespace
}  // namespace tolmer
