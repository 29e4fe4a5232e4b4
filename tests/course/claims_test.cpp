// No text of the course may quote a number that the program does not show: each line of
// course/claims.txt, whose head tells what its fields mean, is compared with the displays.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <map>
#include <optional>
#include <regex>

#include "base/file_io.h"
#include "base/trimmed.h"
#include "figures/course_model.h"
#include "figures/field_lines.h"
#include "fitted_claims.h"
#include "support/tree.h"

namespace tolmer {
namespace {

constexpr std::size_t fieldCount = 8;

// A line of course/claims.txt, whose head tells what the fields mean.
struct Claim {
  std::string where;  // in the list, for messages
  CourseModel model;
  std::string display;
  std::string row;
  std::string column;
  std::string passage;  // without the braces, as plainText
  std::size_t begin;    // of the number in the passage
  std::string number;
  std::string file;  // below course/

  // Not compared with a display.
  bool isGiven() const { return display == "given"; }
};

// A text without what only its look needs: marks of AsciiDoc vanish, bars are semicolons, all
// blanks and line ends between two words are one blank.
std::string plainText(std::string_view text) {
  std::string plain = std::regex_replace(std::string(text), std::regex("−"), "-");
  plain = std::regex_replace(plain, std::regex("\n +\\|"), " ");  // a new line of the notebook
  plain = std::regex_replace(plain, std::regex("\\|"), " ; ");
  std::erase_if(plain,
                [](char c) { return std::string_view("*_`~^").find(c) != std::string::npos; });
  return std::regex_replace(plain, std::regex("\\s+"), " ");
}

struct Number {
  double value;      // in units of the display
  double tolerance;  // half a unit of its last digit
  bool isSigned;
};

std::optional<Number> numberFrom(std::string_view text) {
  static const std::regex pattern(R"(([-+]?) ?([\d,]*\.?\d+)( per cent|%)?)");
  std::cmatch match;
  if (!std::regex_match(text.begin(), text.end(), match, pattern)) return std::nullopt;
  std::string digits = match[2];
  std::erase(digits, ',');
  const std::size_t point = digits.find('.');
  const auto decimals = point == digits.npos ? 0.0 : static_cast<double>(digits.size() - point - 1);
  double value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  const double scale = match[3].length() > 0 ? 0.01 : 1;
  return Number{(match[1] == "-" ? -value : value) * scale, std::pow(10, -decimals) / 2 * scale,
                match[1].length() > 0};
}

// Whether a cell shows that number, to as many digits as the number has.
bool agrees(std::string_view number, std::string_view shown) {
  if (number == shown) return true;
  const auto said = numberFrom(number);
  const auto is = numberFrom(shown);
  if (!said || !is) return false;
  const double value = said->isSigned ? is->value : std::abs(is->value);
  // A decimal half, like 0.25 for 0.3, is no exact double.
  return std::abs(said->value - value) <= said->tolerance * (1 + 1e-6);
}

// Of a number that no display shows. Nine digits are more than any text quotes.
std::optional<std::string> faultInNumber(const Claim& claim, std::optional<double> number) {
  if (!number) return "has no such row or column";
  char shown[40];
  std::snprintf(shown, sizeof shown, "%.9f", *number);
  if (agrees(claim.number, shown)) return std::nullopt;
  return std::string("is ") + shown;
}

// The texts of a display, and every number in it.
std::optional<std::string> faultInText(const Claim& claim, std::string_view text) {
  if (text.find(claim.number) != text.npos) return std::nullopt;
  static const std::regex numbers(R"([-+]? ?[\d,]*\.?\d+)");
  const std::string all(text);
  for (std::sregex_iterator at(all.begin(), all.end(), numbers), end; at != end; ++at)
    if (agrees(claim.number, at->str())) return std::nullopt;
  return "is not in \"" + all + "\"";
}

std::string textOf(const Claim& claim, const GraphContent& graph) {
  if (claim.row == "description") return graph.description;
  std::string text;
  for (const OverlayCall& call : graph.plot.overlay())
    if (const auto* drawn = std::get_if<TextCall>(&call)) text += drawn->text + "\n";
  return text;
}

std::string_view trimmed(const TableCell& cell) { return trimmedLine(cell.text); }

// The row of that name among the columns that name rows: in the second one where cases are named.
// 0 where there is none.
int rowNamed(const TableContent& table, const std::string& name) {
  for (int col = 1; col <= std::min(2, table.cols()); ++col)
    for (int row = 1; row <= table.rows(); ++row)
      if (trimmed(table.at(row, col)) == name) return row;
  return 0;
}

std::optional<std::string> cellOf(const Claim& claim, const TableContent& table) {
  if (claim.column.empty()) {
    for (int row = 1; row <= table.rows(); ++row)
      for (int col = 1; col < table.cols(); ++col)
        if (trimmed(table.at(row, col)) == claim.row)
          return std::string(trimmed(table.at(row, col + 1)));
    return std::nullopt;
  }
  const int row = rowNamed(table, claim.row);
  for (int col = 1; col <= table.cols(); ++col)
    if (row > 0 && trimmed(table.at(1, col)) == claim.column)
      return std::string(trimmed(table.at(row, col)));
  return std::nullopt;
}

std::optional<std::string> faultInTable(const Claim& claim, const TableContent& table) {
  const auto cell = cellOf(claim, table);
  if (!cell) return "is in no cell: there is no such row or column";
  if (agrees(claim.number, *cell)) return std::nullopt;
  return "is shown as " + *cell;
}

Result<Claim> claimFrom(const FieldLine& line, const std::string& where) {
  const auto& fields = line.fields;
  Claim claim{where,     courseModel(fields[0], fields[1], fields[2]),
              fields[3], fields[4],
              fields[5], plainText(fields[6]),
              0,         {},
              fields[7]};
  const std::size_t open = claim.passage.find('{');
  const std::size_t close = claim.passage.find('}');
  if (open == claim.passage.npos || close == claim.passage.npos || close < open)
    return Error{where, "the text has no number in braces"};
  claim.begin = open;
  claim.number = claim.passage.substr(open + 1, close - open - 1);
  claim.passage.erase(close, 1).erase(open, 1);
  return claim;
}

Result<std::vector<Claim>> readClaims(const std::string& listFile) {
  const auto text = readWholeFile(listFile);
  if (!text) return text.error();
  const auto lines = fieldLines(listFile, *text, fieldCount);
  if (!lines) return lines.error();
  std::vector<Claim> claims;
  for (const FieldLine& line : *lines) {
    auto claim = claimFrom(line, lineOf(listFile, line));
    if (!claim) return claim.error();
    claims.push_back(std::move(*claim));
  }
  return claims;
}

// What is wrong with a claim, if anything.
std::optional<std::string> faultOf(const Claim& claim, const AnalysedModel& model) {
  if (claim.display == "equation") return faultInText(claim, model.equation());
  const auto choice = displayChoice(claim.display);
  if (!choice) return choice.error().text;
  const auto drawn = model.draw(*choice);
  if (!drawn) return drawn.error().text;
  if (const auto* table = std::get_if<TableContent>(&*drawn)) return faultInTable(claim, *table);
  if (const auto* graph = std::get_if<GraphContent>(&*drawn))
    return faultInText(claim, textOf(claim, *graph));
  return faultInText(claim, wholeText(std::get<Sections>(*drawn)));
}

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

  std::optional<std::string> fault(const Claim& claim) {
    if (claim.display == "sum") return faultInNumber(claim, computedNumber(claim.row));
    if (claim.display == "fit")
      return faultInNumber(
          claim, fittedNumber(claim.model, claim.row, claim.column, courseFolder + "data/"));
    const AnalysedModel* analysed = model(claim.model);
    return analysed ? faultOf(claim, *analysed) : "is of no model";
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
    const auto found = fault(claim);
    EXPECT_FALSE(found) << claim.where << ": " << claim.number << ' ' << *found;
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
  EXPECT_TRUE(agrees("91 per cent", "0.9136"));
  EXPECT_TRUE(agrees("2,069", "2,069.2"));
  EXPECT_TRUE(agrees("-.000337", "-.000337"));
  EXPECT_TRUE(agrees("NA", "NA"));
  EXPECT_FALSE(agrees("0.717", "0.7156"));
  EXPECT_FALSE(agrees("0.7157", "0.7156"));
  EXPECT_FALSE(agrees("-7.2", "7.238"));
  EXPECT_FALSE(agrees("90 per cent", "0.9136"));
  EXPECT_FALSE(agrees("0.91", "NA"));
}

}  // namespace
}  // namespace tolmer
