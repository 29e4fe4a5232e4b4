#pragma once

#include <algorithm>
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
  std::vector<std::string> description;
  Int16 cases = 0;
  bool cancelled = false;
  std::function<void()> onShow;
  int shown = 0;

  StudentData studentData() const override {
    StudentData data{.miCompleteObs = cases,
                     .mbDataLabelsEntered = !labels.empty(),
                     .mdValue = Matrix<double>(cases, static_cast<int>(variables.size())),
                     .mtLabel = std::vector<std::string>(static_cast<std::size_t>(cases) + 1),
                     .mtVarHeader = {""},
                     .leftOut = {},
                     .description = description};
    std::ranges::copy(labels, data.mtLabel.begin() + 1);
    for (const Variable& variable : variables) {
      data.mtVarHeader.push_back(variable.header);
      const int column = static_cast<int>(data.mtVarHeader.size()) - 1;
      for (int i = 1; i <= cases; ++i)
        data.mdValue(i, column) = variable.values.at(static_cast<std::size_t>(i) - 1);
    }
    return data;
  }
  bool UserCancel() const override { return cancelled; }
  void ShowDataEditor() override {
    ++shown;
    if (onShow) onShow();
  }
};

}  // namespace tolmer::test
