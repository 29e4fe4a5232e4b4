#include "report/plot_axes.h"

#include <algorithm>
#include <string>

namespace tolmer {
namespace {

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

Result<std::vector<PlotAxes>> plotAxesByName(const WorkingCopy& copy,
                                             const std::vector<PlotRequest>& requests) {
  const AxisChooser chooser{copy};
  std::vector<PlotAxes> axes;
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
