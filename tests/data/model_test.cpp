// The choice of a model, its check, and its way into the analysis.
#include <functional>

#include "course_folder.h"
#include "data/model_choice.h"
#include "data/working_copy.h"
#include "platform/headless/headless_desktop.h"

namespace tolmer {
namespace {

using ::testing::ElementsAre;

// Four labelled cases of three variables; the second on the other two.
WorkingCopy rents() {
  WorkingCopy copy = test::dataSet(4, 3, true);
  copy.mtDataFileName = "rent.csv";
  copy.mtDataFileInfoName = "rent.inf";
  copy.mbInfoAvailable = copy.mbUseIntercept = true;
  copy.otVarInfo.setValues({"Rents of flats", "rooms", "francs", "years"});
  copy.miDepVarCol = 2;
  copy.mbDepVarSpecified = true;
  copy.obIsIndepVar(1) = copy.obIsIndepVar(3) = true;
  copy.miNumPredictors = listIndepVars(copy);
  return copy;
}

bool changed(const WorkingCopy& accepted, WorkingCopy now) {
  AnalysisState state;
  CopyModuleVarsToGlobal(accepted, state);
  CheckForChanges(now, state);
  return now.mbModelHasChanged;
}

TEST(ModelCheck, WhatCountsAsAChange) {
  const std::vector<std::function<void(WorkingCopy&)>> changes = {
      [](WorkingCopy& copy) { copy.mbUseIntercept = false; },
      [](WorkingCopy& copy) { copy.miNumCases = 3; },
      [](WorkingCopy& copy) { copy.miNumCols = 2; },
      [](WorkingCopy& copy) { copy.mtDataFileName = "other.csv"; },
      [](WorkingCopy& copy) { copy.mtDataFileInfoName = "other.inf"; },
      [](WorkingCopy& copy) { copy.mbLabeledData = false; },
      [](WorkingCopy& copy) { copy.mbInfoAvailable = false; },
      [](WorkingCopy& copy) { copy.mtLabelColName = "City"; },
      [](WorkingCopy& copy) { copy.miNumPredictors = 1; },
      [](WorkingCopy& copy) { copy.miDepVarCol = 0; },
      [](WorkingCopy& copy) { copy.oiIndepVarCol(2) = 2; },
      [](WorkingCopy& copy) { copy.otCaseLabel(4) = "Dornach"; },
      [](WorkingCopy& copy) { copy.osData(4, 3) += 1e-6F; },
      [](WorkingCopy& copy) {
        copy.origin.leftOut = {{5, "Muttenz", "a gap in francs"}};
      }};
  const WorkingCopy accepted = rents();
  EXPECT_FALSE(changed(accepted, accepted));
  for (std::size_t i = 0; i < changes.size(); ++i) {
    WorkingCopy now = accepted;
    changes[i](now);
    EXPECT_TRUE(changed(accepted, now)) << "change " << i;
  }
}

TEST(ModelCheck, NamesAndDefinitionsAreNoChange) {
  WorkingCopy accepted = rents();
  WorkingCopy now = accepted;
  now.otColName(1) = "Rooms";
  now.otVarInfo(1) = "number of rooms";
  EXPECT_FALSE(changed(accepted, now));
  // Labels count only while the data set has any of its own.
  accepted.mbLabeledData = now.mbLabeledData = false;
  now.otCaseLabel(1) = "1";
  EXPECT_FALSE(changed(accepted, now));
}

TEST(ModelCheck, EverySentenceInItsOrder) {
  const std::string noDependent = "No dependent variable was named. ";
  const std::string noPredictor = "You need at least one independent variable. ";
  const std::string fewCases = "Sample size is too small for meaningful analysis. ";
  const std::string manyVariables = "Too many variables for this sample size. ";
  struct Case {
    bool dependent;
    Int16 predictors;
    Int16 cases;
    std::string text;
  };
  for (const Case& test :
       {Case{true, 1, 3, ""}, Case{true, 2, 3, manyVariables},
        Case{true, 1, 2, fewCases + manyVariables}, Case{false, 1, 9, noDependent},
        Case{true, 0, 9, noPredictor}, Case{true, -1, 9, noPredictor},
        Case{false, 0, 2, noDependent + noPredictor + fewCases},
        Case{false, 0, 1, noDependent + noPredictor + fewCases + manyVariables}}) {
    WorkingCopy copy;
    copy.mbDepVarSpecified = test.dependent;
    copy.miNumPredictors = test.predictors;
    copy.miNumCases = test.cases;
    CheckModelSpec(copy);
    EXPECT_EQ(copy.mtErrorMessage, test.text);
    EXPECT_EQ(copy.mbModelOK, test.text.empty());
    EXPECT_FALSE(copy.mbUseIntercept);  // degrees of freedom count it all the same
  }
}

TEST(ModelTransfer, ThereAndBackIsTheSameModel) {
  const WorkingCopy copy = rents();
  AnalysisState state;
  CopyModuleVarsToGlobal(copy, state);
  EXPECT_TRUE(state.bModelHasChanged);
  EXPECT_THAT(state.iModelCol, testing::ElementsAre(0, 2, 1, 3, 0));
  EXPECT_THAT(state.tVarName,
              testing::ElementsAre("Intercept", "Variable 1", "Variable 2", "Variable 3"));
  EXPECT_THAT(state.tVarDesc, testing::ElementsAre("Rents of flats", "rooms", "francs", "years"));
  EXPECT_EQ(state.sData, copy.osData);

  WorkingCopy back;
  CopyGlobalVarsToModule(back, state);
  EXPECT_TRUE(back.mbDepVarSpecified);
  EXPECT_EQ(back.otCaseLabel.values(), copy.otCaseLabel.values());
  EXPECT_EQ(back.obIsIndepVar.values(), copy.obIsIndepVar.values());
  EXPECT_EQ(back.otVarInfo.values(), copy.otVarInfo.values());
  EXPECT_FALSE(changed(copy, back));
}

// Five variables, none chosen.
class ModelChoice : public testing::Test {
 protected:
  ModelChoice() {
    copy.miNumCols = 5;
    DimensionModelDesignerArrays(copy);
  }
  void expectRefusal(const RowSelection& selection, const std::string& text) {
    const auto before = desktop.boxes().size();
    const Int16 column = copy.miDepVarCol;
    SpecifyDepVar(copy, selection, desktop);
    ASSERT_EQ(desktop.boxes().size(), before + 1);
    const MessageBox& box = desktop.boxes().back().box;
    EXPECT_EQ(box.text, text);
    EXPECT_EQ(box.title, "Variable Selection Error");
    EXPECT_EQ(box.icon, MessageIcon::critical);
    EXPECT_FALSE(copy.mbNewDepVarOK);
    EXPECT_EQ(copy.miDepVarCol, column);
  }
  std::vector<Int16> chosen() const {
    const auto& list = copy.oiIndepVarCol.values();
    return {list.begin() + 1, list.begin() + 1 + copy.miNumPredictors};
  }

