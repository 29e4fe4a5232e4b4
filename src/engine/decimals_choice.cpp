#include "engine/decimals_choice.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "base/portable_math.h"
#include "engine/number_format.h"

namespace tolmer {
namespace {

// The columns that a number takes up, from left to right.
struct Widths {
  int sign = 0;      // S
  int left = 0;      // L: digits left of the point
  int point = 0;     // P
  int decimals = 0;  // D
};

constexpr int mostLeftDigits = 39;  // of a single

// Int(log10(a)), kept within what a single can have where a is zero, infinite or undefined.
int decimalExponent(double a) {
  if (!(a > 0)) return -46;
  return static_cast<int>(std::floor(portable::log10(std::min(a, 1E39))));
}

// Int(log10(a)) + 1 for a of at least 1, else 1; counted, since columns are long.
int leftDigits(double a) {
  int digits = 1;
  double bound = 10;
  while (a >= bound && digits < mostLeftDigits) {
    bound *= 10;
    ++digits;
  }
  return digits;
}

// Rounds down as std::floor does, which is a call on a processor without that instruction.
double Int(double value) {
  constexpr double allWholeBeyond = 4503599627370496;  // 2 to the 52nd
  if (!(std::fabs(value) < allWholeBeyond)) return value;
  const auto towardsZero = static_cast<double>(static_cast<std::int64_t>(value));
  return towardsZero > value ? towardsZero - 1 : towardsZero;
}

bool nearWhole(double value, double shift, double tolerance) {
  return std::fabs(value - Int(value + shift)) < tolerance;
}

// The fewest decimals, up to iDigits, within which the value stands but for a rounding error;
// otherwise the decimals given.
int enoughDecimals(double value, int iDigits, double shift, int toleranceShift, int decimals) {
  static constexpr std::array<double, 9> tenfold = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
  static constexpr std::array<double, 12> tenth = {1,    1e-1, 1e-2, 1e-3, 1e-4,  1e-5,
                                                   1e-6, 1e-7, 1e-8, 1e-9, 1e-10, 1e-11};
  for (int i = 1; i <= std::min(iDigits, 8); ++i)
    if (nearWhole(value * tenfold[i], shift, tenth[i + toleranceShift])) return i;
  return decimals;
}

// What the general text of a has behind its left digits and the point: its decimals, or less than
// one where there are none. In scientific notation that counts the exponent in.
int decimalsInText(float a, int left) { return static_cast<int>(generalText(a).size()) - left - 1; }

// The same, at least 1, mostly without making the text, which takes too long for whole columns.
int decimalsInColumnText(float a, int left) {
  constexpr int mostFixedDecimals = 7;  // beyond that the text is in scientific notation
  if (auto digits = sevenDigits(a)) {
    digits->dropZeros();
    if (digits->places <= mostFixedDecimals) return std::max(digits->places, 1);
  }
  return std::max(decimalsInText(a, left), 1);
}

std::string zeros(int count) {
  return std::string(static_cast<std::size_t>(std::max(count, 0)), '0');
}

// a: the magnitude that decides whether the zero left of the point may go.
std::string compose(const Widths& widths, double a, int W, bool bCommas, bool bExponent) {
  const auto& [S, L, P, D] = widths;
  const int C = bCommas ? std::max((L - 1) / 3, 0) : 0;
  const int X = bExponent && (L > 10 || L < -10) ? 2 : 1;
  const std::string decimals = P == 1 && D > 0 ? "." + zeros(D) : "";
  if (bCommas && L + P + D + C + S <= W) return "###,###,###,###,##0" + decimals;
  if (L + P + D + S <= W) return "0" + decimals;
  if (a < 1 && D + P + S <= W) return "." + zeros(D);
  if (L + P + S < W) return a < 1 ? "." + zeros(W - 1 - S) : "0." + zeros(W - L - 1 - S);
  if (L + S <= W) return "0";
  if (bExponent && S + 4 + X <= W) return "0." + zeros(W - 4 - S - X) + "E+" + zeros(X);
  return std::string(static_cast<std::size_t>(std::max(W, 0)), '*');
}

// What FindFormatString gathers while it goes through a column.
class ColumnWidths {
 public:
  ColumnWidths(int iDigits, bool bDigitsMode, bool bWholeCheck)
      : iDigits_(iDigits), bDigitsMode_(bDigitsMode), bWholeCheck_(bWholeCheck) {}

  void add(float x);
  Widths finished();
  float largest() const { return largest_; }

