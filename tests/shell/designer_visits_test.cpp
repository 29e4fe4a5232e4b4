// A student who comes back to the model designer again and again, from all sources of data.
#include <gmock/gmock.h>

#include "engine/fitted_equation.h"
#include "notebook/notebook_window.h"
#include "platform/outline.h"
#include "shell/display_checks.h"
#include "shell/shipped_program.h"
#include "support/designer_student.h"
#include "support/stand_in_editor.h"

namespace tolmer::test {
namespace {

constexpr int allActions = 200000;

class DesignerVisits : public ShippedProgram {
 protected:
  void SetUp() override {
    startWithDefaultExample();
    module.parts().editor = &editor;
    editor.onShow = [this] { typeData(); };
    desktop.onModal = [this](Window& window) {
      if (window.name() == "frmNotebook") return choosePage();
      if (window.name() == "frmModelDesign") return design(dynamic_cast<frmModelDesign&>(window));
      FAIL() << "unexpected window " << window.name();
    };
    desktop.onMessageBox = [this](const MessageBox& box) {
      titles.insert(box.title);
      return Answer::ok;
    };
  }

  int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }

  void visit() {
    const char* const commands[] = {"cmdChangeModel", "cmdShowNotebook", "cmdChangeDataSource"};
    user.click("frmControlPanel", commands[upTo(2)]);
    EXPECT_EQ(module.parts().panel.txtFittedModel.text(), fittedEquation(state()));
    expectSoundQuadrants(module.parts());
    expectFreshDisplays(module.parts());
  }

  // Examples, databases and the student's own data.
  void choosePage() {
    const int section = 3 + upTo(2);
    frmNotebook& book = module.parts().notebook.window();
    book.goTo(section, section == 5 ? 1 : 2 + upTo(1));
    if (section == 3) user.click("frmNotebook", "optScenario(" + std::to_string(upTo(1)) + ")");
    if (Outline* outline = shownOutline(book))
      outline->click(upTo(static_cast<int>(outline->items().size()) - 1));
    const bool usable = book.cmdOK.canBeUsed() && upTo(4) > 0;
    user.click("frmNotebook", usable ? "cmdOK" : "cmdCancel");
  }

  static Outline* shownOutline(Container& container) {
    for (Control* child : container.children()) {
      if (auto* outline = dynamic_cast<Outline*>(child); outline && outline->canBeUsed())
        return outline;
      if (auto* inner = dynamic_cast<Container*>(child))
        if (Outline* outline = shownOutline(*inner)) return outline;
    }
    return nullptr;
  }

  void design(frmModelDesign& designer) {
    DesignerStudent student(designer, static_cast<unsigned>(upTo(1 << 30)));
    const auto before = state().iModelCol;
    for (int action = 1 + upTo(400); action > 0; --action, ++actions) {
      student.act();
      ASSERT_NO_FATAL_FAILURE(expectSoundModel(designer));
    }
    if (upTo(1)) student.chooseModel();
    EXPECT_EQ(state().iModelCol, before);
    if (upTo(3) > 0) designer.cmdOK.click();
    if (designer.visible()) {
      EXPECT_EQ(state().iModelCol, before) << "refused or not yet told";
    } else if (state().bModelHasChanged) {
      EXPECT_EQ(state().iModelCol[1], designer.workingCopy().miDepVarCol);
      EXPECT_LE(state().iNumPredictors, state().iNumCases - 2) << "what the cases allow";
    }
    // Cancel may lead through the editor back to the designer.
    while (designer.visible()) designer.cmdCancel.click();
  }

  void typeData() {
    editor.cancelled = upTo(1) == 1;
    if (editor.cancelled) return;
    editor.cases = static_cast<Int16>(upTo(30));
    editor.variables.assign(static_cast<std::size_t>(upTo(8)), {});
    for (auto& variable : editor.variables) {
      variable.header = "Own " + std::to_string(&variable - editor.variables.data());
      for (int i = 0; i < editor.cases; ++i) variable.values.push_back(upTo(9));
    }
  }

  StandInEditor editor;
  std::set<std::string> titles;
  std::mt19937 random{4};
  int actions = 0;
};

TEST_F(DesignerVisits, LeaveTheDisplaysWithTheModelInForce) {
  while (actions < allActions) {
    visit();
    if (HasFailure()) FAIL() << "after " << actions << " actions";
  }
  EXPECT_GT(state().iCompletedFits, 300);
  // The designer's own refusals and, without a title, those of the fit; no other fault.
  EXPECT_THAT(titles,
              testing::IsSubsetOf({"", "Variable Selection Error", "Model Specification Error"}));
}

}  // namespace
}  // namespace tolmer::test
