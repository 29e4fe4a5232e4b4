// Elementary functions that give the same bits on every system. The C libraries' own differ in
// their last digits, even between processors, so that the same data would read otherwise elsewhere.
// Sums, products, quotients and square roots are the same everywhere and need nothing from here.
//
// Errors are below 0.51 units of the last place for exp, log, log1p, log10 and pow while the result
// is not below 1e-307, below 1 for the sine and the cosine and below 5 for erfc. Values without a
// number are those of the C library: log of a negative number is NaN, that of 0 is -infinity.
//
// Sources: P. T. P. Tang, ACM Transactions on Mathematical Software 15, 1989, 144-157 (exp) and 16,
// 1990, 378-400 (log): tables, and short series for what is left; F. Matta and A. Reichel,
// Mathematics of Computation 25, 1971, 339-344 (erfc).
#pragma once

namespace tolmer::portable {

double exp(double x);
double log(double x);
double log1p(double x);  // of 1 + x
double log10(double x);
double pow(double base, double exponent);

// Of whole turns, |turns| up to 2^50: 0.25 is a right angle.
double sineOfTurns(double turns);
double cosineOfTurns(double turns);

double erfc(double x);

}  // namespace tolmer::portable
