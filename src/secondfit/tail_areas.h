// Tail areas of the t and F distributions and the t quantile to nearly all digits of a double,
// also far out, where 1 less the other tail has no digit left.
//
// Independent of the engine's distributions, which follow told approximations.
#pragma once

namespace tolmer {

// The regularised incomplete beta function I_x(a, b) with x / (1 - x) = odds >= 0, for a, b > 0
// that are halves of whole numbers.
// Relative error below 1e-13 for a + b up to 2e4 and results above 1e-300, while I is not above
// 0.5; then the absolute error.
//
// Sources: A. R. DiDonato and A. H. Morris, ACM Transactions on Mathematical Software 18, 1992,
// 360-373 (the factor, and the continued fraction BFRAC); M. Abramowitz and I. A. Stegun, Handbook
// of Mathematical Functions, 1964, formulas 6.1.41 (Stirling) and 26.5.2 (the other side).
double betaArea(double a, double b, double odds);

// P(|T| > |t|) for Student's t with df >= 1 degrees of freedom: formula 26.7.1 there. NaN for df <
// 1 or t not a number.
double studentTwoTails(int df, double t);

// The density of Student's t at t, the derivative of one tail.
double studentDensity(int df, double t);

// The t with P(|T| > t) = area, 0 < area < 1, by Newton's method; relative error below 1e-14 for
// areas down to 1e-6.
double studentQuantile(int df, double area);

// P(F' > F) for F' with df1 and df2 degrees of freedom: formula 26.6.2. 1 for F <= 0.
double fTail(int df1, int df2, double F);

// P(X > x) for chi-square with df >= 1 degrees of freedom, up to some hundreds: formulas 26.4.4 and
// 26.4.5, sums of df / 2 terms. 1 for x <= 0.
double chiSquareTail(int df, double x);

// The density of F at F > 0.
double fDensity(int df1, int df2, double F);

}  // namespace tolmer
