#include "formula/scalar_functions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>

#include "base/portable_math.h"

namespace tolmer {
namespace {

using enum FormulaFunction;

constexpr double nearness = 0x1p-48;

// Beyond it a double has no digits behind the point, and quotients no longer tell their remainder.
constexpr double largestExactWhole = 0x1p53;

CellValue truth(bool holds) { return CellValue::ofNumber(holds ? 1 : 0); }
CellValue numberError() { return CellValue::ofError(FormulaError::number); }
CellValue divisionByZero() { return CellValue::ofError(FormulaError::divisionByZero); }

// The whole number below, or the one that the number is but for lost digits: INT(4.35*100) is 435.
double wholeBelow(double number) {
  const double nearest = std::round(number);
  return areNearlyEqual(number, nearest) ? nearest : std::floor(number);
}

CellValue quotient(double dividend, double divisor) {
  return divisor == 0 ? divisionByZero() : checkedNumber(dividend / divisor);
}

CellValue power(double base, double exponent) {
  if (base == 0 && exponent < 0) return divisionByZero();
  return checkedNumber(portable::pow(base, exponent));
}

// With the sign of the divisor.
CellValue modulus(double number, double divisor) {
  if (divisor == 0) return divisionByZero();
  const double times = wholeBelow(number / divisor);
  if (!(std::fabs(times) < largestExactWhole)) return numberError();
  const double multiple = times * divisor;
  return areNearlyEqual(number, multiple) ? truth(false) : checkedNumber(number - multiple);
}

CellValue logarithm(double number, double (*function)(double)) {
  return number > 0 ? checkedNumber(function(number)) : numberError();
}

CellValue compared(char symbol, double left, double right) {
  const bool equal = areNearlyEqual(left, right);
  if (symbol == '=') return truth(equal);
  if (symbol == 'n') return truth(!equal);
  if (symbol == '<') return truth(!equal && left < right);
  if (symbol == 'l') return truth(equal || left < right);
  if (symbol == '>') return truth(!equal && left > right);
  return truth(equal || left > right);
}

// A number as d.ddd times ten to the exponent.
struct Decimal {
  std::string digits;  // without the point
  int exponent = 0;
};

Decimal decimalOf(double number, int significant) {
  std::array<char, 64> text;
  const auto written = std::to_chars(text.data(), text.data() + text.size(), number,
                                     std::chars_format::scientific, significant - 1);
  const std::string_view all(text.data(), static_cast<std::size_t>(written.ptr - text.data()));
  const std::size_t mark = all.find('e');
  Decimal decimal{std::string(1, all[0]) + std::string(all.substr(2, mark - 2))};
  const std::size_t sign = all[mark + 1] == '+' ? 2 : 1;  // from_chars takes no plus
  std::from_chars(all.data() + mark + sign, all.data() + all.size(), decimal.exponent);
  return decimal;
}

// Infinite where it is too large.
double wholeTimesPowerOfTen(const std::string& digits, int exponent) {
  if (digits.empty()) return 0;
  const std::string text = digits + "e" + std::to_string(exponent);
  double number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  if (read.ec == std::errc{}) return number;
  return exponent > 0 ? HUGE_VAL : 0;
}

// Adds 1 to a decimal number of digits alone; "99" becomes "100".
void countUp(std::string& digits) {
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    if (*digit != '9') return void(++*digit);
    *digit = '0';
  }
  digits.insert(digits.begin(), '1');
}

// SplitMix64 (Steele, Lea, Flood 2014, Fast splittable pseudorandom number generators): a step of
// its sequence for each number that is drawn.
std::uint64_t randomBits(std::uint64_t seed, std::uint64_t place) {
  std::uint64_t bits = seed + (place + 1) * 0x9E3779B97F4A7C15U;
  bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
  bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
  return bits ^ (bits >> 31);
}

double uniform(std::uint64_t bits) { return static_cast<double>(bits >> 11) * 0x1p-53; }

// Box and Muller (1958), with 1 - u in (0, 1] so that the logarithm exists.
double standardNormal(std::uint64_t first, std::uint64_t second) {
  const double distance = std::sqrt(-2 * portable::log(1 - uniform(first)));
  return distance * portable::cosineOfTurns(uniform(second));
}

using Coefficients = std::array<double, 8>;  // of rising powers

struct Rational {
  Coefficients above, below;

