// The fits of a run, held against each other and taken up again.
#include "shell/models_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/data_limits.h"
#include "data/designer.h"
#include "shell/shipped_program.h"
#include "support/layout_check.h"

namespace tolmer::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ModelsOnTheScreen : public ShippedProgram {
 protected:
  ModelsOnTheScreen() { startWithDefaultExample(); }
  ShellParts& parts() { return module.parts(); }
  frmModels& window() { return parts().modelsWindow; }
  void fit() {
    parts().analysis.RunAnalysis();
    desktop.advance(1000);
  }
  void fitWithout(const std::string& predictor) {
    script.window("frmModelDesign", [&] {
      auto& designer = dynamic_cast<frmModelDesign&>(*desktop.modalWindow());
      for (int row = 1; row <= designer.workingCopy().miNumPredictors; ++row)
        if (designer.spdIndepVars.text(row, 2) == predictor)
          designer.spdIndepVars.select({row, 1, row, 2});
      user.click("frmModelDesign", "cmdIndVarDeselect");
      user.click("frmModelDesign", "cmdOK");
    });
    user.click("frmControlPanel", "cmdChangeModel");
    script.finish();
    desktop.advance(1000);
  }
};

TEST_F(ModelsOnTheScreen, AreComparedWithTheOneBeforeAndTakenUpAgain) {
  desktop.advance(1000);
  user.menu("mdiReg", "Explore/Compare Models...");
  EXPECT_THAT(window().txtWords.text(), StartsWith("Fit another model"));
  EXPECT_EQ(layoutFaults(window()), "");
  fitWithout("AcidConc");
  EXPECT_EQ(window().spdModels.maxRows(), 3);
  EXPECT_EQ(window().cboSecond.items()[1], "2  stakloss: StackLoss on AirFlow and WaterTemp");
  EXPECT_THAT(
      window().txtWords.text(),
      StartsWith("Dropping AcidConc lowered the largest VIF from 2.9 to 2.6; R-squared fell "
                 "by 0.005.\nThe data do not show that AcidConc explains more than chance "
                 "would (partial F = 0.95 with 1 and 17 degrees of freedom, P = 0.344)."));
  EXPECT_EQ(window().spdTerms.text(5, 1) + window().spdTerms.text(5, 4), "AcidConc---");
  EXPECT_FALSE(window().cmdTakeUp.enabled());
  window().spdModels.select({2, 1, 2, 12});
  user.click("frmModels", "cmdTakeUp");
  desktop.advance(1000);
  EXPECT_EQ(state().iNumPredictors, 3);
  EXPECT_EQ(window().spdModels.maxRows(), 3) << "it is in the list already";
  EXPECT_EQ(window().spdModels.text(2, 12), "yes");
  EXPECT_THAT(window().txtWords.text(), StartsWith("Adding AcidConc raised the largest VIF "));
  window().spdModels.select({3, 1, 3, 12});
  user.click("frmModels", "cmdTakeUp");
  desktop.advance(1000);
  EXPECT_EQ(state().iNumPredictors, 2);
  user.click("frmModels", "cmdCopy");
  EXPECT_THAT(desktop.clipboard().text,
              HasSubstr("First: 1  stakloss: StackLoss on AirFlow, WaterTemp"));
}

TEST_F(ModelsOnTheScreen, SayWhyOneCannotBeTakenUpAndWhatIsKeptNoMore) {
  desktop.advance(1000);
  AnalysisState& changed = parts().state;
  changed.sData(1, 2) += 1;
  fit();
  user.menu("mdiReg", "Explore/Compare Models...");
  window().spdModels.select({2, 1, 2, 12});
  EXPECT_FALSE(window().cmdTakeUp.enabled());
  EXPECT_THAT(window().lblTakeUp.caption(), HasSubstr("other values in them"));
  EXPECT_THAT(window().txtWords.text(), HasSubstr("different values of the same variables"));
  for (int i = 0; i < mostKeptModels; ++i) {
    changed.sData(1, 2) += 1;
    fit();
  }
  EXPECT_THAT(window().lblModels.caption(),
              "The last 100 completed fits of this run; 2 earlier ones are kept no more:");
  EXPECT_THAT(window().cboFirst.items().front(), StartsWith("3  stakloss"));
  EXPECT_EQ(layoutFaults(window()), "");
}

}  // namespace
}  // namespace tolmer::test