  WorkingCopy copy;
  HeadlessDesktop desktop;
};

TEST_F(ModelChoice, DependentVariableIsRefusedWithTheReason) {
  copy.miDepVarCol = 1;
  copy.obIsIndepVar(2) = true;
  expectRefusal({{}, 6}, "You have specified no dependent variable.");
  expectRefusal({{}, 0}, "You have specified no dependent variable.");
  expectRefusal({{{5, 7}}, 1}, "You have specified no dependent variable.");  // not even row 5
  expectRefusal({{}, 2}, "The specified variable is already an independent variable.");
  expectRefusal({{{3, 5}}, 3}, "Only one dependent variable can be specified.");
  expectRefusal({{{3, 3}, {5, 5}}, 3}, "Only one dependent variable can be specified.");
  // Of two blocks the one that reaches below the last variable counts for nothing.
  SpecifyDepVar(copy, {{{3, 3}, {5, 9}}, 1}, desktop);
  EXPECT_EQ(copy.miDepVarCol, 3);
}

TEST_F(ModelChoice, IndependentVariablesAreAscendingWhateverTheOrder) {
  copy.miDepVarCol = 3;
  SpecifyIndepVars(copy, {{{4, 9}, {2, 3}}, 1});  // rows below the last one are passed over
  EXPECT_THAT(chosen(), ElementsAre(2, 4, 5));
  SpecifyIndepVars(copy, {{}, 1});
  EXPECT_THAT(chosen(), ElementsAre(1, 2, 4, 5));
  SpecifyIndepVars(copy, {{}, 3});  // the dependent one: nothing happens
  EXPECT_EQ(copy.miNumPredictors, 4);
}

TEST_F(ModelChoice, TakenOutByTheirPlacesInTheOldList) {
  SpecifyIndepVars(copy, {{{1, 5}}, 1});
  UnSpecifyIndepVars(copy, {{{1, 2}, {4, 8}}, 1});
  EXPECT_THAT(chosen(), ElementsAre(3));
  UnSpecifyIndepVars(copy, {{}, 2});  // below the list
  EXPECT_THAT(chosen(), ElementsAre(3));
  UnSpecifyIndepVars(copy, {{}, 1});
  EXPECT_TRUE(chosen().empty());
}

}  // namespace
}  // namespace tolmer
