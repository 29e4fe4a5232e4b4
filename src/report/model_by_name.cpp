#include "report/model_by_name.h"

namespace tolmer {
namespace {

std::string namesOf(const WorkingCopy& copy) {
  std::string names;
  for (int j = 1; j <= copy.miNumCols; ++j) names += (j > 1 ? ", " : "") + copy.otColName(j);
  return names;
}

// 0 where no variable has that name.
Int16 columnNamed(const WorkingCopy& copy, const std::string& name) {
  for (Int16 j = 1; j <= copy.miNumCols; ++j)
    if (copy.otColName(j) == name) return j;
  return 0;
}

Error unknownName(const WorkingCopy& copy, const std::string& name) {
  return {copy.mtDataFileName,
          "there is no variable \"" + name + "\"; the variables are " + namesOf(copy)};
}

std::optional<Error> chooseDependent(WorkingCopy& copy, const std::string& name) {
  if (!name.empty()) {
    copy.miDepVarCol = columnNamed(copy, name);
    if (copy.miDepVarCol == 0) return unknownName(copy, name);
  }
  copy.mbDepVarSpecified = copy.miDepVarCol > 0;
  if (copy.mbDepVarSpecified) return std::nullopt;
  return Error{copy.mtDataFileName, "--y is missing; the variables are " + namesOf(copy)};
}

std::optional<Error> choosePredictors(WorkingCopy& copy, const std::vector<std::string>& names) {
  for (int j = 1; j <= copy.miNumCols; ++j)
    copy.obIsIndepVar(j) = names.empty() && j != copy.miDepVarCol;
  for (const std::string& name : names) {
    const Int16 column = columnNamed(copy, name);
    if (column == 0) return unknownName(copy, name);
    if (column == copy.miDepVarCol)
      return Error{"", "\"" + name + "\" cannot explain itself: it is the dependent variable"};
    copy.obIsIndepVar(column) = true;
  }
  return std::nullopt;
}

}  // namespace

std::optional<Error> chooseModelByName(WorkingCopy& copy, const ReportOptions& options) {
  copy.mbUseIntercept = options.intercept;
  if (auto error = chooseDependent(copy, options.y)) return error;
  if (auto error = choosePredictors(copy, options.x)) return error;
  copy.miNumPredictors = listIndepVars(copy);
  if (copy.miNumPredictors > 0) return std::nullopt;
  return Error{copy.mtDataFileName, "there is no other variable to explain \"" +
                                        copy.otColName(copy.miDepVarCol) + "\" with"};
}

}  // namespace tolmer
