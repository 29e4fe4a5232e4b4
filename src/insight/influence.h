// How much each case matters to the fit, with its rank among all cases in words.
#pragma once

#include <string>
#include <vector>

#include "secondfit/second_fit.h"

namespace tolmer {

// One number of one case. Numbers with a sign are ranked by their size.
struct CaseMeasure {
  const char* name;     // "Cook's distance"
  Figure figure;        // undetermined where the fit passes through the case whatever its value
  int rank = 0;         // 1 the largest: one more than the cases above it; 0 where undetermined
  int alike = 0;        // how many other cases have the same rank
  std::string words{};  // "the third largest of 21", "the smallest of 21"
};

// Residual, standardized, internally and externally studentized residual, leverage, Cook's distance
// and DFFITS of a case, from 1. Of a fit with Extent::all that is determined.
std::vector<CaseMeasure> measuresOf(const SecondFit& fit, int iCase);

// Cases that move the fit noticeably by themselves: Cook's distance above 0.5, or a leverage of 1,
// with which the fit passes through the case wherever it lies. Ascending, from 1. Of a fit with
// Extent::noticeable at least.
std::vector<int> influentialCases(const SecondFit& fit);
bool isHeldByOneCase(const CaseFigures& figures);  // that leverage of 1

// The leaving-one-out error, in units of Y: each case predicted by the fit to all others, and the
// root of the mean of the squared misses e / (1 - h). Not a number where a leverage of 1 leaves no
// fit to the others. Needs a determined fit with Extent::noticeable at least, to these data.
// Source: D. M. Allen, Technometrics 16, 1974, pages 125-127 (the sum of these squares).
double leavingOneOut(const ModelData& data, const SecondFit& fit);

}  // namespace tolmer
