// The least-squares problem itself, by Householder reflections: what needs matrices.
//
// Sources: G. H. Golub and C. F. Van Loan, Matrix Computations, 4th edition 2013, sections 5.1.7
// (blocks of reflections), 5.2.2, 5.3.3 (solution) and 5.4.2 (column pivoting); A. Bjoerck,
// Numerical Methods for Least Squares Problems, 1996, section 1.4.3 (perturbations).
#pragma once

#include <string>
#include <vector>

#include "secondfit/second_fit.h"

namespace tolmer {

// All vectors from 0. Columns are scaled to unit length inside; what stands here is in the units of
// the data. n cases, k terms.
struct OrthogonalFit {
  int rank = 0;                       // k where every term is determined
  bool extended = false;              // done with twice the digits of a double
  double condition = 0;               // 2-norm, of the scaled matrix
  std::vector<double> coefficient;    // (k); empty where rank is below k, as the next four
  std::vector<double> rootDiagonal;   // (k) roots of the diagonal of the inverse of X'X
  std::vector<double> amplification;  // (k) of the residuals' error into the coefficient
  std::vector<double> inverseFactor;  // (k, k) by columns: W with W W' = the inverse of X'X
  std::vector<double> inflation;      // (k) variance inflation factors, also of the intercept
  std::vector<double> leverage;       // (n) as asked for; of the determined columns
  std::vector<double> fitted;         // (n)
  std::vector<double> residual;       // (n)
  double sumFitted = 0;               // of squared fitted values about the mean of Y
  double sumResidual = 0;             // of squared residuals
  double sumTotal = 0;                // of squares of Y about its mean
  double sumSteps = 0;                // of squared differences of neighbouring residuals

  // The bounds of first order that follow from a relative error `rounding` of each scaled column.
  double rounding = 0;
  double spread = 0;         // rounding times the sum of the scaled rootDiagonal: relative error of
                             // what hangs on the inverse of X'X
  double residualError = 0;  // length of the error of the residuals' vector
  double lengthY = 0;        // root of the sum of squares of Y
};

// In double precision; where the bounds leave too few digits, again with twice the digits. Nothing
// at all (no fitted values) of data that are not finite.
OrthogonalFit fitOrthogonally(const ModelData& data, Extent extent);

// The columns of the data that are combinations of earlier ones, and the dependent variable where
// it is one of the terms. Costs some 30 fits: for data of a rank below their terms, or nearly so.
std::vector<Combination> findCombinations(const ModelData& data);

}  // namespace tolmer
