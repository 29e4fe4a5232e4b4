// The results of one least-squares fit.
#pragma once

#include <vector>

#include "state/matrix.h"

namespace tolmer {

// Arrays run from 1; element 0 stays empty. A fit that meets a non-positive pivot sets bSingular
// and leaves every other field as it was.
struct Fit {
  std::vector<float> sFitted;  // (0..iNumCases) fitted values, in units of the dependent variable
  std::vector<float> sResid;   // (0..iNumCases) observed less fitted
  std::vector<float> sCoef;    // (0..iNumTerms) coefficients
  std::vector<float> sCoefSE;  // (0..iNumTerms) their standard errors
  std::vector<float> sCoefT;   // (0..iNumTerms) t statistics
  std::vector<float> sCoefP;   // (0..iNumTerms) two-sided p-values
  Matrix<float> sVarCov;       // (0..iNumTerms+1)^2 variances on the diagonal, 0 off it
  float sSSR = 0;              // sum of squares of the fitted values about the mean of Y
  float sSSE = 0;              // sum of squared residuals
  float sSST = 0;              // sum of squares of Y about its mean
  float sStdErr = 0;           // standard error of the regression
  float sRSquared = 0;
  float sR = 0;             // multiple R
  float sF = 0;             // overall F
  float sFProb = 0;         // right-tail probability of sF
  float sDurbinWatson = 0;  // written by DurbinWatson
  bool bSingular = false;   // the last fit stopped at a non-positive pivot

  friend bool operator==(const Fit&, const Fit&) = default;
};

}  // namespace tolmer
