#include "advice/interpretation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/portable_math.h"
#include "engine/decimals_choice.h"
#include "engine/fitted_equation.h"
#include "engine/least_squares.h"
#include "engine/number_format.h"
#include "engine/statistical_limits.h"
#include "engine/variance_inflation.h"

namespace tolmer {
namespace {

// Are these terms the model's, and not still those of the last one or of an auxiliary regression?
bool areTermsOfModel(const AnalysisState& state) {
  const int first = state.bUseIntercept ? 2 : 1;
  if (state.iNumTerms != state.iNumPredictors + first - 1) return false;
  const auto terms = state.iTermCol.begin();
  const auto predictors = state.iModelCol.begin() + 2;
  return std::equal(predictors, predictors + state.iNumPredictors, terms + first) &&
         terms[state.iNumTerms + 1] == state.iModelCol[1];
}

// Does the record hold all that the text speaks of? Not before the first fit, nor while the next
// one is being made.
bool isFilled(const AnalysisState& state) {
  const auto lastTerm = static_cast<std::size_t>(state.iNumTerms) + 1;
  return isAnalysed(state) && state.iNumTerms > 0 && state.iTermCol.size() > lastTerm &&
         areTermsOfModel(state);
}

// With a leading blank, where a negative number has its sign.
std::string counted(int number) { return " " + std::to_string(number); }

std::string percentage(float share) { return formatNumber(100 * share, "0.0"); }

// "thesample" belongs to the text.
const char* sampleSizeAdvice(const AnalysisState& state) {
  if (state.iNumPredictors == 0) return "";
  const float r = static_cast<float>(state.iNumCases) / static_cast<float>(state.iNumPredictors);
  if (r < 5)
    return "You should probably remove some independent variables (one rule of thumb says that "
           "thesample size should be at least 5 times the number of predictors). Examine the "
           "p-values and consider removing any useless predictors. ";
  if (r < 10)
    return "You may have too many independent variables (a conservative rule of thumb says that "
           "the sample size should be at least 10 times the number of predictors). Examine the "
           "p-values and consider removing any useless predictors. ";
  return "";
}

// Closes the bracket around the adjusted R-squared.
const char* comparison(float sRSquared, float sAdjusted) {
  if (!(sRSquared > 0 && sAdjusted > 0)) return "). ";
  const double d = sRSquared - sAdjusted;
  if (d > 0.07) return ", which is substantially less). ";
  if (d > 0.04) return ", which is somewhat less). ";
  return ", which is about the same). ";
}

std::string explainedVariation(const AnalysisState& state) {
  const float sRSquared = state.Fit.sRSquared;
  const float sAdjusted = adjustedRSquared(state);
  return "Your independent variables explain " + percentage(sRSquared) +
         " per cent of the variation in the dependent variable (the adjusted R-squared is " +
         percentage(sAdjusted) + " per cent" + comparison(sRSquared, sAdjusted);
}

std::string standardError(float sStdErr) {
  const std::string picture = FindFormatStringValue(sStdErr, 4, 8, true, false, true, false);
  return "The standard error is " + formatNumber(sStdErr, picture) + ". ";
}

std::string outliers(int count) {
  if (count > 1) return "There are " + std::to_string(count) + " outliers in the residuals.";
  return count == 1 ? "There is one outlier in the residuals." : "";
}

// A variable that had better be measured in another unit.
struct Awkward {
  std::string tName;
  bool bLarge;  // otherwise small
};

std::vector<Awkward> awkwardVariables(const AnalysisState& state) {
  std::vector<Awkward> variables;
  for (int i = 1; i <= state.iNumPredictors + 1; ++i) {
    const auto m = static_cast<float>(
        std::max(std::fabs(state.dDescStat(3, i)), std::fabs(state.dDescStat(4, i))));
    if (state.iVarType[i] == dummyVariable) continue;
    const double g = portable::log10(double{m});
    if (g > 4 || g < -1) variables.push_back({variableName(state, i), g > 4});
  }
  return variables;
}

std::string rescalingAdvice(const std::vector<Awkward>& variables) {
  std::string tAdvice;
  const std::size_t last = variables.size() - 1;
  for (std::size_t c = 0; c <= last; ++c) {
    if (c > 0 && c == last) tAdvice += "and ";
    tAdvice += (variables[c].bLarge ? "divide " : "multiply ") + variables[c].tName + " by 1000";
    tAdvice += c < last ? ", " : ". ";
  }
  return tAdvice;
}

const char* sizeWord(const std::vector<Awkward>& variables) {
  const auto isLarge = [](const Awkward& variable) { return variable.bLarge; };
  if (std::all_of(variables.begin(), variables.end(), isLarge)) return "very large ";
  if (std::none_of(variables.begin(), variables.end(), isLarge)) return "very small ";
  return "very large or small ";
}

const char* strengthWord(float value) {
  if (value > 100) return "severe ";
  return value > 50 ? "strong " : "";
}

}  // namespace

std::vector<Section> interpretation(const AnalysisState& state) {
  if (!isFilled(state)) return {};
  return {{"FITTED MODEL", fittedModelText(state)},
          {"DATA CONDITIONING", dataConditioningText(state)},
          {"VARIANCE INFLATION", varianceInflationText(state)}};
}

std::string wholeText(const std::vector<Section>& sections) {
  const std::string lineEnd = "\r\n";
  std::string text;
  for (const Section& section : sections)
    text += (text.empty() ? "" : lineEnd + lineEnd) + section.heading + lineEnd + section.text;
  return text;
}

std::string fittedModelText(const AnalysisState& state) {
  std::string text = fittedEquation(state);
  if (!state.bUseIntercept) text += "You've suppressed the intercept. ";
  text += "You have" + counted(state.iNumPredictors) + " independent variables and" +
          counted(state.iNumCases) + " observations in your data set. ";
  text += sampleSizeAdvice(state);
  if (state.Fit.bSingular) return text;
  return text + explainedVariation(state) + standardError(state.Fit.sStdErr) +
         outliers(state.iStdResidOutside);
}

std::string dataConditioningText(const AnalysisState& state) {
  const std::vector<Awkward> variables = awkwardVariables(state);
  if (variables.empty())
    return "Your data values appear to have reasonable magnitudes (not too large or small). This "
           "helps ensure accurate computation and coefficients that are not awkward. ";
  return std::string("You have some ") + sizeWord(variables) +
         "data values, which can make the estimated coefficients awkward to display. To improve "
         "your data conditioning, you might " +
         rescalingAdvice(variables);
}

std::string varianceInflationText(const AnalysisState& state) {
  float S = 0;
  float M = 0;
  for (std::size_t i = 1; i <= static_cast<std::size_t>(state.iNumPredictors); ++i) {
    S += state.sVIF[i];
    M = std::max(M, state.sVIF[i]);
  }
  if (M <= highVIF && S <= highVIF)
    return "There is no evidence of serious variance inflation. Since your predictors are not "
           "highly correlated, your estimates should be stable. ";
  const std::string evidence =
      M <= highVIF ? std::string("No VIF exceeds 10 but there is evidence of ") + strengthWord(S) +
                         "overall variance inflation (sum of VIFs exceeds 10). "
                   : std::string("There is evidence of ") + strengthWord(M) +
                         "variance inflation (any VIF that exceeds 10). ";
  return evidence +
         "Check the VIFs in the table of estimated coefficients. You may want to eliminate one or "
         "more variables with high VIFs, if that action is consistent with your desired model "
         "specification and available data.";
}

}  // namespace tolmer
