// Tables as browsers copy them.
#include "textimport/html_table.h"

#include <gtest/gtest.h>

#include "textimport/text_import.h"

namespace tolmer {
namespace {

TEST(HtmlTable, KeepsWhatIsSeenInItsPlace) {
  const auto table = tableOfHtml(
      "<html><head><title>x</title></head><body><!--StartFragment-->"
      "<table><tr><td>Menu</td></tr></table>\n"
      "<TABLE class=wikitable><caption>Towns<sup>[1]</sup></caption><thead>"
      "<tr><th rowspan=2>Town<th colspan='2'>Rent</tr><tr><th>2019<th>2020&nbsp;</tr></thead>"
      "<tr><td colspan=3><b>North</b></td></tr>"
      "<tr><td><a href='a>b'>Oslo</a><td>1,250.5<sup><a>[2]</a></sup>"
      "<td><span style='display: none'>0007</span>&minus;7&#8239;000</tr>"
      "<tr hidden><td>Ghost<td>1<td>2</tr>"
      "<tr><td>\"K&oslash;ge\"<br>S &amp; N<td rowspan=2>10<sup>3</sup></td><td>&#x2014;</tr>"
      "<tr><td>Ulm</td><td>3</td></tr><tr><td></td></tr></table></body></html>");
  ASSERT_TRUE(table);
  EXPECT_EQ(table->text,
            "Town\tRent 2019\tRent 2020\n"
            "Oslo\t1,250.5\t\u22127\u202F000\n"
            "\"\"\"K&oslash;ge\"\" S & N\"\t10^3\t\u2014\n"
            "Ulm\t10^3\t3\n");
  EXPECT_EQ(table->title, "Towns");
  EXPECT_EQ(table->notes.size(), 3U);
  EXPECT_EQ(table->notes[0],
            "Rows of one cell over all columns were left out: 1, first \"North\".");
  EXPECT_EQ(table->notes[2], "Rows and cells that the page hides were left out: 1.");
  const auto import = TextImport::read(table->text, {.origin = TextOrigin::clipboard,
                                                     .observations = 5,
                                                     .variables = 5,
                                                     .hints = {.notes = table->notes}});
  const auto preview = import->preview({});
  ASSERT_TRUE(preview);
  EXPECT_EQ(preview->headings, (std::vector<std::string>{"Town", "Rent 2019", "Rent 2020"}));
  EXPECT_EQ(preview->notes.front(), table->notes.front());
}

// Damage of all kinds costs no more than the table.
TEST(HtmlTable, IsNotMadeOfWhatIsNone) {
  for (const char* html : {"", "<p>1\t2", "<table><tr><td>1 2 3</td></tr></table>",
                           "<table><tr><td></td><td>1,2</td></tr><tr><td></td><td>3,4</td></tr>",
                           "<table sdnum=''><tr><td>1<td>2</table>", "<table", "<td>1<td>2</sup>",
                           "<table><tr><td colspan=999999999>", "<table><tr><td>&#1114112;<sup>3"})
    EXPECT_FALSE(tableOfHtml(html)) << html;
  std::string deep;
  for (int i = 0; i < 20000; ++i) deep += "<table><tr hidden><td colspan=1000 rowspan=60000>";
  EXPECT_FALSE(tableOfHtml(deep));
  const auto open = tableOfHtml("<table><tr><td>1<td hidden>2<tr><td>&lt;&#x31;<td>4");
  ASSERT_TRUE(open);
  EXPECT_EQ(open->text, "1\t2\n<1\t4\n");
}

}  // namespace
}  // namespace tolmer
