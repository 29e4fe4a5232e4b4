// Inverse and density of the normal distribution.
#pragma once

namespace tolmer {

// The z with area p to its right; infinite at p <= 0 (plus) and p >= 1 (minus), NaN for NaN.
//
// The tail areas 0.05, 0.025, 0.01 and 0.005, and the doubles 0.95, 0.975, 0.99 and 0.995 on the
// other side, give the five-decimal values of printed tables. Any other p goes through the
// nine-term series in y = -log(4p(1-p)) of H. Toda (1967), whose z drifts off once the smaller
// tail area is below about 1e-10.
double NormalInverse(double p);

// Density of the normal distribution at dX, rounded to single; 0 beyond five standard deviations.
float NormalDensity(double dMean, double dSD, double dX);

}  // namespace tolmer
