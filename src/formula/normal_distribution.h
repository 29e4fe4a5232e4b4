// The standard normal distribution, to the precision of a double. The analysis keeps a shorter
// approximation of its own, which its displays are defined by.
#pragma once

namespace tolmer {

// The probability of a value up to z, also far out at either side.
double normalProbability(double z);
double normalDensity(double z);

// The z of a probability within (0, 1). Wichura 1988, Applied Statistics 37, 477-484: algorithm
// AS 241, PPND16.
double normalQuantile(double probability);

}  // namespace tolmer