 private:
  void noteMagnitude(float x, float a, int left);
  void noteDecimals(float a, int left);
  void spreadDigits();

  int iDigits_;
  bool bDigitsMode_;
  bool bWholeCheck_;
  Widths widths_;
  float largest_ = -1.0E10F;
  float smallest_ = 1.0E11F;  // the smallest magnitude that is not zero
  int iNegLeft_ = 0;          // most left digits among the negative values
};

void ColumnWidths::add(float x) {
  const float a = std::fabs(x);
  const int left = leftDigits(a);
  noteMagnitude(x, a, left);
  noteDecimals(a, left);
  widths_.left = std::max(widths_.left, left);
}

// A longer number makes room for the sign of the negative ones before it; any later number of as
// many digits as the longest negative one takes a sign column again.
void ColumnWidths::noteMagnitude(float x, float a, int left) {
  if (x < 0) iNegLeft_ = std::max(iNegLeft_, left);
  if (a > largest_) {
    largest_ = a;
    widths_.sign = x < 0 || left == iNegLeft_ ? 1 : 0;
  } else if (left == iNegLeft_) {
    widths_.sign = 1;
  }
  if (a != 0 && a < smallest_) smallest_ = a;
}

void ColumnWidths::noteDecimals(float a, int left) {
  // Beyond iDigits no value adds more; in digits mode the decimals come at the end.
  if (widths_.point == 1 && (bDigitsMode_ || widths_.decimals >= iDigits_)) return;
  if (bWholeCheck_ && nearWhole(a, 0.0005, 0.0005)) return;
  widths_.point = 1;
  if (bDigitsMode_) return;
  int decimals = decimalsInColumnText(a, left);
  if (decimals > 2) decimals = enoughDecimals(a, iDigits_, 0.5, 2, decimals);
  widths_.decimals = std::max(widths_.decimals, decimals);
}

// Digits mode: enough decimals for iDigits significant digits in the largest value, and for the
// first digit of the smallest one.
void ColumnWidths::spreadDigits() {
  const int left = decimalExponent(largest_) + 1;
  const int width = std::max({iDigits_, left, left - decimalExponent(smallest_)});
  widths_.sign = iNegLeft_ == left ? 1 : 0;
  widths_.decimals = std::max(width - left, 0);
  if (left < 0) widths_.left = 1;
}

Widths ColumnWidths::finished() {
  if (widths_.point == 1) {
    widths_.decimals = std::min(widths_.decimals, iDigits_);
    if (bDigitsMode_) spreadDigits();
  }
  return widths_;
}

int decimalsOfValue(float sValue, int left, int iDigits, bool bDigitsMode) {
  const double a = std::fabs(double{sValue});
  if (bDigitsMode) {
    const int leadingZeros = a < 1 ? -(decimalExponent(a) + 1) : -left;
    return std::max(leadingZeros + iDigits, 0);
  }
  int decimals = decimalsInText(std::fabs(sValue), left);
  if (decimals > 3) decimals = enoughDecimals(sValue, iDigits, 0.1, 3, decimals);
  return std::min(decimals, iDigits);
}

}  // namespace

std::string FindFormatString(std::span<const float> sValues, int iCount, int iDigits, int iWidth,
                             bool bDigitsMode, bool bWholeCheck, bool bCommas, bool bExponent) {
  ColumnWidths column(iDigits, bDigitsMode, bWholeCheck);
  for (int i = 1; i <= iCount; ++i) column.add(sValues[i]);
  return compose(column.finished(), column.largest(), iWidth, bCommas, bExponent);
}

std::string FindFormatStringValue(float sValue, int iDigits, int iWidth, bool bDigitsMode,
                                  bool bWholeCheck, bool bCommas, bool bExponent) {
  const double a = std::fabs(double{sValue});
  const auto shownAsZero = static_cast<float>(4 * portable::pow(10.0, -(iWidth + 1)));
  if (!(a >= shownAsZero) || std::isinf(a)) return "0";
  Widths widths;
  widths.sign = sValue > 0 ? 0 : 1;
  widths.left = leftDigits(a);
  const bool whole = bWholeCheck && a > 0.9 && nearWhole(sValue, 0.1, 0.00025);
  widths.point = whole ? 0 : 1;
  if (!whole) widths.decimals = decimalsOfValue(sValue, widths.left, iDigits, bDigitsMode);
  return compose(widths, a, iWidth, bCommas, bExponent);
}

}  // namespace tolmer
