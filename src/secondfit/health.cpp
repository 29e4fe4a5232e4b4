#include "secondfit/health.h"

#include <cmath>

#include "base/portable_math.h"
#include "engine/number_format.h"

namespace tolmer {
namespace {

// A number as it stands in a cell: digits x 10^(exponent - decimals).
struct ShownText {
  double digits = 0;  // with the sign
  int count = 0;      // digits in all
  int whole = 0;      // those before the point
  int decimals = 0;
  int exponent = 0;
  int exponentDigits = 0;  // 0 without E notation
  bool grouped = false;
};

class ShownReader {
 public:
  explicit ShownReader(std::string_view text) : rest_(text) {}

  std::optional<ShownText> read() {
    const bool negative = take('-');
    readDigits();
    if (take('E') && !readExponent()) return {};
    if (result_.count == 0 || !rest_.empty()) return {};
    if (negative) result_.digits = -result_.digits;
    return result_;
  }

 private:
  bool take(char c) {
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }
  int takeDigit() {
    if (rest_.empty() || rest_.front() < '0' || rest_.front() > '9') return -1;
    const int digit = rest_.front() - '0';
    rest_.remove_prefix(1);
    return digit;
  }
  void readDigits() {
    double digits = 0;
    int count = 0;
    int whole = -1;  // until there is a point
    std::size_t at = 0;
    for (; at < rest_.size(); ++at) {
      const char c = rest_[at];
      if (c >= '0' && c <= '9') {
        digits = 10 * digits + (c - '0');
        ++count;
      } else if (c == '.' && whole < 0) {
        whole = count;
      } else if (c == ',' && whole < 0 && count > 0) {
        result_.grouped = true;
      } else {
        break;
      }
    }
    rest_.remove_prefix(at);
    result_.digits = digits;
    result_.count = count;
    result_.whole = whole < 0 ? count : whole;
    result_.decimals = count - result_.whole;
  }
  bool readExponent() {
    const bool negative = take('-');
    if (!negative) take('+');
    for (int digit = takeDigit(); digit >= 0 && result_.exponentDigits < 4; digit = takeDigit()) {
      result_.exponent = 10 * result_.exponent + digit;
      ++result_.exponentDigits;
    }
    if (negative) result_.exponent = -result_.exponent;
    return result_.exponentDigits > 0;
  }

  std::string_view rest_;
  ShownText result_;
};

// 10^power; exact up to 22.
double powerOfTen(int power) {
  static constexpr double exact[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                     1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                     1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  return power <= 22 ? exact[power] : portable::pow(10.0, power);
}

double inUnits(double value, const ShownText& shown) {
  const int places = shown.decimals - shown.exponent;
  return places >= 0 ? value * powerOfTen(places) : value / powerOfTen(-places);
}

bool confirms(const ShownText& shown, double value) {
  const double rounded = std::round(inUnits(value, shown));
  const double allowed = shown.digits == 0 ? 0 : 1;
  return std::abs(rounded - shown.digits) <= allowed;
}

Doubt judge(const ShownText& shown, const Figure& second) {
  if (!(inUnits(second.error, shown) < 0.5)) return Doubt::uncertain;
  return confirms(shown, second.value) ? Doubt::none : Doubt::differs;
}

std::string pictureLike(const ShownText& shown) {
  std::string picture = shown.grouped ? "###,###,###,###,##0" : shown.whole > 0 ? "0" : "";
  if (shown.decimals > 0)
    picture += '.' + std::string(static_cast<std::size_t>(shown.decimals), '0');
  if (shown.exponentDigits > 0)
    picture += "E+" + std::string(static_cast<std::size_t>(shown.exponentDigits), '0');
  return picture;
}

}  // namespace

std::optional<Doubt> doubtOf(std::string_view text, const Figure& second) {
  const auto shown = ShownReader(text).read();
  return shown ? std::optional(judge(*shown, second)) : std::nullopt;
}

bool surelyConfirmed(std::string_view text, const Figure& second) {
  const auto shown = ShownReader(text).read();
  return !shown || (confirms(*shown, second.value - second.error) &&
                    confirms(*shown, second.value + second.error));
}

void checkCell(Health& health, const ShownCell& cell) {
  const auto shown = ShownReader(cell.text).read();
  if (!shown) return;
  ++health.checked;
  const Doubt doubt = judge(*shown, cell.second);
  if (doubt == Doubt::none) return;
  health.unconfirmed.push_back({std::string(cell.display), cell.row, cell.column,
                                std::string(cell.text),
                                formatNumber(cell.second.value, pictureLike(*shown)), doubt});
}

}  // namespace tolmer
