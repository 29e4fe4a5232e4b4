// The gamma and incomplete beta functions on which the tail areas of t and F rest.
//
// Source of all three methods: W. H. Press, S. A. Teukolsky, W. T. Vetterling and B. P. Flannery,
// Numerical Recipes, 2nd edition, 1992, sections 6.1 and 6.4.
#pragma once

#include "base/message_box.h"

namespace tolmer {

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

}  // namespace tolmer
