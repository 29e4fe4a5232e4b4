#include "data/data_sources.h"

#include "course_folder.h"
#include "platform/headless/headless_desktop.h"
#include "support/stand_in_editor.h"

namespace tolmer {
namespace {

using test::CourseFolder;
using test::StandInEditor;
using test::StandInScenarios;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class DataSources : public testing::Test {
 protected:
  DataSources() {
    folder.write("rent.csv", "Town,Rent,Size,Age\nBern,9,3,20\nBasel,8,2,30\nChur,5,2,40\n");
    scenarios.last = {"\\data\\rent.csv", "\\data\\rent.inf", "True", "True", "3", "3", "2"};
  }
  WorkingCopy example() {
    WorkingCopy copy;
    LoadNewExample(copy, scenarios, folder.programFolder(), desktop);
    return copy;
  }

  CourseFolder folder;
  HeadlessDesktop desktop;
  StandInScenarios scenarios;
};

TEST_F(DataSources, ExampleComesWithAllOtherColumnsAsPredictors) {
  const WorkingCopy copy = example();
  EXPECT_THAT(desktop.boxes(), IsEmpty());
  EXPECT_EQ(copy.mtDataFileName, folder.file("rent.csv"));
  EXPECT_TRUE(copy.mbInfoAvailable);
  EXPECT_TRUE(copy.mbDepVarSpecified);
  EXPECT_EQ(copy.miDepVarCol, 2);
  EXPECT_EQ(copy.miNumPredictors, 2);
  EXPECT_THAT(copy.oiIndepVarCol.values(), ElementsAre(0, 1, 3, 0));
  EXPECT_THAT(copy.obIsIndepVar.values(), ElementsAre(false, true, false, true));
  EXPECT_EQ(copy.otCaseLabel(3), "Chur");
  EXPECT_EQ(copy.osData(3, 3), 40.0F);
}

TEST_F(DataSources, DefaultExampleHasParametersOfItsOwn) {
  scenarios.standard = {"\\data\\RENT.CSV", "", " false ", "1", " 2", "+3", "1"};
  WorkingCopy copy;
  LoadDefaultExample(copy, scenarios, folder.programFolder() + "/", desktop);
  EXPECT_THAT(desktop.boxes(), IsEmpty());
  EXPECT_EQ(copy.mtDataFileName, folder.file("rent.csv"));  // found in other case
  EXPECT_FALSE(copy.mbInfoAvailable);
  EXPECT_EQ(copy.miNumCases, 2);
  EXPECT_EQ(copy.miDepVarCol, 1);
}

TEST_F(DataSources, DatabaseLeavesTheModelToTheStudent) {
  WorkingCopy copy = example();
  scenarios.last[6] = "no column here";  // the seventh parameter is none of a database's
  LoadNewDatabase(copy, scenarios, folder.programFolder(), desktop);
  EXPECT_THAT(desktop.boxes(), IsEmpty());
  EXPECT_FALSE(copy.mbDepVarSpecified);
  EXPECT_EQ(copy.miDepVarCol, 0);
  EXPECT_EQ(copy.miNumPredictors, 0);
  EXPECT_THAT(copy.obIsIndepVar.values(), ElementsAre(false, false, false, false));
  EXPECT_EQ(copy.osData(1, 1), 9.0F);
}

TEST_F(DataSources, FaultyParameterIsNamedAndCountsAsNothing) {
  struct Case {
    std::size_t index;
    std::string value;
    std::string named;
  };
  for (const Case& test : {Case{2, "maybe", "Parameter 3 (variable information) is \"maybe\""},
                           Case{3, "", "Parameter 4 (case labels) is \"\""},
                           Case{4, "three", "Parameter 5 (number of cases) is \"three\""},
                           Case{4, "-3", "Parameter 5 (number of cases) is \"-3\""},
                           Case{5, "40000", "Parameter 6 (number of variables) is \"40000\""},
                           Case{6, "4", "Parameter 7 (dependent variable) is \"4\""}}) {
    const auto whole = scenarios.last;
    scenarios.last[test.index] = test.value;
    const auto before = desktop.boxes().size();
    const WorkingCopy copy = example();
    scenarios.last = whole;
    ASSERT_GT(desktop.boxes().size(), before) << test.named;
    EXPECT_THAT(desktop.boxes()[before].box.text, HasSubstr(test.named));
    EXPECT_EQ(desktop.boxes()[before].box.icon, MessageIcon::exclamation);
    EXPECT_GE(copy.miNumCases, 0);
    EXPECT_LE(copy.miDepVarCol, copy.miNumCols);
  }
}

TEST_F(DataSources, SizesThatNoFileCanHaveAskForNoMemory) {
  scenarios.last[4] = scenarios.last[5] = "32767";
  const WorkingCopy copy = example();
  EXPECT_EQ(copy.miNumCases, 0);
  EXPECT_THAT(desktop.boxes().at(0).box.text, HasSubstr("Parameters 5 and 6"));
}

TEST_F(DataSources, EditorColumnsOfZerosDisappearAndLaterOnesMoveLeft) {
  StandInEditor editor;
  editor.cases = 2;
  editor.variables = {{"Rent", {9, 8}},
                      {"Empty", {0, 0}},
                      {"Tiny", {1e-60, 0}},  // zero once it is a single
                      {"Size", {0, 0.1}}};
  WorkingCopy copy;
  copy.mtLabelColName = "Town";
  LoadFromDataEditor(copy, editor.studentData());
  EXPECT_EQ(copy.mtDataFileName, "None");
  EXPECT_EQ(copy.mtDataFileInfoName, "None");
  EXPECT_EQ(copy.mtLabelColName, "Town");
  EXPECT_FALSE(copy.mbLabeledData);
  EXPECT_EQ(copy.miNumCols, 2);
  EXPECT_THAT(copy.otColName.values(), ElementsAre("Intercept", "Rent", "Size"));
  EXPECT_THAT(copy.otCaseLabel.values(), ElementsAre("", "1", "2"));
  EXPECT_EQ(copy.osData.lastColumn(), 2);
  EXPECT_EQ(copy.osData(2, 0), 1.0F);
  EXPECT_EQ(copy.osData(2, 2), 0.1F);
  EXPECT_EQ(copy.oiVarCol.last(), 3);
}

}  // namespace
}  // namespace tolmer
