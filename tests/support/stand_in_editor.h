#pragma once

#include <functional>
#include <string>
#include <vector>

#include "data/data_sources.h"

namespace tolmer::test {

// An editor with variables of equal length; observations and variables count from 1.
class StandInEditor : public EditorData {
 public:
  struct Variable {
    std::string header;
    std::vector<double> values;
  };
  std::vector<Variable> variables;
  std::vector<std::string> labels;
  Int16 cases = 0;
  bool cancelled = false;
  std::function<void()> onShow;
  int shown = 0;

  Int16 CompleteObservations() const override { return cases; }
  bool DataLabelsEntered() const override { return !labels.empty(); }
  std::string DataLabel(int iOb) const override {
    const auto at = static_cast<std::size_t>(iOb) - 1;
    return at < labels.size() ? labels[at] : std::string();
  }
  double DataValue(int iVar, int iOb) const override {
    const auto at = static_cast<std::size_t>(iVar) - 1;
    return at < variables.size() ? variables[at].values.at(static_cast<std::size_t>(iOb) - 1) : 0;
  }
  std::string VarHeader(int iVarNum) const override {
    const auto at = static_cast<std::size_t>(iVarNum) - 1;
    return at < variables.size() ? variables[at].header : std::string();
  }
  bool UserCancel() const override { return cancelled; }
  void ShowDataEditor() override {
    ++shown;
    if (onShow) onShow();
  }
};

}  // namespace tolmer::test
