#include "base/portable_math.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>
#include <span>

#include "base/double_double.h"

namespace tolmer::portable {
namespace {

constexpr int parts = 128;  // of a doubling, for exp, and of 1, for log

constexpr double infinity = std::numeric_limits<double>::infinity();

// log((1 + z) / (1 - z)), z = above / below not above 1/3.
constexpr DoubleDouble logarithmOfRatio(int above, int below) {
  const DoubleDouble z = DoubleDouble(above) / below;
  const DoubleDouble square = z * z;
  DoubleDouble power = z, sum;
  for (int n = 1; power.high > 1e-34 || power.high < -1e-34; n += 2) {
    sum += power / n;
    power *= square;
  }
  return sum + sum;
}

constexpr DoubleDouble logarithmOf2 = logarithmOfRatio(1, 3);
constexpr DoubleDouble logarithmOf10 =
    logarithmOf2 + logarithmOf2 + logarithmOf2 + logarithmOfRatio(1, 9);
constexpr DoubleDouble perLogarithmOf10 = DoubleDouble(1) / logarithmOf10;
constexpr DoubleDouble exponentStep = logarithmOf2 * (1.0 / parts);

// Logarithms of n / 128 around 1, for numbers from 1/sqrt(2) to sqrt(2).
constexpr int firstPart = 90, lastPart = 181;
constexpr auto logarithms = [] {
  std::array<DoubleDouble, lastPart - firstPart + 1> table;
  for (int n = firstPart; n <= lastPart; ++n)
    table[static_cast<std::size_t>(n - firstPart)] = logarithmOfRatio(n - parts, n + parts);
  return table;
}();

// 2^(n / 128).
constexpr auto exponentials = [] {
  DoubleDouble step = 1, power = 1;
  for (int n = 1; n < 20; ++n) {
    power *= exponentStep / n;
    step += power;
  }
  std::array<DoubleDouble, parts> table;
  table[0] = 1;
  for (std::size_t n = 1; n < parts; ++n) table[n] = table[n - 1] * step;
  return table;
}();

constexpr double polynomial(std::span<const double> coefficients, double x) {
  double value = 0;
  for (auto each = coefficients.rbegin(); each != coefficients.rend(); ++each)
    value = value * x + *each;
  return value;
}

// 2^power, -1022 to 1023.
double powerOf2(int power) {
  return std::bit_cast<double>(static_cast<std::uint64_t>(power + 1023) << 52);
}

// number * 2^power, number from 1 to 2.
double scaled(double number, int power) {
  if (power > 1023) return number * 2 * powerOf2(power - 1);
  if (power < -1022) return number * powerOf2(power + 64) * 0x1p-64;
  return number * powerOf2(power);
}

double exponential(DoubleDouble x) {
  if (!(x.high < 709.8)) return x.high + infinity;  // a NaN stays one
  if (x.high < -745.2) return 0;
  const double steps = std::floor(x.high * (parts / std::numbers::ln2) + 0.5);
  const DoubleDouble rest = x - exponentStep * steps;  // below 0.0028
  static constexpr double series[] = {1.0 / 2, 1.0 / 6, 1.0 / 24, 1.0 / 120, 1.0 / 720};
  const double r = rest.high;
  const double less1 = r + (rest.low + r * r * polynomial(series, r));
  const int count = static_cast<int>(steps);
  const DoubleDouble& power = exponentials[static_cast<std::size_t>(count & (parts - 1))];
  return scaled(power.high + (power.low + power.high * less1), count >> 7);
}

// log(1 + (high + low)), |high| below 0.0056.
DoubleDouble logarithmNear1(double high, double low) {
  static constexpr double series[] = {1.0 / 3, -1.0 / 4, 1.0 / 5, -1.0 / 6,
                                      1.0 / 7, -1.0 / 8, 1.0 / 9, -1.0 / 10};
  const DoubleDouble square = exactProduct(high, high);
  const double rest = high * square.high * polynomial(series, high) - high * low;
  return DoubleDouble(high, low) - DoubleDouble(square.high / 2, square.low / 2) + rest;
}

// Of a positive, finite number: as 2^power n/128 (1 + r), n/128 the nearest to what is left between
// 1/sqrt(2) and sqrt(2), so that nothing cancels around 1.
DoubleDouble logarithm(DoubleDouble x) {
  int power = 0;
  double high = x.high, low = x.low;
  if (high < 0x1p-1022) {
    high *= 0x1p64;
    low *= 0x1p64;
    power = -64;
  }
  const auto bits = std::bit_cast<std::uint64_t>(high);
  int binary = static_cast<int>(bits >> 52) - 1023;
  constexpr std::uint64_t fraction = (std::uint64_t{1} << 52) - 1;
  if ((bits & fraction) > (std::uint64_t{lastPart - parts} << 45)) ++binary;
  power += binary;
  if (binary > 1000)  // 2^-binary would not be a normal number
    high *= 0x1p-64, low *= 0x1p-64, binary -= 64;
  high *= powerOf2(-binary);
  low *= powerOf2(-binary);

  const double part = std::floor(high * parts + 0.5);
  const double middle = part / parts;
  const double distance = high - middle;  // exact
  const double ratio = distance / middle;
  const DoubleDouble back = exactProduct(ratio, middle);
  const double rest = (distance - back.high - back.low + low) / middle;
  const DoubleDouble& known = logarithms[static_cast<std::size_t>(part) - firstPart];
  return logarithmOf2 * DoubleDouble(power) + known + logarithmNear1(ratio, rest);
}

// What a logarithm is where it is no number.
double logarithmOfNone(double x) {
  if (x == 0) return -infinity;
  return x > 0 || std::isnan(x) ? x : std::numeric_limits<double>::quiet_NaN();
}

bool hasLogarithm(double x) { return x > 0 && x < infinity; }

// The sine and the cosine of an angle up to an eighth of a turn to either side, in radians.
double nearSine(DoubleDouble angle) {
  static constexpr auto series = [] {
    std::array<double, 9> terms{-1.0 / 6};
    for (std::size_t n = 1; n < terms.size(); ++n)
      terms[n] = -terms[n - 1] / static_cast<double>((2 * n + 2) * (2 * n + 3));
    return terms;
  }();
  const double square = angle.high * angle.high;
  return angle.high +
         (angle.low * (1 - square / 2) + angle.high * square * polynomial(series, square));
}

double nearCosine(DoubleDouble angle) {
  static constexpr auto series = [] {
    std::array<double, 9> terms{1.0 / 24};
    for (std::size_t n = 1; n < terms.size(); ++n)
      terms[n] = -terms[n - 1] / static_cast<double>((2 * n + 3) * (2 * n + 4));
    return terms;
  }();
  const DoubleDouble square = exactProduct(angle.high, angle.high);
  const DoubleDouble first = DoubleDouble(1) - DoubleDouble(square.high / 2, square.low / 2);
  const double rest = square.high * square.high * polynomial(series, square.high);
  return first.high + (first.low + (rest - angle.high * angle.low));
}

// The sine of the angle that lies so many right angles further.
double sineAfter(double turns, double rightAngles) {
  const double quarters = std::floor(turns * 4 + 0.5);
  constexpr DoubleDouble wholeTurn{6.283185307179586, 2.4492935982947064e-16};
  const DoubleDouble angle = wholeTurn * DoubleDouble(turns - quarters / 4);
  const auto quarter = static_cast<std::int64_t>(quarters + rightAngles) & 3;
  const double value = quarter % 2 == 0 ? nearSine(angle) : nearCosine(angle);
  return quarter < 2 ? value : -value;
}

// erfc(x) / exp(-x * x), x >= 0, but for what a pole adds: the trapezoidal rule, whose error is
// that of exp(-(pi / step)^2), 3e-31.
constexpr double step = 0.375;
double scaledErfc(double x) {
  struct Place {
    double square, weight;
  };
  static const auto places = [] {
    std::array<Place, 18> list;
    for (std::size_t n = 0; n < list.size(); ++n) {
      const double square = static_cast<double>((2 * n + 1) * (2 * n + 1)) * (step * step / 4);
      list[n] = {square, exp(-square) * (2 * step / std::numbers::pi)};
    }
    return list;
  }();
  double sum = 0;
  for (std::size_t n = places.size(); n-- > 0;)  // the small ones first
    sum += places[n].weight / (places[n].square + x * x);
  return x * sum;
}

}  // namespace

double exp(double x) { return exponential(x); }

double log(double x) {
  return hasLogarithm(x) ? static_cast<double>(logarithm(x)) : logarithmOfNone(x);
}

double log1p(double x) {
  const DoubleDouble whole = exactSum(1, x);
  if (!hasLogarithm(whole.high)) return logarithmOfNone(whole.high);
  return static_cast<double>(logarithm(whole));
}

double log10(double x) {
  if (!hasLogarithm(x)) return logarithmOfNone(x);
  return static_cast<double>(logarithm(x) * perLogarithmOf10);
}

double pow(double base, double exponent) {
  const double size = std::fabs(base);
  // With zeros and what is infinite or no number the C libraries are of one mind.
  if (!hasLogarithm(size) || !std::isfinite(exponent)) return std::pow(base, exponent);
  const bool isWhole = std::floor(exponent) == exponent;
  if (base < 0 && !isWhole) return std::numeric_limits<double>::quiet_NaN();
  const bool isOdd = isWhole && std::fmod(exponent, 2) != 0;
  const DoubleDouble logarithmOfBase = logarithm(size);
  const double about = logarithmOfBase.high * exponent;
  const double power =
      std::fabs(about) < 800 ? exponential(logarithmOfBase * exponent) : exponential(about);
  return base < 0 && isOdd ? -power : power;
}

double sineOfTurns(double turns) { return sineAfter(turns, 0); }
double cosineOfTurns(double turns) { return sineAfter(turns, 1); }

double erfc(double x) {
  if (std::isnan(x)) return x;
  if (x < 0) return 2 - erfc(-x);
  if (x > 28) return 0;
  const double body = scaledErfc(x) * exponential(-exactProduct(x, x));
  return x < std::numbers::pi / step ? body + 2 / (1 + exp(2 * std::numbers::pi / step * x)) : body;
}

}  // namespace tolmer::portable
