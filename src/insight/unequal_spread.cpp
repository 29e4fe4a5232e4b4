#include "insight/unequal_spread.h"

#include <cmath>
#include <vector>

#include "base/sentence_parts.h"
#include "engine/number_format.h"
#include "engine/statistical_limits.h"
#include "insight/change_words.h"
#include "secondfit/long_sums.h"
#include "secondfit/tail_areas.h"

namespace tolmer {
namespace {

using Column = std::vector<double>;

// The squared residuals about their mean.
Column centredSquares(const SecondFit& fit) {
  Column squares;
  for (const CaseFigures& one : fit.byCase)
    squares.push_back(one.residual.value * one.residual.value);
  const double mean = meanOf(squares);
  for (double& square : squares) square -= mean;
  return squares;
}

// W'X'v, of which the length is that of v projected on the terms. Where v has the mean 0 and the
// model an intercept, the terms may be taken about their means, which saves digits.
Column weights(const ModelData& data, const SecondFit& fit, const Column& v, bool aboutMeans) {
  const auto k = static_cast<std::size_t>(data.terms);
  Column result(k);
  for (std::size_t i = 0; i < k; ++i) {
    const auto term = data.column(static_cast<int>(i));
    const double mean = aboutMeans ? meanOf(term) : 0;
    const double product =
        longSum(v.size(), [&](std::size_t row) { return (term[row] - mean) * v[row]; });
    for (std::size_t j = 0; j < k; ++j) result[j] += fit.inverseFactor[j * k + i] * product;
  }
  return result;
}

// What a constant beside the terms adds to the projection of v, which has the mean 0.
struct Constant {
  bool isSpanned = true;  // by the terms: it adds nothing
  double adds = 0;
};

Constant besideTerms(const ModelData& data, const SecondFit& fit, const Column& v,
                     const Column& ofV) {
  if (data.intercept) return {};
  const Column ofOnes = weights(data, fit, Column(v.size(), 1.0), false);
  const double left = data.cases - dot(ofOnes, ofOnes);
  if (left <= 1e-10 * data.cases) return {};
  const double along = dot(ofOnes, ofV);
  return {false, along * along / left};
}

}  // namespace

SpreadTest breuschPagan(const ModelData& data, const SecondFit& fit) {
  if (!fit.determined() || fit.model.sse.value <= 1e-10 * fit.model.sst.value) return {};
  const Column squares = centredSquares(fit);
  const Column projected = weights(data, fit, squares, data.intercept);
  const Constant constant = besideTerms(data, fit, squares, projected);
  const double total = dot(squares, squares);
  SpreadTest test;
  test.degrees = data.terms - (constant.isSpanned ? 1 : 0);
  if (test.degrees == 0 || !(total > 0)) return {};
  test.statistic = data.cases * (dot(projected, projected) + constant.adds) / total;
  test.p = chiSquareTail(test.degrees, test.statistic);
  return test;
}

bool isUnequal(const SpreadTest& test) { return test.p < usualLevelOfDoubles; }

std::string spreadWords(const SpreadTest& test) {
  if (std::isnan(test.p))
    return "Whether the residuals spread evenly cannot be told: the fit leaves none to speak of, "
           "or "
           "nothing that their spread could depend on.";
  const std::string figures = "Breusch-Pagan " + formatNumber(test.statistic, "0.00") + " with " +
                              counted(test.degrees, "degree") + " of freedom, " +
                              probabilityWords(test.p);
  if (!isUnequal(test))
    return "There is no sign that the residuals spread more for some values of the predictors than "
           "for others (" +
           figures + ").";
  return "Residuals spread more for some values of the predictors than for others (" + figures +
         "), so that standard errors, t and P may be too small or too large.";
}

}  // namespace tolmer
