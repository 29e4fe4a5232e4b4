#include "insight/influence.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "base/sentence_parts.h"

namespace tolmer {
namespace {

struct Measure {
  const char* name;
  Figure CaseFigures::*figure;
};

constexpr std::array measures = {
    Measure{"Residual", &CaseFigures::residual},
    Measure{"Standardized residual", &CaseFigures::standardized},
    Measure{"Internally studentized residual", &CaseFigures::internal},
    Measure{"Studentized residual", &CaseFigures::studentized},
    Measure{"Leverage", &CaseFigures::leverage},
    Measure{"Cook's distance", &CaseFigures::cooks},
    Measure{"DFFITS", &CaseFigures::dffits},
};

// Cases whose numbers differ by no more than the bounds of their errors are alike.
void rankAmong(const SecondFit& fit, const Measure& measure, CaseMeasure& one) {
  const double size = std::abs(one.figure.value);
  int above = 0;
  int alike = 0;
  for (const CaseFigures& other : fit.byCase) {
    const Figure& figure = other.*measure.figure;
    const double difference = std::abs(figure.value) - size;
    if (std::isnan(difference)) continue;
    const bool isAlike = std::abs(difference) <= figure.error + one.figure.error;
    alike += isAlike ? 1 : 0;
    above += !isAlike && difference > 0 ? 1 : 0;
  }
  one.rank = above + 1;
  one.alike = alike - 1;
}

std::string wordsOn(const CaseMeasure& one, int cases) {
  if (one.rank == 0) return "not determined";
  const std::string of = " of " + std::to_string(cases);
  if (one.alike + 1 == cases) return "the same for all cases";
  const std::string with = one.alike == 0 ? "" : ", with " + counted(one.alike, "other");
  if (one.rank + one.alike == cases) return "the smallest" + of + with;
  return "the " + (one.rank == 1 ? std::string() : ordinal(one.rank) + " ") + "largest" + of + with;
}

}  // namespace

std::vector<CaseMeasure> measuresOf(const SecondFit& fit, int iCase) {
  std::vector<CaseMeasure> result;
  for (const Measure& measure : measures) {
    CaseMeasure one{measure.name, fit.byCase[static_cast<std::size_t>(iCase) - 1].*measure.figure};
    if (!std::isnan(one.figure.value)) rankAmong(fit, measure, one);
    one.words = wordsOn(one, fit.cases);
    result.push_back(std::move(one));
  }
  return result;
}

bool isHeldByOneCase(const CaseFigures& figures) {
  return std::isnan(figures.internal.value) && figures.leverage.value > 1 - 1e-6;
}

double leavingOneOut(const ModelData& data, const SecondFit& fit) {
  std::vector<double> terms(static_cast<std::size_t>(fit.terms));
  double squares = 0;
  for (int i = 0; i < fit.cases; ++i) {
    const CaseFigures& one = fit.byCase[static_cast<std::size_t>(i)];
    Figure leverage = one.leverage;
    if (std::isnan(leverage.value)) {  // far from 1, or the fit would have it
      for (int j = 0; j < fit.terms; ++j) terms[static_cast<std::size_t>(j)] = data.at(i, j);
      leverage = {predictSecond(fit, terms).leverage, 0};
    }
    const double left = 1 - leverage.value;
    if (!(left > 2 * leverage.error)) return std::numeric_limits<double>::quiet_NaN();
    squares += (one.residual.value / left) * (one.residual.value / left);
  }
  return std::sqrt(squares / fit.cases);
}

std::vector<int> influentialCases(const SecondFit& fit) {
  std::vector<int> found;
  for (int i = 1; i <= fit.cases; ++i) {
    const CaseFigures& one = fit.byCase[static_cast<std::size_t>(i) - 1];
    if (one.cooks.value > noticeableDistance || isHeldByOneCase(one)) found.push_back(i);
  }
  return found;
}

}  // namespace tolmer
