#include "engine/gamma_beta.h"

#include <array>
#include <cmath>
#include <limits>

namespace tolmer {
namespace {

constexpr double convergenceLimit = 3.0E-8;
constexpr double smallestMagnitude = 1.0E-30;
constexpr int mostRounds = 100;

// Lentz's method divides by these terms, so none of them may vanish.
double awayFromZero(double term) {
  return std::fabs(term) < smallestMagnitude ? smallestMagnitude : term;
}

}  // namespace

double GammaLn(double x) {
  constexpr std::array<double, 6> coefficients = {76.18009172947146,     -86.50532032941677,
                                                  24.01409824083091,     -1.231739572450155,
                                                  0.1208650973866179e-2, -0.5395239384953e-5};
  double tmp = x + 5.5;
  tmp = (x + 0.5) * std::log(tmp) - tmp;
  double ser = 1.000000000190015;
  double y = x;
  for (const double coefficient : coefficients) {
    y = y + 1;
    ser = ser + coefficient / y;
  }
  return tmp + std::log(2.5066282746310005 * ser / x);
}

double BetaCF(double a, double b, double x) {
  const double qab = a + b;
  const double qap = a + 1;
  const double qam = a - 1;
  double c = 1;
  double d = 1 / awayFromZero(1 - qab * x / qap);
  double h = d;
  for (int m = 1; m <= mostRounds; ++m) {
    const double m2 = 2.0 * m;
    double aa = m * (b - m) * x / ((qam + m2) * (a + m2));
    d = 1 / awayFromZero(1 + aa * d);
    c = awayFromZero(1 + aa / c);
    h = h * d * c;
    aa = -(a + m) * (qab + m) * x / ((a + m2) * (qap + m2));
    d = 1 / awayFromZero(1 + aa * d);
    c = awayFromZero(1 + aa / c);
    const double del = d * c;
    h = h * del;
    if (std::fabs(del - 1) < convergenceLimit) break;
  }
  return h;
}

double incompleteBeta(double a, double b, double x) {
  if (!(x >= 0 && x <= 1)) return std::numeric_limits<double>::quiet_NaN();
  const bool atAnEnd = x == 0 || x == 1;  // where the logarithms do not exist
  const double bt = atAnEnd ? 0.0
                            : std::exp(GammaLn(a + b) - GammaLn(a) - GammaLn(b) + a * std::log(x) +
                                       b * std::log(1 - x));
  // The fraction converges quickly only below the mean; above it the symmetry relation serves.
  if (x < (a + 1) / (a + b + 2)) return bt * BetaCF(a, b, x) / a;
  return 1 - bt * BetaCF(b, a, 1 - x) / b;
}

double BetaI(double a, double b, double x, MessagePort& messages) {
  if (x < 0 || x > 1)
    messages.messageBox({.title = "", .text = "Bad X argument in function BetaI"});
  return incompleteBeta(a, b, x);
}

}  // namespace tolmer
