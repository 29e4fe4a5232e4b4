// From where on a figure is remarkable: what displays mark, the interpretation tells, and
// notes and the comparison of models hold a p against.
#pragma once

namespace tolmer {

// p is a single, and so are the levels it is held against: a p that is the single nearest to a
// level does not reach it.
inline constexpr float strictLevel = 0.01F;
inline constexpr float usualLevel = 0.05F;
// For a p in double precision, of the tests that no display shows.
inline constexpr double usualLevelOfDoubles = 0.05;

// A VIF above this is worth a warning.
inline constexpr float highVIF = 10;

// A figure is an outlier beyond so many standard deviations from its variable's mean.
inline constexpr double outlierDeviations = 3;

// Residuals are told apart by so many standard errors.
inline constexpr float farResidual = 2;
inline constexpr float fartherResidual = 3;
inline constexpr float farthestResidual = 4;

}  // namespace tolmer
