// The completed fits of the run, two of them side by side.
#pragma once

#include <functional>

#include "insight/model_comparison.h"
#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/grid/grid.h"
#include "platform/labels.h"
#include "platform/window.h"
#include "state/analysis_state.h"
#include "tables/table_content.h"

namespace tolmer {

// A window of its own that waits for nobody.
class frmModels : public Window {
 public:
  frmModels(Desktop& desktop, const AnalysisState& state);

  // Another fit stands: the record of it, or null where it is not known (yet) or has failed. The
  // second of the two models is then this one, and the first the one before it, unless the user has
  // chosen another.
  void follow(const ModelRecord* present);
  // Comes to the screen, or to its front.
  void open();

  const ModelHistory& models() const { return models_; }

  // The user wants that model again; the present data have its columns.
  std::function<void(const ModelRecord&)> takeUp;

  Label lblModels{this, "lblModels"};
  Grid spdModels{this, "spdModels"};
  Button cmdTakeUp{this, "cmdTakeUp", "&Take Up Again"};
  Label lblTakeUp{this, "lblTakeUp"};
  Label lblFirst{this, "lblFirst", "&First model:"};
  ComboBox cboFirst{this, "cboFirst"};
  Label lblSecond{this, "lblSecond", "&Second model:"};
  ComboBox cboSecond{this, "cboSecond"};
  Grid spdTerms{this, "spdTerms"};
  TextBox txtWords{this, "txtWords"};
  Button cmdCopy{this, "cmdCopy", "C&opy"};
  Button cmdHelp{this, "cmdHelp", "&Help"};
  Button cmdClose{this, "cmdClose", "Close"};

 private:
  void wire();
  void place();
  void placeControls();
  void showAll();
  void showList();
  void showChoices();
  void showComparison();
  void showWhyNot();
  void choose(const ComboBox& box, int& number);
  void copy();

  const AnalysisState& state_;
  ModelHistory models_;
  TableContent terms_;
  // Numbers of fits; 0 for none.
  int present_ = 0;
  int lastPresent_ = 0;         // also while there is none
  int marked_ = 0;              // in the list
  int first_ = 0, second_ = 0;  // that are compared
  bool isFirstChosen_ = false;  // by the user
  bool showing_ = false;        // the program, not the user, sets marks and choices
  bool isPlaced_ = false;
};

}  // namespace tolmer
