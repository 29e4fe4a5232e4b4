// How numbers of two fits are told in a sentence: by the digits that stand there.
#pragma once

#include <optional>
#include <string>

#include "secondfit/second_fit.h"

namespace tolmer {

// About four digits, as the displays show them.
std::string figureText(double value);
std::string figureText(double value, int decimals);
// "P = 0.896", "P below 0.001".
std::string probabilityWords(double p);

// "lowered the largest VIF from 282.5 to 3.3"; "left the standard error at 2.35" where the shown
// digits are the same.
std::string movedWords(const std::string& what, double before, double after);
// Nothing where one of the fits has no VIF or an infinite one.
std::optional<std::string> inflationWords(std::optional<double> before,
                                          std::optional<double> after);
// "R-squared fell by 0.001", "rose by less than 0.001", "did not change" within the errors' bounds.
std::string squaresWords(const Figure& before, const Figure& after);
// The same as what somebody did: "lowered R-squared by 0.001".
std::string squaresMoved(const Figure& before, const Figure& after);

}  // namespace tolmer
