// Numbers of twice the digits of a double (relative error about 2^-104), as the unevaluated sum of
// two of them.
//
// Sources: T. J. Dekker, A floating-point technique for extending the available precision,
// Numerische Mathematik 18, 1971, 224-242; D. E. Knuth, The Art of Computer Programming 2,
// section 4.2.2 (theorem B). The compiler must not fuse products and sums here (-ffp-contract=off).
#pragma once

#include <cmath>
#include <concepts>

namespace tolmer {

struct DoubleDouble {
  double high = 0;
  double low = 0;  // at most half a unit of high's last place

  constexpr DoubleDouble() = default;
  constexpr DoubleDouble(double value) : high(value) {}  // every double is such a number, too
  template <std::integral Whole>
  constexpr DoubleDouble(Whole value) : high(static_cast<double>(value)) {}  // below 2^53
  constexpr DoubleDouble(double high_, double low_) : high(high_), low(low_) {}

  explicit constexpr operator double() const { return high + low; }
};

// a + b exactly.
constexpr DoubleDouble exactSum(double a, double b) {
  const double sum = a + b;
  const double part = sum - a;
  return {sum, (a - (sum - part)) + (b - part)};
}

// The same where |a| is not below |b|.
constexpr DoubleDouble orderedSum(double a, double b) {
  const double sum = a + b;
  return {sum, b - (sum - a)};
}

// a * b exactly, while neither exceeds 1e300.
constexpr DoubleDouble exactProduct(double a, double b) {
  constexpr double split = 134217729;  // 2^27 + 1
  const double product = a * b;
  const double aBig = split * a, bBig = split * b;
  const double aHigh = aBig - (aBig - a), bHigh = bBig - (bBig - b);
  const double aLow = a - aHigh, bLow = b - bHigh;
  return {product, ((aHigh * bHigh - product) + aHigh * bLow + aLow * bHigh) + aLow * bLow};
}

constexpr DoubleDouble operator-(DoubleDouble a) { return {-a.high, -a.low}; }

constexpr DoubleDouble operator+(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble high = exactSum(a.high, b.high);
  const DoubleDouble low = exactSum(a.low, b.low);
  const DoubleDouble sum = orderedSum(high.high, high.low + low.high);
  return orderedSum(sum.high, sum.low + low.low);
}

constexpr DoubleDouble operator-(DoubleDouble a, DoubleDouble b) { return a + -b; }

constexpr DoubleDouble operator*(DoubleDouble a, DoubleDouble b) {
  const DoubleDouble product = exactProduct(a.high, b.high);
  return orderedSum(product.high, product.low + (a.high * b.low + a.low * b.high));
}

constexpr DoubleDouble operator/(DoubleDouble a, DoubleDouble b) {
  const double first = a.high / b.high;
  if (!(first - first == 0)) return first;  // not finite
  const DoubleDouble rest = a - b * first;
  const double second = rest.high / b.high;
  const DoubleDouble last = rest - b * second;
  return orderedSum(first, second) + last.high / b.high;
}

constexpr DoubleDouble& operator+=(DoubleDouble& a, DoubleDouble b) { return a = a + b; }
constexpr DoubleDouble& operator-=(DoubleDouble& a, DoubleDouble b) { return a = a - b; }
constexpr DoubleDouble& operator*=(DoubleDouble& a, DoubleDouble b) { return a = a * b; }
constexpr DoubleDouble& operator/=(DoubleDouble& a, DoubleDouble b) { return a = a / b; }

inline bool operator<(DoubleDouble a, DoubleDouble b) {
  return a.high < b.high || (a.high == b.high && a.low < b.low);
}
inline bool operator>(DoubleDouble a, DoubleDouble b) { return b < a; }
inline bool operator<=(DoubleDouble a, DoubleDouble b) { return !(b < a); }
inline bool operator>=(DoubleDouble a, DoubleDouble b) { return !(a < b); }
inline bool operator==(DoubleDouble a, DoubleDouble b) {
  return a.high == b.high && a.low == b.low;
}
inline bool operator!=(DoubleDouble a, DoubleDouble b) { return !(a == b); }

inline DoubleDouble abs(DoubleDouble a) { return a.high < 0 ? -a : a; }
inline bool isfinite(DoubleDouble a) { return std::isfinite(a.high); }

// One Newton step from the double's root.
inline DoubleDouble sqrt(DoubleDouble a) {
  if (!(a.high > 0)) return std::sqrt(a.high);
  const double root = std::sqrt(a.high);
  return orderedSum(root, (a - exactProduct(root, root)).high / (2 * root));
}

}  // namespace tolmer
