#include "engine/distributions.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

#include "base/portable_math.h"

namespace tolmer {
namespace {

constexpr double convergenceLimit = 3.0E-8;
constexpr double smallestMagnitude = 1.0E-30;
constexpr int mostRounds = 100;

// Lentz's method divides by these terms, so none of them may vanish.
double awayFromZero(double term) {
  return std::fabs(term) < smallestMagnitude ? smallestMagnitude : term;
}

struct TabledTail {
  double area;
  double complement;  // 1 - area does not round to the double of this decimal number
  double z;
};

constexpr std::array<TabledTail, 4> tabledTails = {{{0.05, 0.95, 1.64485},
                                                    {0.025, 0.975, 1.95996},
                                                    {0.01, 0.99, 2.32635},
                                                    {0.005, 0.995, 2.57583}}};

double upperQuantile(double p, double q) {
  for (const TabledTail& tail : tabledTails)
    if (q == tail.area || p == tail.complement) return tail.z;
  constexpr std::array<double, 9> coefficients = {
      1.570796288,     0.03706987906,   -0.8364353589e-3, -0.2250947176e-3, 0.6841218299e-5,
      0.5824238515e-5, -0.104527497e-5, 0.8360937017e-7,  -0.3231081277e-8};
  constexpr double lastRisingY = 11.734;  // beyond it the last terms turn the series down
  const double y = std::min(-portable::log(4 * q * (1 - q)), lastRisingY);
  double polynomial = 0;
  for (auto c = coefficients.rbegin(); c != coefficients.rend(); ++c)
    polynomial = polynomial * y + *c;
  return std::sqrt(y * polynomial);
}

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

double GammaLn(double x) {
  constexpr std::array<double, 6> coefficients = {76.18009172947146,     -86.50532032941677,
                                                  24.01409824083091,     -1.231739572450155,
                                                  0.1208650973866179e-2, -0.5395239384953e-5};
  double tmp = x + 5.5;
  tmp = (x + 0.5) * portable::log(tmp) - tmp;
  double ser = 1.000000000190015;
  double y = x;
  for (const double coefficient : coefficients) {
    y = y + 1;
    ser = ser + coefficient / y;
  }
  return tmp + portable::log(2.5066282746310005 * ser / x);
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
                            : portable::exp(GammaLn(a + b) - GammaLn(a) - GammaLn(b) +
                                            a * portable::log(x) + b * portable::log(1 - x));
  // The fraction converges quickly only below the mean; above it the symmetry relation serves.
  if (x < (a + 1) / (a + b + 2)) return bt * BetaCF(a, b, x) / a;
  return 1 - bt * BetaCF(b, a, 1 - x) / b;
}

double BetaI(double a, double b, double x, MessagePort& messages) {
  if (x < 0 || x > 1) messages.messageBox({"", "Bad X argument in function BetaI"});
  return incompleteBeta(a, b, x);
}

double NormalInverse(double p) {
  if (std::isnan(p)) return p;
  if (p <= 0) return std::numeric_limits<double>::infinity();
  if (p >= 1) return -std::numeric_limits<double>::infinity();
  if (p == 0.5) return 0;
  const double z = upperQuantile(p, p < 0.5 ? p : 1 - p);
  return p > 0.5 ? -z : z;
}

float NormalDensity(double dMean, double dSD, double dX) {
  const double z = (dX - dMean) / dSD;
  if (std::fabs(z) > 5) return 0;
  return static_cast<float>(portable::exp(-0.5 * z * z) / (dSD * 2.506628275));
}

double FDist(int iDf1, int iDf2, double x, MessagePort& messages) {
  return BetaI(iDf2 / 2.0, iDf1 / 2.0, betaArgument(iDf1, iDf2, x), messages);
}

double FInverse(int iDf1, int iDf2, double p) {
  if (iDf1 < 1 || iDf2 < 1 || std::isnan(p)) return std::numeric_limits<double>::quiet_NaN();
  if (p <= 0) return largestF;
  return iDf1 > 30 && iDf2 > 30 ? paulsonF(iDf1, iDf2, p) : bisectedF(iDf1, iDf2, p);
}

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
  if (iDf == 1) return portable::cosineOfTurns(p / 2) / portable::sineOfTurns(p / 2);
  if (iDf == 2) return twoDegreesT(p);
  if (iDf <= 5) return tFromF(iDf, p);
  return cornishFisherT(iDf, NormalInverse(p));
}

}  // namespace tolmer