  static double polynomial(const Coefficients& coefficients, double x) {
    double value = 0;
    for (auto each = coefficients.rbegin(); each != coefficients.rend(); ++each)
      value = value * x + *each;
    return value;
  }
  double operator()(double x) const { return polynomial(above, x) / polynomial(below, x); }
};

constexpr Rational middle = {
    {3.3871328727963666080e0, 1.3314166789178437745e+2, 1.9715909503065514427e+3,
     1.3731693765509461125e+4, 4.5921953931549871457e+4, 6.7265770927008700853e+4,
     3.3430575583588128105e+4, 2.5090809287301226727e+3},
    {1, 4.2313330701600911252e+1, 6.8718700749205790830e+2, 5.3941960214247511077e+3,
     2.1213794301586595867e+4, 3.9307895800092710610e+4, 2.8729085735721942674e+4,
     5.2264952788528545610e+3}};
constexpr Rational tail = {
    {1.42343711074968357734e0, 4.63033784615654529590e0, 5.76949722146069140550e0,
     3.64784832476320460504e0, 1.27045825245236838258e0, 2.41780725177450611770e-1,
     2.27238449892691845833e-2, 7.74545014278341407640e-4},
    {1, 2.05319162663775882187e0, 1.67638483018380384940e0, 6.89767334985100004550e-1,
     1.48103976427480074590e-1, 1.51986665636164571966e-2, 5.47593808499534494600e-4,
     1.05075007164441684324e-9}};
constexpr Rational farTail = {
    {6.65790464350110377720e0, 5.46378491116411436990e0, 1.78482653991729133580e0,
     2.96560571828504891230e-1, 2.65321895265761230930e-2, 1.24266094738807843860e-3,
     2.71155556874348757815e-5, 2.01033439929228813265e-7},
    {1, 5.99832206555887937690e-1, 1.36929880922735805310e-1, 1.48753612908506148525e-2,
     7.86869131145613259100e-4, 1.84631831751005468180e-5, 1.42151175831644588870e-7,
     2.04426310338993978564e-15}};

}  // namespace

CellValue checkedNumber(double number) {
  return std::isfinite(number) ? CellValue::ofNumber(number) : numberError();
}

bool areNearlyEqual(double a, double b) {
  if (a == b) return true;
  const double difference = std::fabs(a - b);
  return difference < std::fabs(a) * nearness && difference < std::fabs(b) * nearness;
}

CellValue binaryResult(char symbol, double left, double right) {
  if (symbol == '+') return checkedNumber(left + right);
  if (symbol == '-') return checkedNumber(left - right);
  if (symbol == '*') return checkedNumber(left * right);
  if (symbol == '/') return quotient(left, right);
  if (symbol == '^') return power(left, right);
  return compared(symbol, left, right);
}

CellValue functionResult(FormulaFunction function, std::span<const double> values) {
  const double first = values[0];
  const double second = values.size() > 1 ? values[1] : 0;
  if (function == SQRT) return first < 0 ? numberError() : checkedNumber(std::sqrt(first));
  if (function == ABS) return checkedNumber(std::fabs(first));
  if (function == EXP) return checkedNumber(portable::exp(first));
  if (function == LN) return logarithm(first, portable::log);
  if (function == LOG10) return logarithm(first, portable::log10);
  if (function == POWER) return power(first, second);
  if (function == ROUND) return checkedNumber(roundedToDigits(first, second));
  if (function == INT) return checkedNumber(wholeBelow(first));
  if (function == MOD) return modulus(first, second);
  if (function == NOT) return truth(first == 0);
  if (function == NORMSINV)
    return first > 0 && first < 1 ? CellValue::ofNumber(normalQuantile(first)) : numberError();
  if (function == NORMSDIST)
    return checkedNumber(values.size() > 1 && second == 0 ? normalDensity(first)
                                                          : normalProbability(first));
  return CellValue::ofError(FormulaError::value);
}

double roundedToDigits(double number, double digits) {
  if (number == 0 || !std::isfinite(number)) return number;
  const int places = static_cast<int>(std::clamp(digits, -400.0, 400.0));
  Decimal decimal = decimalOf(std::fabs(number), 15);
  // One digit more where all 15 are kept, to see which way the half goes.
  if (decimal.exponent + 1 + places >= 15) decimal = decimalOf(std::fabs(number), 16);

  const int kept = decimal.exponent + 1 + places;
  if (kept < 0) return 0;
  if (kept >= static_cast<int>(decimal.digits.size())) return number;
  const bool up = decimal.digits[kept] >= '5';
  decimal.digits.resize(static_cast<std::size_t>(kept));
  if (up) countUp(decimal.digits);
  return std::copysign(wholeTimesPowerOfTen(decimal.digits, -places), number);
}

CellValue randomResult(FormulaFunction function, std::uint64_t seed, int call,
                       std::span<const double> values) {
  const std::uint64_t place = 2 * static_cast<std::uint64_t>(call);
  const std::uint64_t first = randomBits(seed, place), second = randomBits(seed, place + 1);
  if (function == RAND) return CellValue::ofNumber(uniform(first));
  const double deviate = standardNormal(first, second);
  if (function == RANDN) return CellValue::ofNumber(deviate);
  return values[1] < 0 ? numberError() : checkedNumber(values[0] + values[1] * deviate);
}

double normalProbability(double z) { return portable::erfc(-z / std::numbers::sqrt2) / 2; }

double normalDensity(double z) {
  return portable::exp(-z * z / 2) * std::numbers::inv_sqrtpi / std::numbers::sqrt2;
}

double normalQuantile(double probability) {
  const double distance = probability - 0.5;
  if (std::fabs(distance) <= 0.425) return distance * middle(0.180625 - distance * distance);
  const double r = std::sqrt(-portable::log(std::min(probability, 1 - probability)));
  const double z = r <= 5 ? tail(r - 1.6) : farTail(r - 5);
  return std::copysign(z, distance);
}

}  // namespace tolmer
