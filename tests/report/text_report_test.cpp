#include "report/text_report.h"

#include <sstream>

#include "report/text_layout.h"
#include "report_fixture.h"

namespace tolmer {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class TextReport : public test::ReportFixture {
 protected:
  static std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> all;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) all.push_back(line);
    return all;
  }
  // As a reader reads: words between single blanks.
  static std::string words(const std::string& text) {
    std::istringstream stream(text);
    std::string all = " ";
    for (std::string word; stream >> word;) all += word + " ";
    return all;
  }
};

TEST_F(TextReport, TellsAllDisplaysInReadingOrder) {
  ReportOptions options;
  options.y = "Rent";
  options.labels = "Street";
  const auto run = analysed(table, options);
  const std::string text = report({table, "--y", "Rent", "--labels", "Street"}).output;
  EXPECT_THAT(text, StartsWith("Multiple regression of Rent\n\n  Data file: flats.csv\n"
                               "  Cases: 10 read, all of them used\n"));
  std::vector<std::string> captions;
  for (const std::string& line : lines(text))
    for (const ReportedPart& shown : run.document.parts)
      if (line == shown.title) captions.push_back(line);
  EXPECT_THAT(captions, ElementsAre("Fitted Model", "Interpretation", "ANOVA Table",
                                    "Estimated Coefficients", "Descriptive Statistics",
                                    "Correlation Matrix", "Residual List", "Data List",
                                    "Histogram of Residuals", "Histogram of Standardized Residuals",
                                    "Normality Plot for Residuals", "Variance Inflation Factors",
                                    "Scatter Plot 1", "Scatter Plot 2", "Scatter Plot 3"));
  const std::string read = words(text);
  for (const ReportedPart& shown : run.document.parts) {
    for (const std::string& told : std::visit(test::TextsOf{}, shown.content))
      EXPECT_THAT(read, HasSubstr(words(told))) << shown.title;
    if (const auto* sections = std::get_if<Sections>(&shown.content)) {
      EXPECT_THAT(read, HasSubstr(words(wholeText(*sections)))) << "in their order";
    }
  }
}

TEST_F(TextReport, FitsATerminalWithManyVariablesAndCases) {
  std::string wide = "Y";
  for (int j = 1; j <= 30; ++j) wide += ",Predictor" + std::to_string(j);
  for (int i = 0; i < 60; ++i) {
    wide += "\n" + std::to_string(100000 + i * i % 37);
    for (int j = 1; j <= 30; ++j)
      wide += "," + std::to_string((i * (j + 3) * (i + j)) % 101) + ".5";
  }
  const std::string file = write("wide.csv", wide);
  for (const std::string& line : lines(report({file, "--y", "Y"}).output))
    EXPECT_LE(terminalWidth(line), 78U) << line;
}

TEST_F(TextReport, BarsStandWhereTheirGraphsHaveThem) {
  const std::string text = report({table, "--y", "Rent"}).output;
  EXPECT_THAT(text, HasSubstr("\n  -1 to  0 │"));
  // 1 / (1 - r^2) with r = -0.700305 of Size and Age is 1.9624: 0.2928 of a decade, which has 13
  // columns.
  EXPECT_THAT(text, HasSubstr("  Size │███▊ 2.0\n   Age │███▊ 2.0\n       └────────────┴"));
  EXPECT_THAT(text, HasSubstr("\n       1            10           100          1000\n"));
  EXPECT_EQ(text.find('\x1b'), std::string::npos);
  EXPECT_THAT(report({table, "--y", "Rent"}, true).output, HasSubstr("\x1b[46;30m"));
}

}  // namespace
}  // namespace tolmer
