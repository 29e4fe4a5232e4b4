// What the host sets and reads.
#include <stdexcept>

#include "editor/data_editor.h"
#include "platform/desktop.h"

namespace tolmer {

void frmDataEditor::SetupEditor() {
  tfFileFilter();
  isSetUp_ = true;
  sheet_.Changed = nullptr;
  sheet_.startOver(setup_.MaxObservations, setup_.NumberVariables);
  InitialiseGrid();
  sheet_.Changed = [this](const SheetChange& change) { follow(change); };
}

std::string frmDataEditor::tfFileFilter() {
  std::string filter = tolmer::tfFileFilter(setup_.NumberVariables, desktop());
  if (filter.empty()) desktop().endProgram(1);
  return filter;
}

void frmDataEditor::checkVariable(int iVarNum) const {
  if (iVarNum < 0 || iVarNum > editorVariables) throw std::out_of_range("variable of the editor");
}

std::string frmDataEditor::VarHeader(int iVarNum) const {
  checkVariable(iVarNum);
  return iVarNum <= sheet_.variables() ? sheet_.heading(iVarNum) : std::string();
}

void frmDataEditor::setVarHeader(int iVarNum, const std::string& name) {
  checkVariable(iVarNum);
  if (iVarNum <= sheet_.variables()) sheet_.enter(0, iVarNum, name);
}

Int16 frmDataEditor::NumberDecimals(int iVarNum) const {
  checkVariable(iVarNum);
  return iVarNum <= sheet_.variables() ? sheet_.decimals(iVarNum) : Int16{0};
}

void frmDataEditor::setNumberDecimals(int iVarNum, Int16 digits) {
  checkVariable(iVarNum);
  if (iVarNum >= 1 && iVarNum <= sheet_.variables()) sheet_.setDecimals(iVarNum, digits);
  sheet_.markChanged();
}

std::string frmDataEditor::DataLabel(int iOb) const {
  return exit_.mtLabel.at(static_cast<std::size_t>(iOb));
}

double frmDataEditor::DataValue(int iVar, int iOb) const {
  if (iVar < 0 || iVar > sheet_.variables() || iOb < 1 || iOb > exit_.miCompleteObs)
    throw std::out_of_range("DataValue");
  return exit_.mdValue(iOb, iVar);
}

}  // namespace tolmer
