#include "engine/normal_distribution.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace tolmer {
namespace {

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
  const double y = std::min(-std::log(4 * q * (1 - q)), lastRisingY);
  double polynomial = 0;
  for (auto c = coefficients.rbegin(); c != coefficients.rend(); ++c)
    polynomial = polynomial * y + *c;
  return std::sqrt(y * polynomial);
}

}  // namespace

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
  return static_cast<float>(std::exp(-0.5 * z * z) / (dSD * 2.506628275));
}

}  // namespace tolmer
