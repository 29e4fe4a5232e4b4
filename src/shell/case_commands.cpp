#include "shell/case_commands.h"

#include <algorithm>
#include <utility>

#include "displays/case_words.h"

namespace tolmer {

CaseCommands::CaseCommands(ShellParts& parts) : parts_(parts) {
  parts_.cases.changed = [this] { showSelection(); };
  parts_.frame.mnuExploreCase.Click = [this] { open(); };
  parts_.frame.takeKey(
      {keys::escape, Held::no, Held::no, Held::no}, [this] { parts_.cases.clear(); },
      [this] { return !parts_.cases.empty(); });
  frmCase& window = parts_.caseWindow;
  window.step = [this](frmCase::Step what) { step(what); };
  // Until the fit has been looked at, those of the fit before are offered still.
  window.selectFarthest = [this] {
    if (parts_.notes.examination()) parts_.cases.select(farthest_);
  };
  window.showInCopies = [this](bool bShow) { parts_.cases.isShownInCopies = bShow; };
}

void CaseCommands::follow() { parts_.cases.follow(parts_.state); }

// What stands in the window is replaced once the fit has been looked at, a moment after it stands.
void CaseCommands::followFit() {
  if (parts_.caseWindow.visible() && parts_.notes.examination()) fillWindow();
}

void CaseCommands::open() {
  fillWindow();
  parts_.caseWindow.open();
}

void CaseCommands::showSelection() {
  parts_.displays.showCases();
  if (parts_.caseWindow.visible()) fillSelected();
}

void CaseCommands::fillWindow() {
  fillSelected();
  parts_.notes.notes();
  const Examination* known = parts_.notes.wholeExamination();
  if (!known) return parts_.caseWindow.setAllCases({});
  AllCases about = onAllCases(parts_.state, known->data, validFit(parts_.state, *known));
  parts_.caseWindow.setAllCases(about);
  farthest_ = std::move(about.farthest);
}

void CaseCommands::fillSelected() {
  const std::vector<int>& cases = parts_.cases.cases();
  if (cases.empty()) return parts_.caseWindow.setNoCases();
  parts_.notes.notes();
  const Examination* known = parts_.notes.wholeExamination();
  if (!known) return;
  parts_.caseWindow.setCases(
      namesOfCases(parts_.state, cases), static_cast<int>(cases.size()),
      accountOf(parts_.state, known->data, validFit(parts_.state, *known), cases));
}

void CaseCommands::step(frmCase::Step what) {
  using Step = frmCase::Step;
  if (what == Step::none) return parts_.cases.clear();
  const int last = parts_.state.iNumCases;
  const int current = parts_.cases.current();
  const int to = what == Step::first  ? 1
                 : what == Step::next ? current + 1
                 : current == 0       ? last
                                      : current - 1;
  if (isAnalysed(parts_.state)) parts_.cases.select({std::clamp(to, 1, last)});
}

}  // namespace tolmer
