// Where a data set comes from: a scenario of the notebook (example or database) or the data editor.
// Each loader fills the working copy anew and leaves it complete.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/data_limits.h"
#include "base/message_box.h"
#include "data/working_copy.h"
#include "state/matrix.h"

namespace tolmer {

// The notebook as the loaders see it. Parameters count from 1:
//   1 data text file, below the parent of the program's folder
//   2 variable-information file, likewise
//   3 information file exists
//   4 cases have labels
//   5 number of cases
//   6 number of variables
//   7 column of the dependent variable, for an example
//   8 stamp of 1, and 9 of 2, where the notebook's compiler has written them
class ScenarioSource {
 public:
  virtual ~ScenarioSource() = default;
  virtual std::string LastScenarioParameter(int iIndex) const = 0;
  virtual std::string DefaultScenarioParameter(int iIndex) const = 0;
};

// The student's own data as the editor hands them over: its complete observations, below M.
// Observations and variables count from 1.
struct StudentData {
  int miCompleteObs = 0;
  bool mbDataLabelsEntered = false;      // also by the label of an incomplete case
  Matrix<double> mdValue;                // (0..M, 0..V) observation first
  std::vector<std::string> mtLabel;      // (0..M)
  std::vector<std::string> mtVarHeader;  // (0..V)
  std::vector<LeftOutCase> leftOut{};    // the incomplete ones
  // Title and source, and what the variables mean, (0..V) as mtVarHeader; empty where nothing of it
  // is known.
  std::vector<std::string> description{};
  std::optional<DataCopy> copy{};
};

// The data editor as the designer sees it.
class EditorData {
 public:
  static constexpr Int16 numberVariables = editorVariables;

  virtual ~EditorData() = default;
  // What the student left it with last; nothing where that was refused.
  virtual StudentData studentData() const = 0;
  virtual bool UserCancel() const = 0;
  // Shows the editor and returns when the student has left it.
  virtual void ShowDataEditor() = 0;
};

// A scenario's file name: the parent of the program's folder, the parameter as it stands behind it,
// both in the host's spelling.
std::string dataFileName(const std::string& programFolder, const std::string& tParameter);

// An example comes with a complete model: the dependent variable is told, all other columns are
// predictors. A parameter that is no number, or lies outside what a data set can have, is reported
// in a message box that names it and counts as 0 or False.
void LoadDefaultExample(WorkingCopy& copy, const ScenarioSource& scenarios,
                        const std::string& programFolder, MessagePort& messages);
void LoadNewExample(WorkingCopy& copy, const ScenarioSource& scenarios,
                    const std::string& programFolder, MessagePort& messages);

// A database comes without a model.
void LoadNewDatabase(WorkingCopy& copy, const ScenarioSource& scenarios,
                     const std::string& programFolder, MessagePort& messages);

// The editor's complete observations, without a model. A variable whose values are all zero is left
// out and the next ones move left. Labels not typed are the case numbers. mtLabelColName keeps
// what it held. A description stands in the place of a variable-information file.
void LoadFromDataEditor(WorkingCopy& copy, const StudentData& data);

}  // namespace tolmer
