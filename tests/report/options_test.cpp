#include "report/options.h"

namespace tolmer {
namespace {

using ::testing::ElementsAre;

std::string faultOf(const std::vector<std::string>& words) {
  const auto options = parseOptions(words);
  return options ? "no fault" : options.error().message();
}

TEST(ReportOptions, FileWithEverything) {
  const auto options =
      parseOptions({"--y=Rent", "--x", "Size,\"Age, years\"", "data.csv", "--x", "Floor",
                    "--labels", "Town", "--no-intercept", "--format", "json"});
  ASSERT_TRUE(options) << options.error().message();
  EXPECT_EQ(options->file, "data.csv");
  EXPECT_EQ(options->y, "Rent");
  EXPECT_THAT(options->x, ElementsAre("Size", "Age, years", "Floor"));
  EXPECT_EQ(options->labels, "Town");
  EXPECT_FALSE(options->intercept);
  EXPECT_EQ(options->request.format, ReportFormat::json);
}

TEST(ReportOptions, CourseDataSets) {
  EXPECT_EQ(parseOptions({"--example", "3"})->example, 3);
  EXPECT_TRUE(parseOptions({"--default", "--program-folder=/opt/x"})->defaultExample);
  EXPECT_EQ(parseOptions({"--z", "--help"})->answer, reportUsage);
  EXPECT_THAT(parseOptions({"--version"})->answer, testing::StartsWith("tolreport (Tolmer "));
  EXPECT_EQ(parseOptions({"--y", "Rent", "--", "--odd name.csv"})->file, "--odd name.csv");
}

TEST(ReportOptions, WhatIsAskedOfTheReport) {
  const auto options =
      parseOptions({"a.csv", "-o", "b.html", "--sections", "plot2, equation", "--sections=data",
                    "--lists=short", "--title=", "--paper", "letter"});
  ASSERT_TRUE(options) << options.error().message();
  const ReportRequest& request = options->request;
  EXPECT_EQ(request.format, ReportFormat::html);  // by the file's name
  EXPECT_THAT(*request.parts,
              ElementsAre(findDisplay("frmScatterPlot2"), nullptr, findDisplay("frmDataList")));
  EXPECT_EQ(request.caseLists, CaseLists::shortened);
  EXPECT_EQ(request.paper, Paper::letter);
  EXPECT_EQ(parseOptions({"a.csv", "--format", "r", "-o", "b.html"})->request.format,
            ReportFormat::r);
  EXPECT_THAT(
      faultOf({"a.csv", "--sections", "plot4"}),
      testing::StartsWith("--sections has no \"plot4\"; there are equation, interpretation"));
}

TEST(ReportOptions, FaultsSayWhatWouldBeRight) {
  EXPECT_EQ(faultOf({}), "name a file, or take --example N or --default");
  EXPECT_EQ(faultOf({"a.csv", "--default"}), "a file, --example and --default exclude one another");
  EXPECT_EQ(faultOf({"a.csv", "b.csv"}), "one file only, not also \"b.csv\"");
  EXPECT_EQ(faultOf({"a.csv", "--z"}), "there is no option --z");
  EXPECT_EQ(faultOf({"a.csv", "--y"}), "--y wants a value");
  EXPECT_EQ(faultOf({"a.csv", "--x", "A,,B"}), "--x has an empty name in \"A,,B\"");
  EXPECT_EQ(faultOf({"a.csv", "--format", "pdf"}),
            "--format is text, json, html, markdown or r, not \"pdf\"");
  for (const char* number : {"0", "-1", "1.5", "99999999999", ""})
    EXPECT_EQ(faultOf({"--example", number}),
              std::string("--example takes a number from 1, not \"") + number + "\"");
  for (const char* number : {"0", "4", "", "1 ", "-1"})
    EXPECT_EQ(faultOf({"--default", "--plot", std::string(number) + "=A:B"}),
              std::string("--plot has scatter plots 1 to 3, not \"") + number + "\"");
  EXPECT_EQ(faultOf({"--default", "--plot", "A:B"}),
            "--plot takes a number and two axes, as in 2=Size:Residuals, not \"A:B\"");
  for (const char* axes : {"", "A", "A:", ":B", "A:B:C"})
    EXPECT_EQ(faultOf({"--default", "--plot", std::string("1=") + axes}),
              std::string("--plot takes two axes with a colon between them, X:Y, not \"") + axes +
                  "\"; a name with a colon stands in double quotes");
  EXPECT_EQ(faultOf({"--default", "--labels", "Town"}),
            "--labels goes with a file; the course's data sets have their own");
}

}  // namespace
}  // namespace tolmer
