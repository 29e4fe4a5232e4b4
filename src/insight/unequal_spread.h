// Whether the size of the residuals hangs on the predictors.
#pragma once

#include <limits>
#include <string>

#include "secondfit/second_fit.h"

namespace tolmer {

// The studentized Breusch-Pagan test: n times the R-squared of the regression of the squared
// residuals on a constant and the predictors, as chi-square with one degree of freedom a predictor
// (one less where the predictors of a model without intercept span the constant).
// Sources: T. S. Breusch and A. R. Pagan, Econometrica 47, 1979, 1287-1294; studentized as in
// R. Koenker, Journal of Econometrics 17, 1981, 107-112.
struct SpreadTest {
  double statistic = std::numeric_limits<double>::quiet_NaN();
  int degrees = 0;
  double p = std::numeric_limits<double>::quiet_NaN();
};

// Takes one pass over the data: the factor of the fit serves the second regression, too. Not
// numbers where the fit is not determined, or leaves no residuals to speak of.
SpreadTest breuschPagan(const ModelData& data, const SecondFit& fit);

// Do the standard errors have to be doubted? At 5 per cent.
bool isUnequal(const SpreadTest& test);
// What follows from it, one sentence.
std::string spreadWords(const SpreadTest& test);

}  // namespace tolmer
