#include "data/model_choice.h"

#include <algorithm>
#include <string>

namespace tolmer {
namespace {

template <class Visit>
void visitRows(const RowSelection& selection, Visit visit) {
  if (selection.blocks.empty()) {
    visit(selection.activeRow);
    return;
  }
  for (const RowRange& block : selection.blocks)
    for (int row = block.first; row <= block.last; ++row) visit(row);
}

struct Candidates {
  int count = 0;
  Int16 last = 0;
};

// A block counts as a whole or not at all: its last row decides, not the row looked at.
Candidates dependentCandidates(const WorkingCopy& copy, const RowSelection& selection) {
  RowSelection inside{{}, selection.activeRow};
  for (const RowRange& block : selection.blocks)
    if (block.last <= copy.miNumCols) inside.blocks.push_back(block);
  Candidates found;
  if (inside.blocks.empty() && !selection.blocks.empty()) return found;
  visitRows(inside, [&](int row) {
    if (row < 1 || row > copy.miNumCols) return;
    ++found.count;
    found.last = static_cast<Int16>(row);
  });
  return found;
}

// What speaks against the candidates; empty where nothing does.
std::string refusal(const WorkingCopy& copy, const Candidates& found) {
  if (found.count == 0) return "You have specified no dependent variable.";
  if (found.count > 1) return "Only one dependent variable can be specified.";
  if (copy.obIsIndepVar(found.last))
    return "The specified variable is already an independent variable.";
  return {};
}

}  // namespace

void SpecifyDepVar(WorkingCopy& copy, const RowSelection& selection, MessagePort& messages) {
  const Candidates found = dependentCandidates(copy, selection);
  const std::string objection = refusal(copy, found);
  copy.mbNewDepVarOK = objection.empty();
  if (copy.mbNewDepVarOK)
    copy.miDepVarCol = found.last;
  else
    messages.messageBox(
        {"Variable Selection Error", objection, MessageIcon::critical, MessageButtons::ok});
}

void SpecifyIndepVars(WorkingCopy& copy, const RowSelection& selection) {
  visitRows(selection, [&](int row) {
    if (row < 1 || row > copy.miNumCols || row == copy.miDepVarCol) return;
    copy.obIsIndepVar(row) = true;
  });
  copy.miNumPredictors = listIndepVars(copy);
}

void UnSpecifyDepVar(WorkingCopy& copy) {
  copy.mbDepVarSpecified = false;
  copy.miDepVarCol = 0;
}

void UnSpecifyIndepVars(WorkingCopy& copy, const RowSelection& selection) {
  visitRows(selection, [&](int row) {
    if (row < 1 || row > copy.miNumPredictors) return;
    copy.obIsIndepVar(copy.oiIndepVarCol(row)) = false;
  });
  copy.miNumPredictors = listIndepVars(copy);
}

}  // namespace tolmer
