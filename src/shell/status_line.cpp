#include "shell/status_line.h"

#include <vector>

#include "base/sentence_parts.h"
#include "displays/display_list.h"

namespace tolmer {
namespace {

constexpr const char* between = "   \xC2\xB7   ";

std::string modelText(const AnalysisState& state) {
  std::vector<std::string> predictors;
  for (int i = 2; i <= listedVariables(state); ++i) predictors.push_back(variableName(state, i));
  return variableName(state, 1) + " on " + listed(predictors) +
         (state.bUseIntercept ? "" : ", without intercept");
}

}  // namespace

std::string statusLine(const AnalysisState& state) {
  if (!hasFit(state)) return {};
  const int used = state.iNumCases;
  const int read = used + static_cast<int>(state.uOrigin.leftOut.size());
  return dataSetName(state) + between + std::to_string(used) + " of " + counted(read, "case") +
         between + modelText(state) + fitMark(state);
}

}  // namespace tolmer
