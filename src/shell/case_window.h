// The selected cases beside the work.
#pragma once

#include <functional>
#include <string>

#include "insight/case_account.h"
#include "platform/buttons.h"
#include "platform/grid/grid.h"
#include "platform/labels.h"
#include "platform/panels.h"
#include "platform/window.h"

namespace tolmer {

// A window of its own that waits for nobody, with a page on the selected cases and one on all. The
// buttons keep their places whatever the pages hold.
class frmCase : public Window {
 public:
  explicit frmCase(Desktop& desktop);

  // What it says from now on; whether it is on the screen stays as it is. `names` as a heading.
  void setCases(const std::string& names, int count, const CaseAccount& account);
  // Says how to select one.
  void setNoCases();
  void setAllCases(const AllCases& about);
  // Comes to the screen, or to its front.
  void open();

  enum class Step { first, previous, next, none };
  std::function<void(Step)> step;
  std::function<void()> selectFarthest;
  std::function<void(bool)> showInCopies;

  OptionButton optSelected{this, "optSelected", "&Selected cases"};
  OptionButton optAll{this, "optAll", "&All cases"};
  Label lblCases{this, "lblCases"};
  Button cmdFirst{this, "cmdFirst", "&First"};
  Button cmdPrevious{this, "cmdPrevious", "&Previous"};
  Button cmdNext{this, "cmdNext", "&Next"};
  Button cmdNone{this, "cmdNone", "N&one"};
  Panel pnlSelected{this, "pnlSelected"};
  Label lblHow{&pnlSelected, "lblHow"};
  Grid spdValues{&pnlSelected, "spdValues"};
  Label lblWithout{&pnlSelected, "lblWithout"};
  Label lblSentences{&pnlSelected, "lblSentences"};
  Grid spdWithout{&pnlSelected, "spdWithout"};
  Panel pnlAll{this, "pnlAll"};
  Label lblSpreadTitle{&pnlAll, "lblSpreadTitle", "Spread of the residuals"};
  Label lblSpread{&pnlAll, "lblSpread"};
  Label lblLeveragesTitle{&pnlAll, "lblLeveragesTitle", "Leverages"};
  Label lblLeverages{&pnlAll, "lblLeverages"};
  Label lblFarthest{&pnlAll, "lblFarthest"};
  CheckBox chkCopies{this, "chkCopies", "Show selected cases in &copies and reports"};
  Button cmdHelp{this, "cmdHelp", "&Help"};
  Button cmdClose{this, "cmdClose", "Close"};

 private:
  void designLooks();
  void wireEvents();
  void placeAll();
  Twips placeSelected();
  Twips placeAllCases();
  Twips placeTable(Grid& grid, Twips top, Twips most);

  bool isPlaced_ = false;
};

}  // namespace tolmer
