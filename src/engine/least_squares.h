// The least-squares fit by Cholesky decomposition of the cross products, the dependent variable
// taken along as the last column.
//
// Terms are numbered 1 to k; number k + 1 is the dependent variable. All arrays run from 1 with
// element 0 unused. Every sum runs in double in the order of its index; what is stored in a single
// array is rounded at the store.
//
// Source of the method: G. A. F. Seber, Linear Regression Analysis, 1977, section 11.3.
#pragma once

#include <span>
#include <vector>

#include "base/message_box.h"
#include "state/analysis_state.h"
#include "state/matrix.h"

namespace tolmer {

// Fits column iCols(k + 1) of sX on the columns iCols(1..k) with n cases and fills Fit, whose
// arrays have been resized for n cases and k terms. bIntercept: the model holds a constant term (a
// column of ones among the terms), which the degrees of freedom of F leave out.
//
// Messages: "Too few cases for this model." where n is not above k; "Singular ..." at a pivot that
// is not positive. Either sets Fit.bSingular and leaves all else in Fit as it was.
void MultipleRegression(const Matrix<float>& sX, std::span<const Int16> iCols, int k, int n,
                        tolmer::Fit& Fit, bool bIntercept, MessagePort& messages);

// The steps of MultipleRegression.

// The cross products of terms and dependent variable, elements (i, j) for 1 <= i <= j <= k + 1.
Matrix<double> CrossProducts(const Matrix<float>& sX, std::span<const Int16> iCols, int n, int k);

// Replaces the upper triangle of dCross by its upper factor. A pivot that is not positive stops
// the work, is reported, and sets bSingular; otherwise bSingular stays as it is. There is no
// tolerance: a perfect fit stops at the last pivot as duplicate terms stop at the second of them.
void CholeskyFactor(Matrix<double>& dCross, int k, bool& bSingular, MessagePort& messages);

// The inverse of the k by k upper factor in dCross, in the upper triangle of sVarCov.
void InvertTriangular(const Matrix<double>& dCross, int k, Matrix<float>& sVarCov);

// The coefficients from the factor in dCross and its inverse in sVarCov; each addition is rounded
// to single.
void Coefficients(const Matrix<double>& dCross, int k, std::vector<float>& sCoef,
                  const Matrix<float>& sVarCov);

// Fitted values, residuals, sums of squares about the mean, standard error, R-squared, R, F and its
// probability. sF is 999.999 and sFProb NaN where the model is an intercept alone.
void FitStatistics(const Matrix<float>& sX, std::span<const Int16> iCols, int n, int k,
                   tolmer::Fit& Fit, bool bIntercept, MessagePort& messages);

// Turns the inverse factor in Fit.sVarCov into the variances of the coefficients, on the diagonal,
// and 0 off it; then standard errors, t and two-sided p. A standard error of 0 is reported as "Zero
// standard error in VarCovStats.", and the t and p of its term stay as they were.
void VarCovStats(tolmer::Fit& Fit, int n, int k, MessagePort& messages);

// Fit.sDurbinWatson from the residuals in case order; NaN or infinite where Fit.sSSE is 0.
void DurbinWatson(AnalysisState& state);

// 1 - (1 - R-squared) (n - 1) / (n - terms) of the last fit, formed in single precision; below 0
// where the model explains less than chance would. Not a number without degrees of freedom.
float adjustedRSquared(const AnalysisState& state);

}  // namespace tolmer
