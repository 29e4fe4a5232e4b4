// The formats for other programs, and what all of them have in common.
#include "report/report_document.h"

#include "report_fixture.h"

namespace tolmer {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class ReportFormats : public test::ReportFixture {
 protected:
  // Names, labels and remarks that try to leave their place.
  std::string hostile(const std::string& format) const {
    const std::string file = write("h.csv",
                                   "L,\"Y`\\\",|*a*\u202E\n\"\"\"\",1,2\n\\,2,3\n`,4,5\n</"
                                   "p>,4,9\n|,3,7\n\u2066,9,12\n1.,6,9\n");
    return output({file, "--y", "Y`\\", "--labels", "L", "--title", "# \x01<script>", "--remarks",
                   "a\r\nstop()\n1. x\n\n- y"},
                  format);
  }
};

TEST_F(ReportFormats, NothingLeavesItsPlaceInAScript) {
  const std::string script = hostile("r");
  EXPECT_THAT(script, StartsWith("# # ?<script>\n#\n"));
  EXPECT_THAT(script, HasSubstr("\n# a\n# stop()\n# 1. x\n#\n# - y\n"));
  EXPECT_THAT(script, HasSubstr("  `Y\\`\\\\` = c(1, 2, 4, 4, 3, 9, 6),\n"));
  EXPECT_THAT(script, HasSubstr("`|*a*\\xE2\\x80\\xAE` = c(2, 3, 5, 9, 7, 12, 9),\n"));
  EXPECT_THAT(script, HasSubstr(R"(c("\"", "\\", "`", "</p>", "|", "\xE2\x81\xA6", "1."))"));
  EXPECT_THAT(script, HasSubstr("fit <- lm(`Y\\`\\\\` ~ `|*a*\\xE2\\x80\\xAE`,\n"));
  EXPECT_EQ(script.find("\u202E"), script.npos);
  EXPECT_THAT(output({table, "--y", "Rent", "--no-intercept"}, "r"),
              HasSubstr("lm(`Rent` ~ 0 + `Size` +\n"));
}

TEST_F(ReportFormats, NothingLeavesItsPlaceInMarkdown) {
  const std::string text = hostile("markdown");
  EXPECT_THAT(text, StartsWith("# \\# ?\\<script\\>\n\n"));
  EXPECT_THAT(text, HasSubstr("\na\n\nstop\\(\\)\n\n1\\. x\n\n\\- y\n\n"));
  EXPECT_THAT(text, HasSubstr("\n| Case | L | Y\\`\\\\ | \\|\\*a\\*\u202E |\n"));
  EXPECT_THAT(text, HasSubstr("\n| 5 | \\| | 3 | 7 |\n"));
}

TEST_F(ReportFormats, PartsStandInTheOrderAskedForAndOnce) {
  const std::string text =
      output({table, "--y", "Rent", "--sections", "anova,equation,anova", "--author", "A. B."},
             "markdown");
  EXPECT_THAT(text, HasSubstr("\n- Author: A. B.\n- Data file: flats.csv\n"));
  const auto anova = text.find("\n## ANOVA Table\n");
  EXPECT_LT(anova, text.find("\n## Fitted Model\n"));
  EXPECT_EQ(text.find("\n## ", text.find("\n## Fitted Model\n") + 1), text.npos);
  EXPECT_EQ(text.find("\n## ANOVA Table\n", anova + 1), text.npos);
}

TEST_F(ReportFormats, ShortListsKeepTheFirstCasesAndThoseThatAreMarked) {
  std::string rows = "Y,X\n";
  for (int i = 1; i <= 40; ++i)
    rows += std::to_string(i == 35 ? 900 : i) + "," + std::to_string(i) + "\n";
  const std::string file = write("long.csv", rows);
  const std::vector<std::string> words = {file, "--y", "Y", "--sections", "data", "--lists"};
  const auto list = [&](const char* length) {
    std::vector<std::string> all = words;
    all.emplace_back(length);
    return output(all, "markdown");
  };
  EXPECT_THAT(list("short"), AllOf(HasSubstr("\n| 20 | 20 | 20 |\n| 35 | 900 + | 35 |\n"),
                                   HasSubstr("21 of 40 cases")));
  EXPECT_THAT(list("whole"), HasSubstr("\n| 36 | 36 | 36 |\n"));
  EXPECT_THAT(list("none"), Not(HasSubstr("Data List")));
  const std::vector<std::string> noted = {
      file, "--y", "Y", "--sections", "equation,residuals", "--lists=short"};
  EXPECT_THAT(output(noted, "markdown"), HasSubstr("confirmed by a second fit"));
  EXPECT_THAT(output(noted, "markdown"), Not(HasSubstr("not confirmed")));
}

TEST_F(ReportFormats, AFileIsWrittenWholeOrNotAtAll) {
  const std::string file = write("old.md", "old");
  const ReportOutcome outcome = report({table, "--y", "Rent", "-o", file}, true);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "");
  EXPECT_THAT(*readWholeFile(file), StartsWith("# Multiple regression of Rent\n"));
  for (const std::string& bad :
       {std::string("/dev/full"), (folder / "none/x.html").string(), folder.string()}) {
    const ReportOutcome refused = report({table, "--y", "Rent", "-o", bad});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, StartsWith("tolreport: " + bad + ": "));
  }
}

}  // namespace
}  // namespace tolmer
