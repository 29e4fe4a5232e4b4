// No text of the course may quote a number that the program does not show.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <regex>

#include "base/file_io.h"
#include "course/claim.h"
#include "support/tree.h"

namespace tolmer {
namespace {

const std::string courseFolder = TOLMER_SOURCE_DIR "/course/";

class CourseTexts : public testing::Test {
 protected:
  void SetUp() override {
    auto read = readClaims(courseFolder + "claims.txt");
    ASSERT_TRUE(read) << read.error().message();
    claims_ = std::move(*read);
    ASSERT_THAT(claims_, testing::SizeIs(testing::Gt(100)));
  }

  const std::string& text(const std::string& file) {
    const auto [entry, isNew] = texts_.try_emplace(file);
    if (isNew) {
      const auto content = readWholeFile(courseFolder + file);
      EXPECT_TRUE(content) << file;
      if (content) entry->second = plainText(*content);
    }
    return entry->second;
  }

  const AnalysedModel* model(const CourseModel& model) {
    auto analysed = models_.find(model);
    if (analysed == models_.end()) {
      auto opened = AnalysedModel::open(model, courseFolder + "data/");
      EXPECT_TRUE(opened) << opened.error().message();
      if (!opened) return nullptr;
      analysed = models_.emplace(model, std::move(*opened)).first;
    }
    return &analysed->second;
  }

  std::vector<Claim> claims_;
  std::map<std::string, std::string> texts_;
  std::map<CourseModel, AnalysedModel> models_;
};

TEST_F(CourseTexts, HoldThePassagesOfTheirClaims) {
  for (const Claim& claim : claims_)
    EXPECT_NE(text(claim.file).find(claim.passage), std::string::npos)
        << claim.where << ": " << claim.file << " does not hold \"" << claim.passage << '"';
}

TEST_F(CourseTexts, QuoteWhatTheDisplaysShow) {
  for (const Claim& claim : claims_) {
    if (claim.isGiven()) continue;
    const AnalysedModel* analysed = model(claim.model);
    ASSERT_TRUE(analysed) << claim.where;
    const auto fault = faultOf(claim, *analysed);
    EXPECT_FALSE(fault) << claim.where << ": " << claim.number << ' ' << *fault;
  }
}

// A decimal number in a text of which every one is to be claimed, and where no claim covers it.
std::vector<std::string> unclaimed(const std::string& text, const std::vector<Claim>& claims) {
  std::vector<bool> covered(text.size());
  for (const Claim& claim : claims)
    for (auto at = text.find(claim.passage); at != text.npos; at = text.find(claim.passage, at + 1))
      std::fill_n(covered.begin() + static_cast<std::ptrdiff_t>(at + claim.begin),
                  claim.number.size(), true);
  std::vector<std::string> missing;
  static const std::regex decimal(R"([\d,]*\.\d+)");
  for (std::sregex_iterator at(text.begin(), text.end(), decimal), end; at != end; ++at) {
    const auto place = static_cast<std::size_t>(at->position());
    if (!covered[place]) missing.push_back(text.substr(place < 40 ? 0 : place - 40, 60));
  }
  return missing;
}

TEST_F(CourseTexts, ClaimEveryDecimalNumberOfChapterAndNotebook) {
  static const std::regex target(R"(jump[a-z ]* \d+\.\d+:)");
  for (const std::string file : {"chapter/ch17.adoc", "notebook.txt"}) {
    auto claims = claims_;
    std::erase_if(claims, [&](const Claim& claim) { return claim.file != file; });
    const std::string numbers = std::regex_replace(text(file), target, "jump:");
    EXPECT_THAT(unclaimed(numbers, claims), testing::IsEmpty()) << file;
  }
}

// The comparison itself must be able to fail.
TEST(AgreeingNumbers, AreEqualToTheDigitsOfTheText) {
  EXPECT_TRUE(agrees("0.716", "0.7156"));
  EXPECT_TRUE(agrees("0.3", "0.25"));
  EXPECT_TRUE(agrees("- 0.1521", "-0.1521"));
  EXPECT_TRUE(agrees("7.2", "-7.238"));
  EXPECT_TRUE(agrees("91 percent", "0.9136"));
  EXPECT_TRUE(agrees("2,069", "2,069.2"));
  EXPECT_TRUE(agrees("-.000337", "-.000337"));
  EXPECT_TRUE(agrees("NA", "NA"));
  EXPECT_FALSE(agrees("0.717", "0.7156"));
  EXPECT_FALSE(agrees("0.7157", "0.7156"));
  EXPECT_FALSE(agrees("-7.2", "7.238"));
  EXPECT_FALSE(agrees("90 percent", "0.9136"));
  EXPECT_FALSE(agrees("0.91", "NA"));
}

}  // namespace
}  // namespace tolmer
