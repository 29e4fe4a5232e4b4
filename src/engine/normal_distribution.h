// Inverse and density of the normal distribution.
#pragma once

namespace tolmer {

// The z with area p to its right; infinite at p <= 0 (plus) and p >= 1 (minus), NaN for NaN.
//
// The tail areas 0.05, 0.025, 0.01 and 0.005, and the doubles 0.95, 0.975, 0.99 and 0.995 on the
// other side, give the five-decimal values of printed tables. Any other p goes through nine terms
// of the series of H. Toda (1967) in y = -log(4p(1-p)). Cut there, it is good to 2e-7 for tail
// areas down to 0.02 and short by 2e-4 at 0.001, by 5e-3 at 1e-4; z rises no further than 4.3645,
// which it reaches at 2.0e-6.
double NormalInverse(double p);

// Density of the normal distribution at dX, rounded to single; 0 beyond five standard deviations.
float NormalDensity(double dMean, double dSD, double dX);

}  // namespace tolmer
