// Left-tail area of Student's t distribution and its inverse.
#pragma once

#include "base/message_box.h"

namespace tolmer {

// Area to the left of t with iDf degrees of freedom. The complement is taken for t >= 0, so the
// small right tail of a large t has an absolute, not a relative accuracy. NaN for iDf = 0.
double TDist(int iDf, double t, MessagePort& messages);

// The t with area p to its right; infinite at p <= 0 (plus) and p >= 1 (minus), NaN where p is NaN
// or iDf is below 1.
//
// Exact for 1 and 2 degrees of freedom, through FInverse for 3 to 5, and above that the
// Cornish-Fisher expansion of M. Abramowitz and I. A. Stegun, Handbook of Mathematical Functions,
// 1964, formula 26.7.5, with a fifth correction term. At 6 degrees of freedom, where it is worst,
// it is off by 2.0e-5 for p = 0.025 and by 1.5e-4 for p = 0.005 (against R's qt).
double TInverse(int iDf, double p);

}  // namespace tolmer
