// Influence and predictions in the report, and what is told where there are none.
#include "report_fixture.h"

namespace tolmer {
namespace {

using test::Json;
using ::testing::HasSubstr;
using ::testing::Not;

class ReportOnCases : public test::ReportFixture {
 protected:
  const std::string fresh = write("new.csv", "Age,Size,Other\n10,60,x\n10,9000,y\n");
};

TEST_F(ReportOnCases, JsonHasThemForEachCaseAndNullAfterAFailedFit) {
  const Json document = json({table, "--y", "Rent", "--predict", fresh});
  for (const char* key : {"leverage", "internal", "studentized", "cooks", "dffits"})
    EXPECT_EQ(document["influence"][key].items.size(), 10U) << key;
  ASSERT_EQ(document["predictions"].items.size(), 2U);
  EXPECT_EQ(document["predictions"][1]["extrapolates"].text, "true");
  EXPECT_EQ(document["predictions"][1]["outside"][0].text, "Size");
  const std::string twins = write("twins.csv", "Y,A,B\n1,1,1\n3,2,2\n2,3,3\n5,4,4\n4,5,5\n");
  const std::string text =
      output({twins, "--y", "Y", "--predict", write("n.csv", "A,B\n1,2\n")}, "json");
  EXPECT_THAT(
      text,
      HasSubstr("\"influence\": null,\n  \"leavingOneOut\": null,\n  \"predictions\": null\n"));
  EXPECT_THAT(output({table, "--y", "Rent"}, "json"), Not(HasSubstr("\"predictions\"")));
}

TEST_F(ReportOnCases, SectionsStandWhereTheyAreAskedFor) {
  for (const char* format : {"text", "markdown", "html"}) {
    EXPECT_THAT(output({table, "--y", "Rent"}, format), Not(HasSubstr("Influence of the Cases")));
    const std::string both = output(
        {table, "--y", "Rent", "--sections", "equation,influence", "--predict", fresh}, format);
    EXPECT_THAT(both, HasSubstr("confirmed"));  // the equation's notes
    EXPECT_THAT(both, HasSubstr("The largest leverage is "));
    EXPECT_THAT(both, HasSubstr("Case 2: Outside the data: Size "));
  }
}

TEST_F(ReportOnCases, FaultsOfTheTableOfNewCasesSayWhere) {
  const auto fault = [&](const char* bytes) {
    return report({table, "--y", "Rent", "--predict", write("bad.csv", bytes)}).errors;
  };
  EXPECT_THAT(fault("Size\n60\n70\n"), HasSubstr("bad.csv: there is no column \"Age\""));
  EXPECT_THAT(fault("Size,Age\n60,3\n70,\n"), HasSubstr("bad.csv: row 2 has a gap in Age"));
  EXPECT_THAT(report({table, "--y", "Rent", "--sections", "predictions"}).errors,
              HasSubstr("wants --predict"));
  EXPECT_THAT(report({table, "--y", "Rent", "--predict", fresh, "--format", "r"}).errors,
              HasSubstr("not for a script for R"));
}

}  // namespace
}  // namespace tolmer
