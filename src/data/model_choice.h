// Choosing the variables of the model: what the student has marked in a list becomes the dependent
// variable or a set of independent ones. A column is never both. Is the model then another one than
// that in force, and can it be fitted?
#pragma once

#include <vector>

#include "base/message_box.h"
#include "data/working_copy.h"
#include "state/analysis_state.h"

namespace tolmer {

// Rows first..last of a list, counted from 1.
struct RowRange {
  int first = 0;
  int last = 0;
};

// What is marked in a list: blocks of rows, or without any the row of the active cell alone.
struct RowSelection {
  std::vector<RowRange> blocks;
  int activeRow = 0;
};

// Takes the one marked variable as miDepVarCol and sets mbNewDepVarOK. None, several or one that is
// already independent: a message box, mbNewDepVarOK False, the choice in force stays. A block that
// reaches below the last variable counts for nothing at all.
void SpecifyDepVar(WorkingCopy& copy, const RowSelection& selection, MessagePort& messages);

// Adds the marked variables to the independent ones, without a word on the dependent one and on
// rows below the last variable, which are passed over one by one.
void SpecifyIndepVars(WorkingCopy& copy, const RowSelection& selection);

// The columns of the data that bear the names of the variables of the model in force, the dependent
// one first; empty where one of them is missing or there is no model.
std::vector<Int16> columnsOfFormerModel(const WorkingCopy& copy, const AnalysisState& state);
// Takes these in place of what is chosen.
void SpecifyModel(WorkingCopy& copy, const std::vector<Int16>& columns);

void UnSpecifyDepVar(WorkingCopy& copy);

// Takes independent variables out; here rows are positions in the list of independent ones.
void UnSpecifyIndepVars(WorkingCopy& copy, const RowSelection& selection);

// Sets mbModelHasChanged where the working copy differs from the shared state in intercept, sizes,
// files, flags, label heading, model, labels or any value. Names and definitions of variables do
// not count. Values are compared because data of the editor all carry the same file name.
void CheckForChanges(WorkingCopy& copy, const AnalysisState& state);

// Sets mbModelOK, and mtErrorMessage to one sentence with a blank behind it for each thing that is
// missing. Degrees of freedom are counted as with an intercept, whether there is one or not.
void CheckModelSpec(WorkingCopy& copy);

}  // namespace tolmer
