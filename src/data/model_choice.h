// Choosing the variables of the model: what the student has marked in a list becomes the dependent
// variable or a set of independent ones. A column is never both.
#pragma once

#include <vector>

#include "base/message_box.h"
#include "data/working_copy.h"

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

void UnSpecifyDepVar(WorkingCopy& copy);

// Takes independent variables out; here rows are positions in the list of independent ones.
void UnSpecifyIndepVars(WorkingCopy& copy, const RowSelection& selection);

}  // namespace tolmer
