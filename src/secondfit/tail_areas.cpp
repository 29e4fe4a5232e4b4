#include "secondfit/tail_areas.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

#include "base/double_double.h"
#include "base/portable_math.h"

namespace tolmer {
namespace {

// The logarithm of the gamma function less Stirling's formula, from x = 12 on: formula 6.1.41,
// whose first eight terms suffice there.
double stirlingSeries(double x) {
  static constexpr double terms[] = {1.0 / 12,   -1.0 / 360,      1.0 / 1260, -1.0 / 1680,
                                     1.0 / 1188, -691.0 / 360360, 1.0 / 156,  -3617.0 / 122400};
  double rest = 0;
  double power = 1 / x;
  for (const double term : terms) {
    rest += term * power;
    power /= x * x;
  }
  return rest;
}

// The same for every half of a whole number; below 12 by steps, exact by log1p, so that nothing
// cancels.
double stirlingRest(double x) {
  static const auto halves = [] {
    std::array<double, 26> rests{};
    for (std::size_t n = 25; n > 0; --n) {
      const double half = static_cast<double>(n) / 2;
      rests[n] = n < 24 ? rests[n + 2] + ((half + 0.5) * portable::log1p(1 / half) - 1)
                        : stirlingSeries(half);
    }
    return rests;
  }();
  return x < 12 ? halves[static_cast<std::size_t>(2 * x)] : stirlingSeries(x);
}

// base^exponent with a base of twice the digits: an error of its last place would count exponent
// times.
double power(DoubleDouble base, double exponent) {
  return portable::pow(base.high, exponent) * portable::exp(exponent * (base.low / base.high));
}

// x^a (1 - x)^b / B(a, b), where odds = x / (1 - x) and a and b are halves of whole numbers.
double betaFactor(double a, double b, double odds) {
  const DoubleDouble whole = DoubleDouble(1) + odds;
  const DoubleDouble sum = DoubleDouble(a) + b;
  const DoubleDouble left = DoubleDouble(odds) / whole * (sum / a);
  const DoubleDouble right = DoubleDouble(1) / whole * (sum / b);
  // A 16th of both exponents first: one power alone may be too small and the other too large.
  const double root = power(left, a / 16) * power(right, b / 16);
  const double rest = stirlingRest(a + b) - stirlingRest(a) - stirlingRest(b);
  return std::sqrt(a / (a + b) * b / (2 * std::numbers::pi)) * portable::exp(rest) *
         portable::pow(root, 16);
}

// I_x(a, b) divided by betaFactor: the continued fraction, evaluated from the front by Lentz's
// method.
double betaFraction(double a, double b, double odds) {
  const double x = odds / (1 + odds);
  const double y = 1 / (1 + odds);
  const double distance = static_cast<double>(DoubleDouble(a) - DoubleDouble(b) * odds) * y;
  const auto denominator = [&](double n) {
    const double first = n == 0 ? 0 : n + n * (b - n) * x / (a + 2 * n - 1);
    return first + (a + n) / (a + 2 * n + 1) * (distance + 1 + n * (1 + y));
  };
  double c = std::numeric_limits<double>::infinity();
  double d = 1 / denominator(0);
  double result = d;
  for (double n = 1; n < 100000; ++n) {
    const double part = x / (a + 2 * n - 1);
    const double numerator = (a + n - 1) * part * (a + b + n - 1) * part * n * (b - n);
    d = 1 / (denominator(n) + numerator * d);
    c = denominator(n) + numerator / c;
    result *= c * d;
    if (std::abs(c * d - 1) < std::numeric_limits<double>::epsilon()) break;
  }
  return result;
}

double notANumber() { return std::numeric_limits<double>::quiet_NaN(); }

}  // namespace

double betaArea(double a, double b, double odds) {
  if (!(odds > 0)) return odds == 0 ? 0 : notANumber();
  if (std::isinf(odds)) return 1;
  if (odds * b <= a) return betaFactor(a, b, odds) * betaFraction(a, b, odds);
  return 1 - betaFactor(a, b, odds) * betaFraction(b, a, 1 / odds);
}

double studentTwoTails(int df, double t) {
  if (df < 1 || std::isnan(t)) return notANumber();
  if (t == 0) return 1;
  return betaArea(df / 2.0, 0.5, df / t / t);
}

double studentDensity(int df, double t) {
  const double distance =
      std::max(std::abs(t), 1e-140);  // the density at 0 but for the last digits
  return betaFactor(df / 2.0, 0.5, df / distance / distance) / distance;
}

double studentQuantile(int df, double area) {
  if (df < 1 || !(area > 0 && area < 1)) return notANumber();
  // The tail is convex for t > 0, so that the steps from the left never lead beyond the solution.
  double t = 0;
  for (int round = 0; round < 2000; ++round) {
    const double step = (studentTwoTails(df, t) - area) / (2 * studentDensity(df, t));
    t += step;
    if (std::abs(step) <= 1e-15 * t) break;
  }
  return t;
}

double fTail(int df1, int df2, double F) {
  if (df1 < 1 || df2 < 1 || std::isnan(F)) return notANumber();
  if (F <= 0) return 1;
  return betaArea(df2 / 2.0, df1 / 2.0, df2 / F / df1);
}

double chiSquareTail(int df, double x) {
  if (df < 1 || std::isnan(x)) return notANumber();
  if (x <= 0) return 1;
  const double half = x / 2;
  const double root = portable::exp(-half / 2);  // twice, since its square may be too small
  if (root == 0) return 0;
  const bool isOdd = df % 2 == 1;
  double term = isOdd ? 2 * std::sqrt(half) * std::numbers::inv_sqrtpi : 1;  // half^i / i!
  double sum = 0;
  for (double i = isOdd ? 0.5 : 0; i < df / 2.0; ++i) {
    sum += term;
    term *= half / (i + 1);
  }
  return std::min((isOdd ? portable::erfc(std::sqrt(half)) : 0) + sum * root * root, 1.0);
}

double fDensity(int df1, int df2, double F) {
  return betaFactor(df2 / 2.0, df1 / 2.0, df2 / F / df1) / F;
}

}  // namespace tolmer
