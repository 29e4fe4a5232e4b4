// Folders of pages that are missing, damaged or meant to do harm.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "help/help_reader.h"
#include "help/help_topic.h"
#include "help/topic_page.h"
#include "support/temp_folder.h"

namespace tolmer {
namespace {

using testing::HasSubstr;

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
  HelpReader reader(bookAbout(book.error()));
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

TEST(HelpFuzz, LongPagesTakeNoLongTime) {
  for (const std::string mark : {"[", "*", "{", "[a](", "| ", "- \n", "!["}) {
    std::string body;
    while (body.size() < 1'000'000) body += mark;
    EXPECT_FALSE(topicHtml(HelpTopic{.title = "T", .body = body}).empty());
  }
  EXPECT_FALSE(readTopic("p", "title: T\n\n" + std::string(2'000'000, 'x')));
}

}  // namespace
}  // namespace tolmer
