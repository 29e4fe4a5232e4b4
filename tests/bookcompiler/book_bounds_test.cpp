// Every table of a book at its bound, and with one row more.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "bookcompiler/source_keywords.h"
#include "notebook/object_file.h"

namespace tolmer {
namespace {

using testing::HasSubstr;

std::string repeated(int count, const std::string& text) {
  std::string all;
  for (int i = 0; i < count; ++i) all += text;
  return all;
}

const std::string scenario = "scenario: A\nparameters: \\a, \\b, False, False, 3, 2, 1\n";
const std::string head = "title: T\nchapter: C\ndefault " + scenario;
const std::string onePage = head + "section: S\npage: plain\n";
const std::string database = "database 1: D\n";

std::string scenarioPages(int scenarios) {
  std::string text = head + "section: S\n";
  for (int i = 0; i < scenarios; ++i)
    text += (i % 4 == 0 ? "page: scenario\nscenarios 0:\n" : "") + scenario;
  return text;
}

struct BoundCase {
  const char* noun;
  int bound;
  std::function<std::string(int)> source;
};

const std::vector<BoundCase>& boundCases() {
  static const std::vector<BoundCase> cases = {
      {"section", 8, [](int n) { return head + repeated(n, "section: S\npage: plain\n"); }},
      {"page", 30, [](int n) { return head + "section: S\n" + repeated(n, "page: plain\n"); }},
      {"scenario", 50, scenarioPages},
      {"database", 200,
       [](int n) {
         return head + "section: S\npage: database\noutline:\n" + repeated(n, database);
       }},
      {"text element", 200, [](int n) { return onePage + repeated(n, "text: t\n"); }},
      {"heading element", 30, [](int n) { return onePage + repeated(n, "heading: h\n"); }},
      {"jump element", 40, [](int n) { return onePage + repeated(n, "jump 1.1: j\n"); }},
      {"scenario element", 20,
       [](int n) {
         return head + "section: S\n" + repeated(n, "page: scenario\nscenarios:\n" + scenario);
       }},
      {"outline element", 8,
       [](int n) {
         return head + "section: S\n" + repeated(n, "page: database\noutline 2:\n" + database);
       }},
      {"bitmap element", 8, [](int n) { return onePage + repeated(n, "picture: p\n"); }},
      {"check element", 20, [](int n) { return onePage + repeated(n, "check 0: c\n"); }},
      {"version element", 20, [](int n) { return onePage + repeated(n, "version 0: v\n"); }},
      {"page element", 450, [](int n) { return onePage + repeated(n, "space:\n"); }}};
  return cases;
}

TEST(BookBounds, everyTableIsCompiledAtItsBoundAndRefusedWithOneRowMore) {
  for (const auto& [noun, bound, source] : boundCases()) {
    Complaints complaints;
    const SourcedBook sourced = buildBook(parseSource(source(bound), complaints), complaints);
    EXPECT_FALSE(complaints.hasErrors()) << noun << ": " << complaints.sorted().front().text;
    FieldReader fields("full.nbo", objectFileText(sourced.book));
    const auto again = readBook(fields);
    ASSERT_TRUE(again) << noun << ": " << again.error().message();
    EXPECT_EQ(*again, sourced.book) << noun;

    buildBook(parseSource(source(bound + 1), complaints), complaints);
    ASSERT_TRUE(complaints.hasErrors()) << noun;
    std::string all;
    for (const Complaint& complaint : complaints.sorted()) all += complaint.text + "\n";
    EXPECT_THAT(all,
                HasSubstr("this would be " + std::string(noun) + " " + std::to_string(bound + 1) +
                          ", a book has at most " + std::to_string(bound)));
    EXPECT_GT(complaints.sorted().front().line, bound) << noun;
  }
}

}  // namespace
}  // namespace tolmer
