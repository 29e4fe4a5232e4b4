#include "report/model_by_name.h"

#include <algorithm>
#include <string>

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

constexpr const char* fittedWord = "Fitted";
constexpr const char* entryWord = "Entry";          // X only
constexpr const char* residualsWord = "Residuals";  // Y only

// What can be chosen for one axis, in the order of its list.
std::vector<std::string> choicesOf(const WorkingCopy& copy, const char* last) {
  std::vector<std::string> choices = {copy.otColName(copy.miDepVarCol)};
  for (int i = 1; i <= copy.miNumPredictors; ++i)
    choices.push_back(copy.otColName(copy.oiIndepVarCol(i)));
  choices.emplace_back(fittedWord);
  choices.emplace_back(last);
  return choices;
}

std::string listed(const std::vector<std::string>& choices) {
  std::string text;
  for (const std::string& choice : choices) text += (text.empty() ? "" : ", ") + choice;
  return text;
}

bool hasVariable(const WorkingCopy& copy, const std::string& name) {
  for (int j = 1; j <= copy.miNumCols; ++j)
    if (copy.otColName(j) == name) return true;
  return false;
}

std::string whyNot(const WorkingCopy& copy, const std::string& name) {
  if (name == residualsWord) return "residuals stand on the Y axis only";
  if (name == entryWord) return "the order of entry stands on the X axis only";
  return (hasVariable(copy, name) ? "the model has no variable \"" : "there is no variable \"") +
         name + "\"";
}

struct AxisChooser {
  const WorkingCopy& copy;

  Result<Int16> choose(const PlotRequest& request, bool isX) const {
    const std::vector<std::string> choices = choicesOf(copy, isX ? entryWord : residualsWord);
    const std::string& name = isX ? request.x : request.y;
    const auto found = std::find(choices.begin(), choices.end(), name);
    if (found != choices.end()) return static_cast<Int16>(found - choices.begin());
    return Error{"", "--plot " + std::to_string(request.plot) + ": " + whyNot(copy, name) +
                         "; for " + (isX ? "X" : "Y") + " there are " + listed(choices)};
  }
};

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

Result<std::vector<ChosenAxes>> chooseAxesByName(const WorkingCopy& copy,
                                                 const std::vector<PlotRequest>& requests) {
  const AxisChooser chooser{copy};
  std::vector<ChosenAxes> axes;
  for (const PlotRequest& request : requests) {
    const auto x = chooser.choose(request, true);
    if (!x) return x.error();
    const auto y = chooser.choose(request, false);
    if (!y) return y.error();
    axes.push_back({request.plot, *x, *y});
  }
  return axes;
}

}  // namespace tolmer
