#include "data/model_choice.h"

#include "platform/headless/headless_desktop.h"

namespace tolmer {
namespace {

using ::testing::ElementsAre;

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

TEST_F(ModelChoice, OneRowBecomesTheDependentVariable) {
  SpecifyDepVar(copy, {{}, 3}, desktop);
  EXPECT_TRUE(copy.mbNewDepVarOK);
  EXPECT_EQ(copy.miDepVarCol, 3);
  SpecifyDepVar(copy, {{{5, 5}}, 1}, desktop);  // a block goes before the active cell
  EXPECT_EQ(copy.miDepVarCol, 5);
  EXPECT_TRUE(desktop.boxes().empty());
}

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
