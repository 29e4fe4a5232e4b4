// PDF files as the toolkit writes them and as the program completes them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "platform/paper/pdf_outline.h"
#include "support/qt_user.h"

namespace tolmer::test {
namespace {

using testing::HasSubstr;

PrintedPages samplePages() {
  PrintedPages pages{.title = "A (title)",
                     .author = "J\u00f6rg \U0001F600",
                     .paper = {595, 842},
                     .pages = {{}, {.isAcross = true}, {}},
                     .headings = {{"One )", 0, 100}, {"Two", 1, 50}, {"Three", 2, 0}}};
  for (PrintedPage& page : pages.pages)
    page.marks = {PrintedBox{10, 10, 50, 20, colours::red},
                  PrintedText{.x = 50, .baseLine = 60, .text = "Rent", .font = {.pixels = 10}}};
  return pages;
}

// Where each object lies by the tables of objects, the newest first.
std::map<int, std::size_t> objectsOf(const std::string& pdf) {
  std::map<int, std::size_t> objects;
  const auto last = pdf.rfind("startxref\n");
  for (std::size_t at = std::stoul(pdf.substr(last + 10)); at > 0;) {
    EXPECT_EQ(pdf.substr(at, 5), "xref\n");
    const auto trailer = pdf.find("trailer", at);
    std::istringstream table(pdf.substr(at + 5, trailer - at - 5));
    for (int first = 0, count = 0; table >> first >> count;)
      for (int object = first; object < first + count; ++object) {
        std::size_t offset = 0;
        std::string generation, use;
        table >> offset >> generation >> use;
        if (use == "n") objects.emplace(object, offset);
      }
    const auto previous = pdf.find("/Prev ", trailer);
    at = previous < pdf.find("startxref", trailer) ? std::stoul(pdf.substr(previous + 6)) : 0;
  }
  return objects;
}

TEST(Pdf, HasPagesTextAndABookmarkForEachHeading) {
  ScriptedQtDesktop desktop;
  const auto pdf = desktop.pdfOf(samplePages());
  ASSERT_TRUE(pdf) << pdf.error().message();
  const auto objects = objectsOf(*pdf);
  std::string now;  // what the newest form of each object says
  for (const auto& [object, offset] : objects) {
    EXPECT_TRUE(pdf->substr(offset).starts_with(std::to_string(object) + " 0 obj")) << object;
    now += pdf->substr(offset, pdf->find("endobj", offset) - offset);
  }
  EXPECT_THAT(now, HasSubstr("/Title <FEFF004F006E006500200029>"));
  EXPECT_THAT(now, HasSubstr("/Author <FEFF004A00F6007200670020D83DDE00>"));
  EXPECT_THAT(now, HasSubstr("/Outlines " + std::to_string(objects.rbegin()->first - 3) + " 0 R"));
  EXPECT_THAT(now, HasSubstr("/Count 3"));
  EXPECT_THAT(now, HasSubstr("/XYZ null 742 null"));
  EXPECT_THAT(now, HasSubstr("/XYZ null 545 null")) << "of a page that lies across";
  EXPECT_THAT(now, HasSubstr("/FontFile2"));
  const std::regex sizes(R"(/MediaBox \[0 0 (\d+)[\d.]* (\d+)[\d.]*\])");
  std::string lies;
  for (std::sregex_iterator at(now.begin(), now.end(), sizes), end; at != end; ++at)
    lies += std::stoi((*at)[1]) < std::stoi((*at)[2]) ? 'u' : 'a';
  EXPECT_EQ(lies, "uau");
}

TEST(Pdf, OfAnotherMakeIsRefused) {
  const std::string whole = *ScriptedQtDesktop().pdfOf(samplePages());
  for (const std::string& other :
       {std::string(), std::string("startxref"), whole.substr(0, whole.size() / 2),
        std::string("%PDF-1.5\n1 0 obj\n<</Type/XRef>>\nendobj\nstartxref\n9\n%%EOF\n")})
    EXPECT_FALSE(withOutline(other, samplePages()));
  PrintedPages more = samplePages();
  more.pages.emplace_back();
  EXPECT_FALSE(withOutline(whole, more));
}

}  // namespace
}  // namespace tolmer::test
