// Tail areas of t and F, and the inverses of these and of the normal distribution.
#pragma once

#include "base/message_box.h"

namespace tolmer {

// Gamma and incomplete beta functions: W. H. Press, S. A. Teukolsky, W. T. Vetterling and
// B. P. Flannery, Numerical Recipes, 2nd edition, 1992, sections 6.1 and 6.4.

// Natural logarithm of the gamma function for x > 0, by the Lanczos series with six coefficients.
// The relative error of the gamma function is below 2e-10.
double GammaLn(double x);

// Continued fraction of the incomplete beta function by the modified Lentz method. It stops at a
// relative step below 3.0E-8, or silently after 100 rounds.
double BetaCF(double a, double b, double x);

// Regularised incomplete beta function for a, b > 0; NaN where x is not within 0 to 1.
double incompleteBeta(double a, double b, double x);

// As incompleteBeta; an x outside 0 to 1 (NaN is not outside) is reported in a plain message box
// before NaN comes back.
double BetaI(double a, double b, double x, MessagePort& messages);

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
