#include "graphs/scatter_description.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "engine/number_picture.h"
#include "graphs/axis_choice.h"
#include "graphs/plot_correlation.h"
#include "graphs/spoken_text.h"

namespace tolmer {
namespace {

std::string cases(const AnalysisState& state) { return spokenCount(state.iNumCases, "case"); }

std::string correlationSentence(const std::string& x, const std::string& y, float r) {
  if (std::isnan(r)) return "There is no correlation, since one of them does not vary.";
  const std::string number = formatNumber(r, "0.0000");
  std::string text = "The correlation is " + number;
  if (x != y && number != "0.0000")
    text += ": higher " + x + " goes with " + (r > 0 ? "higher " : "lower ") + y;
  return text + ".";
}

std::string pairOfVariables(const AnalysisState& state, int iXChoice, int iYChoice) {
  const std::string x = axisTitle(state, iXChoice);
  const std::string y = axisTitle(state, iYChoice);
  const float r = plotCorrelation(state, iXChoice, iYChoice).value();
  return "Scatter plot of " + y + " against " + x + ", " + cases(state) +
         (state.bShowRegressionLine ? ", with the least-squares line. " : ". ") +
         correlationSentence(x, y, r);
}

std::string residualsAgainst(const AnalysisState& state, int iXChoice) {
  const auto first = state.Fit.sResid.begin() + 1;
  const auto last = first + state.iNumCases;
  const float sBand = 3 * state.Fit.sStdErr;
  const auto outside = std::count_if(first, last, [&](float e) { return std::abs(e) > sBand; });
  const auto largest =
      std::max_element(first, last, [](float a, float b) { return std::abs(a) < std::abs(b); });
  return "Scatter plot of " + spokenCount(state.iNumCases, "residual") + " against " +
         axisTitle(state, iXChoice) +
         ", with a zero line and bands at plus and minus 3 standard errors (" +
         spokenNumber(sBand) + "); " + std::to_string(outside) + (outside == 1 ? " lies" : " lie") +
         " outside the bands. The largest in size is " + spokenNumber(*largest) + ", case " +
         std::to_string(largest - first + 1) + ".";
}

int crossings(const AnalysisState& state, const std::vector<float>& values, double centre) {
  int count = 0;
  for (std::size_t t = 2; t <= static_cast<std::size_t>(state.iNumCases); ++t)
    if ((values[t] - centre) * (values[t - 1] - centre) < 0) ++count;
  return count;
}

std::string orderOfEntry(const AnalysisState& state, int iYChoice) {
  const std::vector<float> values = chosenValues(state, iYChoice);
  const auto first = values.begin() + 1;
  const auto [least, largest] = std::minmax_element(first, first + state.iNumCases);
  const auto place = [&](auto value) {
    return spokenNumber(*value) + " (case " + std::to_string(value - first + 1) + ")";
  };
  const bool residuals = isResiduals(state, iYChoice);
  const int count = crossings(state, values, centreOf(state, iYChoice));
  return "Line of " + (residuals ? "the residuals" : axisTitle(state, iYChoice)) + " of " +
         cases(state) + " in order of entry, between " + place(least) + " and " + place(largest) +
         (residuals ? ". The sign changes " : ". It crosses its mean ") +
         spokenCount(count, "time") + "; the autocorrelation is " +
         formatNumber(plotAutocorrelation(state, iYChoice), "0.000") + ".";
}

}  // namespace

std::string scatterDescription(const AnalysisState& state, int iXChoice, int iYChoice) {
  if (isEntryOrder(state, iXChoice)) return orderOfEntry(state, iYChoice);
  if (isResiduals(state, iYChoice)) return residualsAgainst(state, iXChoice);
  return pairOfVariables(state, iXChoice, iYChoice);
}

}  // namespace tolmer
