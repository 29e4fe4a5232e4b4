// Every example and database of the shipped course, from its place in the notebook to a fit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/designer.h"
#include "notebook/notebook_window.h"
#include "shell/shipped_program.h"

namespace tolmer::test {
namespace {

constexpr int databasesSection = 4;  // where the student chooses the model

class WholeCourse : public ShippedProgram {
 protected:
  void SetUp() override { startWithDefaultExample(); }
  NoteBook& notebook() { return module.parts().notebook; }

  // The suggested dependent variable on the column beside it.
  static void chooseModel(frmModelDesign& designer, int dependent) {
    const int predictor = dependent > 1 ? dependent - 1 : 2;
    designer.spdVarList.press({dependent, 1});
    designer.cmdDepVarSelect.click();
    designer.spdVarList.press({predictor, 1});
    designer.cmdIndVarSelect.click();
  }

  // Any message box on the way fails the test.
  void openAndFit(int section, int page, int option, const Scenario& scenario) {
    SCOPED_TRACE(scenario.tName);
    const auto fits = state().iCompletedFits;
    script.window("frmNotebook", [&] {
      notebook().window().goTo(section, page);
      user.click("frmNotebook", "optScenario(" + std::to_string(option) + ")");
      user.click("frmNotebook", "cmdOK");
    });
    script.window("frmModelDesign", [&] {
      auto& designer = dynamic_cast<frmModelDesign&>(user.window("frmModelDesign"));
      if (section == databasesSection) chooseModel(designer, std::stoi(scenario.tParameter[7]));
      user.click("frmModelDesign", "cmdOK");
    });
    user.click("frmControlPanel", "cmdShowNotebook");
    script.finish();
    EXPECT_EQ(state().iCompletedFits, fits + 1);
    EXPECT_FALSE(state().Fit.bSingular);
    EXPECT_EQ(std::to_string(state().iNumCases), scenario.tParameter[5]);
  }
};

TEST_F(WholeCourse, LeadsFromEveryScenarioToAFit) {
  int opened = 0;
  const Book& book = notebook().book();
  for (int section = 1; section <= book.uSection.count(); ++section)
    for (int page = 1; page <= book.uSection[section].iNumPages; ++page) {
      const ScenarioElement list =
          book.uScenarioElement[notebook().page(section, page).iScenarioElement];
      for (int i = 0; i < list.iNumScenarios; ++i, ++opened)
        openAndFit(section, page, i, book.uScenario[list.iFirstScenario + i]);
    }
  EXPECT_EQ(opened, book.uScenario.count());
}

}  // namespace
}  // namespace tolmer::test
