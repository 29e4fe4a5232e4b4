#include "engine/f_distribution.h"

#include <cmath>
#include <limits>

#include "engine/gamma_beta.h"
#include "engine/normal_distribution.h"

namespace tolmer {
namespace {

constexpr double largestF = 99999999;

double betaArgument(int iDf1, int iDf2, double x) { return iDf2 / (iDf2 + iDf1 * x); }

double paulsonF(int iDf1, int iDf2, double p) {
  const double a = 2 / (9.0 * iDf1);
  const double b = 2 / (9.0 * iDf2);
  const double z = NormalInverse(p);
  const double radicand = (1 - b) * (1 - b) * a + (1 - a) * (1 - a) * b - a * b * z * z;
  const double divisor = (1 - b) * (1 - b) - b * z * z;
  if (!(radicand >= 0 && divisor > 0)) return p < 0.5 ? largestF : 0;
  const double root = ((1 - a) * (1 - b) + z * std::sqrt(radicand)) / divisor;
  return root > 0 ? root * root * root : 0;
}

double bisectedF(int iDf1, int iDf2, double p) {
  const auto valueAt = [&](double u) { return (1 / u - 1) * iDf2 / iDf1; };
  double lower = 0;
  double upper = 1;
  double u = 0.5;
  for (;;) {
    const double argument = betaArgument(iDf1, iDf2, valueAt(u));
    (incompleteBeta(iDf2 / 2.0, iDf1 / 2.0, argument) > p ? upper : lower) = u;
    const double before = u;
    u = (lower + upper) / 2;
    if (std::fabs(u - before) <= 1.0E-5 * u) return valueAt(u);
  }
}

}  // namespace

double FDist(int iDf1, int iDf2, double x, MessagePort& messages) {
  return BetaI(iDf2 / 2.0, iDf1 / 2.0, betaArgument(iDf1, iDf2, x), messages);
}

double FInverse(int iDf1, int iDf2, double p) {
  if (iDf1 < 1 || iDf2 < 1 || std::isnan(p)) return std::numeric_limits<double>::quiet_NaN();
  if (p <= 0) return largestF;
  return iDf1 > 30 && iDf2 > 30 ? paulsonF(iDf1, iDf2, p) : bisectedF(iDf1, iDf2, p);
}

}  // namespace tolmer
