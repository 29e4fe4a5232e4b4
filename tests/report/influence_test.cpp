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

TEST_F(ReportOnCases, NewCasesHaveWordsOrNumbersWhereTheDataHadWords) {
  const std::string houses =
      write("h.csv",
            "Rent,Age,Town,Pets\n9,20,Bern,yes\n8,31,Zug,no\n7,12,Basel,yes\n"
            "6,44,Bern,no\n5,50,Zug,yes\n9,25,Basel,no\n4,61,Bern,yes\n");
  const auto predicted = [&](const char* bytes) {
    return report({houses, "--y", "Rent", "--dummies", "Town,Pets", "--x", "Age,Town,Pets",
                   "--sections", "predictions", "--predict", write("n.csv", bytes)});
  };
  const std::string words = predicted("Pets,Town,Age\nno,Zug,30\nyes,Bern,40\n").output;
  EXPECT_THAT(words, HasSubstr("Predictions"));
  EXPECT_EQ(words, predicted("Pets,Town,Age\n0,Zug,30\n1,Bern,40\n").output);
  EXPECT_EQ(words, predicted("Age,Pets,Town: Bern,Town: Zug\n30,0,0,1\n40,1,1,0\n").output);
  EXPECT_THAT(predicted("Pets,Town,Age\nno,Biel,30\n").errors,
              HasSubstr("\"Biel\" is no category of Town; these are Basel, Bern, Zug"));
  EXPECT_THAT(predicted("Pets,Age\nno,30\n").errors,
              HasSubstr("no column \"Town: Bern\" and none \"Town\""));
}

}  // namespace
}  // namespace tolmer
