#include "report_fixture.h"

namespace tolmer {
namespace {

using test::Json;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class AxesByName : public test::ReportFixture {
 protected:
  // "x y" for each plot in the report, as its titles name them.
  std::vector<std::string> titles(const std::string& file, const std::vector<std::string>& plots) {
    std::vector<std::string> words = {file, "--y", "Rent"};
    for (const std::string& plot : plots) words.insert(words.end(), {"--plot", plot});
    const Json document = json(words);
    std::vector<std::string> found;
    for (const char* name : {"frmScatterPlot1", "frmScatterPlot2", "frmScatterPlot3"}) {
      const Json& plot = document["displays"][name];
      found.push_back(plot["bottomTitle"].text + " / " + plot["leftTitle"].text);
    }
    return found;
  }
};

// A plot that was drawn before it was activated would show another one's axes.
TEST_F(AxesByName, EachPlotHasItsOwnAxes) {
  EXPECT_THAT(titles(table, {}),
              ElementsAre("Fitted Rent / Residuals", "Rent / Fitted Rent", "Size / Rent"));
  EXPECT_THAT(titles(table, {"2=Age:Residuals", "1=Rent:Rent", "2=Entry:Fitted"}),
              ElementsAre("Rent / Rent", "Order of Entry / Fitted Rent", "Size / Rent"));
}

TEST_F(AxesByName, VariableGoesBeforeTheWordOfItsName) {
  const std::string file =
      write("words.csv",
            "Rent,Fitted,Residuals,\"a:b\",\"c=\"\"d\"\"\"\n1,9,3,4,7\n2,1,4,8,2\n"
            "4,3,1,2,5\n3,6,2,2,8\n7,2,9,4,5\n5,5,5,1,1\n8,7,0,3,2\n");
  EXPECT_THAT(titles(file, {"1=Fitted:Residuals", "2=\"a:b\":c=\"d\"", "3=Entry:\"c=\"\"d\"\"\""}),
              ElementsAre("Fitted / Residuals", "a:b / c=\"d\"", "Order of Entry / c=\"d\""));
}

TEST_F(AxesByName, FaultsListWhatThereIs) {
  const std::pair<const char*, const char*> cases[] = {
      {"1=Height:Rent",
       "--plot 1: there is no variable \"Height\"; for X there are Rent, Size, Fitted, Entry"},
      {"2=Size:Age",
       "--plot 2: the model has no variable \"Age\"; for Y there are Rent, Size, Fitted, "
       "Residuals"},
      {"3=Residuals:Rent", "--plot 3: residuals stand on the Y axis only; for X there are"},
      {"3=Rent:Entry", "--plot 3: the order of entry stands on the X axis only; for Y there are"}};
  for (const auto& [plot, text] : cases) {
    const auto outcome = report({table, "--y", "Rent", "--x", "Size", "--plot", plot});
    EXPECT_EQ(outcome.status, ReportOutcome::usageAtFault);
    EXPECT_THAT(outcome.errors, StartsWith("tolreport: " + std::string(text)));
  }
}

}  // namespace
}  // namespace tolmer
