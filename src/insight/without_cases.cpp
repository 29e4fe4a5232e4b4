#include "insight/without_cases.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "base/sentence_parts.h"
#include "engine/number_format.h"
#include "insight/change_words.h"

namespace tolmer {
namespace {

// A term that both fits have, and how far it moved in standard errors of the first.
double movedBy(const TermChange& change) {
  return std::abs(change.coefficientAfter.value - change.coefficientBefore.value) /
         change.errorBefore.value;
}

std::string fromTo(const std::string& what, double before, double after,
                   const std::string& shownBefore, const std::string& shownAfter) {
  if (shownBefore == shownAfter) return what + " stays " + shownBefore;
  return what + (after < before ? " falls" : " rises") + " from " + shownBefore + " to " +
         shownAfter;
}

std::string onQuality(const std::string& without, const SecondFit& before, const SecondFit& after) {
  const ModelFigures &one = before.model, &other = after.model;
  std::string text =
      without + fromTo("the standard error", one.standardError.value, other.standardError.value,
                       figureText(one.standardError.value), figureText(other.standardError.value));
  if (before.intercept && before.terms > 1)
    text += " and " + fromTo("R-squared", one.rSquared.value, other.rSquared.value,
                             formatNumber(one.rSquared.value, "0.0000"),
                             formatNumber(other.rSquared.value, "0.0000"));
  return text + ".";
}

std::string onCoefficients(const std::vector<TermChange>& terms) {
  const TermChange& most = *std::ranges::max_element(terms, {}, movedBy);
  const std::string which =
      most.name == "Intercept" ? "The intercept" : "The coefficient of " + most.name;
  const std::string before = figureText(most.coefficientBefore.value);
  const std::string after = figureText(most.coefficientAfter.value);
  if (!(movedBy(most) > 0) || before == after)
    return "No coefficient changes by more than its last shown digits.";
  return which + (terms.size() == 1 ? " changes from " : " changes most, from ") + before + " to " +
         after + ": by " + formatNumber(movedBy(most), "0.0") + " times its standard error.";
}

}  // namespace

ModelData dataWithout(const ModelData& data, std::span<const int> cases) {
  const std::set<int> left(cases.begin(), cases.end());
  ModelData result{.cases = 0,
                   .terms = data.terms,
                   .intercept = data.intercept,
                   .x = {},
                   .y = {},
                   .names = data.names};
  for (int term = 0; term <= data.terms; ++term) {
    auto& values = term < data.terms ? result.x : result.y;
    int number = 0;
    for (const double value : data.column(term))
      if (!left.contains(++number)) values.push_back(value);
  }
  result.cases = static_cast<int>(result.y.size());
  return result;
}

WithoutCases refitWithout(const ModelData& data, const SecondFit& fit, std::span<const int> cases,
                          std::span<const std::string> labels) {
  WithoutCases result;
  const ModelData others = dataWithout(data, cases);
  result.fit = fitSecond(others, Extent::shownNumbers);
  result.terms = termChanges(data.names, fit.byTerm, others.names, result.fit.byTerm);
  const std::string without = "Without " + casesInWords(cases, labels) + " ";
  if (!fit.determined() || !result.fit.determined())
    result.sentences = {without + "there is no valid fit: the " +
                        counted(others.cases, "other case") + " cannot determine all " +
                        counted(data.terms, "term") + "."};
  else
    result.sentences = {onQuality(without, fit, result.fit), onCoefficients(result.terms)};
  return result;
}

}  // namespace tolmer
