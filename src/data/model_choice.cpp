#include "data/model_choice.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

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

// An entry of the model in force; before the first one there is no array.
Int16 modelColumn(const AnalysisState& state, int index) {
  const auto at = static_cast<std::size_t>(index);
  return at < state.iModelCol.size() ? state.iModelCol[at] : Int16{0};
}

bool sameModel(const WorkingCopy& copy, const AnalysisState& state) {
  if (copy.miNumPredictors != state.iNumPredictors || copy.miDepVarCol != modelColumn(state, 1))
    return false;
  for (int i = 1; i <= copy.miNumPredictors; ++i)
    if (copy.oiIndepVarCol(i) != modelColumn(state, i + 1)) return false;
  return true;
}

bool sameLabels(const WorkingCopy& copy, const AnalysisState& state) {
  if (!copy.mbLabeledData) return true;
  for (int i = 1; i <= copy.miNumCases; ++i)
    if (copy.otCaseLabel(i) != state.tCaseLabel[i]) return false;
  return true;
}

bool sameValues(const WorkingCopy& copy, const AnalysisState& state) {
  for (int i = 1; i <= copy.miNumCases; ++i)
    for (int j = 1; j <= copy.miNumCols; ++j)
      if (copy.osData(i, j) != state.sData(i, j)) return false;
  return true;
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

std::vector<Int16> columnsOfFormerModel(const WorkingCopy& copy, const AnalysisState& state) {
  std::vector<Int16> columns;
  for (int variable = 1; hasModel(state) && variable <= state.iNumPredictors + 1; ++variable) {
    Int16 column = 1;
    while (column <= copy.miNumCols && (std::ranges::count(columns, column) > 0 ||
                                        copy.otColName(column) != variableName(state, variable)))
      ++column;
    if (column > copy.miNumCols) return {};
    columns.push_back(column);
  }
  return columns;
}

void SpecifyModel(WorkingCopy& copy, const std::vector<Int16>& columns) {
  clearModel(copy);
  for (Int16 column = 1; column <= copy.miNumCols; ++column) copy.obIsIndepVar(column) = false;
  for (const Int16 column : columns) copy.obIsIndepVar(column) = column != columns.front();
  copy.miDepVarCol = columns.front();
  copy.mbDepVarSpecified = true;
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

void CheckForChanges(WorkingCopy& copy, const AnalysisState& state) {
  copy.mbModelHasChanged =
      !(describedData(copy) == describedData(state) && sameModel(copy, state) &&
        sameLabels(copy, state) && sameValues(copy, state) &&
        copy.origin.leftOut == state.uOrigin.leftOut && copy.origin.copy == state.uOrigin.copy);
}

void CheckModelSpec(WorkingCopy& copy) {
  copy.mtErrorMessage.clear();
  const auto require = [&](bool met, std::string_view sentence) {
    if (!met) copy.mtErrorMessage += sentence;
  };
  require(copy.mbDepVarSpecified, "No dependent variable was named. ");
  require(copy.miNumPredictors >= 1, "You need at least one independent variable. ");
  require(copy.miNumCases >= 3, "Sample size is too small for meaningful analysis. ");
  require(copy.miNumCases - copy.miNumPredictors - 1 >= 1,
          "Too many variables for this sample size. ");
  copy.mbModelOK = copy.mtErrorMessage.empty();
}

}  // namespace tolmer
