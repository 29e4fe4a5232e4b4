#include "engine/t_distribution.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "engine/f_distribution.h"
#include "engine/gamma_beta.h"
#include "engine/normal_distribution.h"

namespace tolmer {
namespace {

double twoDegreesT(double p) {
  // At p = 0.5 the difference may round to just below zero.
  const double t = std::sqrt(std::max(1 / (2 * p * (1 - p)) - 2, 0.0));
  return p > 0.5 ? -t : t;
}

double tFromF(int iDf, double p) {
  return p < 0.5 ? std::sqrt(FInverse(1, iDf, 2 * p)) : -std::sqrt(FInverse(1, iDf, 2 * (1 - p)));
}

// The five correction terms are odd polynomials in z, written here in w = z squared.
double cornishFisherT(int iDf, double z) {
  const double w = z * z;
  const double df = iDf;
  const double g1 = z * (w + 1) / 4;
  const double g2 = z * ((5 * w + 16) * w + 3) / 96;
  const double g3 = z * (((3 * w + 19) * w + 17) * w - 15) / 384;
  const double g4 = z * ((((79 * w + 776) * w + 1482) * w - 1920) * w - 945) / 92160;
  const double g5 = z * (((((27 * w + 339) * w + 930) * w - 1782) * w - 765) * w + 17955) / 368640;
  return z + (g1 + (g2 + (g3 + (g4 + g5 / df) / df) / df) / df) / df;
}

}  // namespace

double TDist(int iDf, double t, MessagePort& messages) {
  const double u = iDf / (iDf + t * t);
  const double q = BetaI(iDf / 2.0, 0.5, u, messages) / 2;
  return t < 0 ? q : 1 - q;
}

double TInverse(int iDf, double p) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  if (iDf < 1 || std::isnan(p)) return std::numeric_limits<double>::quiet_NaN();
  if (p <= 0) return infinity;
  if (p >= 1) return -infinity;
  if (iDf == 1) return 1 / std::tan(std::numbers::pi * p);
  if (iDf == 2) return twoDegreesT(p);
  if (iDf <= 5) return tFromF(iDf, p);
  return cornishFisherT(iDf, NormalInverse(p));
}

}  // namespace tolmer
