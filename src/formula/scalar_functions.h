// Arithmetic as spreadsheets know it. Every result is a finite number or an error.
#pragma once

#include <cstdint>
#include <span>

#include "formula/formula_functions.h"
#include "formula/formula_value.h"

namespace tolmer {

// #NUM! for what is not finite.
CellValue checkedNumber(double number);

// Equal, or apart by less than 2^-48 of either: so much is lost in a few operations on decimal
// fractions, and 0.1+0.2 shall be 0.3.
bool areNearlyEqual(double a, double b);

// The symbols of FormulaStep.
CellValue binaryResult(char symbol, double left, double right);

// A function of single values, without IF, LAG, ROW and the random ones.
CellValue functionResult(FormulaFunction function, std::span<const double> values);

// Half away from zero at so many digits behind the point, or before it for negative ones. Halves
// are judged by the number's 15 digits: 1.005 to two digits is 1.01, although the binary number
// lies below.
double roundedToDigits(double number, double digits);

// The number of one random call: it depends on nothing but both arguments.
CellValue randomResult(FormulaFunction function, std::uint64_t seed, int call,
                       std::span<const double> values);

// The standard normal distribution, to the precision of a double. The analysis keeps a shorter
// approximation of its own, which its displays are defined by.

// The probability of a value up to z, also far out at either side.
double normalProbability(double z);
double normalDensity(double z);

// The z of a probability within (0, 1). Wichura 1988, Applied Statistics 37, 477-484: algorithm
// AS 241, PPND16.
double normalQuantile(double probability);

}  // namespace tolmer
