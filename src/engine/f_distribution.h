// Right-tail area of the F distribution and its inverse.
#pragma once

#include "base/message_box.h"

namespace tolmer {

// Area to the right of x with iDf1 and iDf2 degrees of freedom, 1 at x = 0 and 0 at infinity.
// A negative x takes the incomplete beta function out of its domain: its message, then NaN.
// NaN too where a number of degrees of freedom is 0.
double FDist(int iDf1, int iDf2, double x, MessagePort& messages);

// The F with area p to its right. p <= 0 gives 99999999; NaN where p is NaN or a number of degrees
// of freedom is below 1.
//
// Above 30 degrees of freedom on both sides by Paulson's approximation (E. Paulson, Annals of
// Mathematical Statistics 13, 1942, 233-235), which has no value in the far tails: there the result
// is 99999999 or 0. Otherwise by bisection to a relative width of 1.0E-5 of u = 1 / (1 + F
// df1/df2).
double FInverse(int iDf1, int iDf2, double p);

}  // namespace tolmer
