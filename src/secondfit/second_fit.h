// A second fit of the model, to judge the first by: the same held single-precision data, in double
// precision, by orthogonal reflections in place of cross products. Shares no arithmetic with the
// engine.
//
// Every number carries a bound of its error, of first order in the rounding of one operation: the
// exact result for the held data lies within value -+ error. Where the data do not determine a
// number the value is not a number and the error infinite.
#pragma once

#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "state/analysis_state.h"

namespace tolmer {

struct Figure {
  double value = std::numeric_limits<double>::quiet_NaN();
  double error = std::numeric_limits<double>::infinity();
};

// A least-squares problem by itself. Cases and terms count from 0 here.
struct ModelData {
  int cases = 0;                   // n
  int terms = 0;                   // k, the intercept counted
  bool intercept = false;          // term 0 is a column of ones
  std::vector<double> x;           // (n, k) by columns, in the units of the data
  std::vector<double> y;           // (n) the dependent variable
  std::vector<std::string> names;  // (k + 1) of the terms, then of the dependent variable

  // The values of a term, or, behind the last, of the dependent variable.
  std::span<const double> column(int term) const {
    const auto n = static_cast<std::size_t>(cases);
    return term == terms ? std::span(y)
                         : std::span(x).subspan(static_cast<std::size_t>(term) * n, n);
  }
  double at(int row, int term) const { return column(term)[static_cast<std::size_t>(row)]; }
  void leaveOut(int term);
};

// The held data of the model: sData by iModelCol and bUseIntercept. Empty (0 cases) where the state
// has no model.
ModelData heldData(const AnalysisState& state);
// The same with the numbers as they were written; nothing where nobody kept them, or where singles
// hold them all.
std::optional<ModelData> writtenData(const AnalysisState& state);

// One term of the model; e.g. coefficients in units of Y per unit of the term.
// Sources: D. A. Belsley, E. Kuh and R. E. Welsch, Regression Diagnostics, 1980 (inflation: section
// 3.2); N. R. Draper and H. Smith, Applied Regression Analysis, 3rd edition 1998, chapter 5.
struct TermFigures {
  Figure coefficient;
  Figure standardError;  // s times the root of the diagonal of the inverse of X'X
  Figure t;              // coefficient / standardError
  Figure p;              // two-sided, of t with n - k degrees of freedom
  Figure lower, upper;   // coefficient -+ the t quantile of 97.5 per cent x standardError
  // 1 / (1 - R-squared) of the regression on the other predictors and an intercept, also where the
  // model has none. None for the intercept, and none for the only predictor of a model without one,
  // which the displays do not compute. Infinite where the term is a combination of others.
  Figure inflation;
};

// One case. Sources: R. D. Cook and S. Weisberg, Residuals and Influence in Regression, 1982,
// sections 2.2.1 and 3.1; Belsley, Kuh and Welsch, section 2.1. e the residual, s the standard
// error of the regression, h the leverage.
struct CaseFigures {
  Figure fitted;
  Figure residual;      // observed less fitted, in units of Y
  Figure standardized;  // e / s
  Figure leverage;      // diagonal of the projection on the terms, 0 to 1
  // The others need a leverage below 1 and are undetermined else.
  Figure internal;     // e / (s sqrt(1 - h))
  Figure studentized;  // e / (s' sqrt(1 - h)) with s' of the fit without this case; needs n - k > 1
  Figure cooks;        // internal^2 h / ((1 - h) k)
  Figure dffits;       // studentized sqrt(h / (1 - h))
};

struct ModelFigures {
  Figure ssr, sse, sst;    // squares of fitted values about the mean of Y, of residuals, of Y about
                           // its mean, as the displays take them, also without an intercept
  Figure f, fProbability;  // (ssr / regression df) / (sse / error df), its right tail; none for an
                           // intercept alone
  Figure rSquared;         // ssr / sst
  Figure adjusted;         // 1 - (1 - rSquared) (n - 1) / (n - k)
  Figure multipleR;        // root of rSquared
  Figure standardError;    // s: root of sse / (n - k)
  Figure durbinWatson;     // squared differences of neighbouring residuals by sse
  Figure logLikelihood;    // of normal errors: -n/2 (log(2 pi) + log(sse / n) + 1)
  Figure aic, bic;  // -2 logLikelihood + 2 (k + 1), and + log(n) (k + 1): the error's variance
                    // counts as a parameter, as in R
};

// A variable that others give exactly: name = sum of coefficient x part.
struct Combination {
  struct Part {
    std::string name;  // "Intercept" for the constant
    double coefficient = 0;
  };
  std::string name;
  bool isDependent = false;  // the dependent variable, else a predictor
  bool exact = false;  // to some 20 digits; else to the rounding of single precision, which is all
                       // that data computed from others in a sheet can show
  std::vector<Part> parts;
};

struct SecondFit {
  int cases = 0;
  int terms = 0;
  bool intercept = false;
  int rank = 0;          // below `terms` where the held data leave terms undetermined
  double condition = 0;  // 2-norm, of the model matrix with columns scaled to unit length; infinite
                         // where the rank is below the terms
  bool extended = false;  // double precision left too few digits: done with twice as many
  double tQuantile = 0;   // of 97.5 per cent, n - k degrees of freedom
  ModelFigures model;
  std::vector<TermFigures> byTerm;    // (terms), in the order of the fit
  std::vector<CaseFigures> byCase;    // (cases), in case order
  std::vector<double> inverseFactor;  // (terms, terms) by columns: W with W W' = inverse of X'X

  bool determined() const { return rank == terms && cases > terms; }
};

// Fits the data; without a case, without a term or with values that are not finite everything is
// undetermined and the rank 0. With a rank below the terms, fitted values, residuals, leverages and
// sums of squares are those of the columns that are determined, and the rest is undetermined.
//
// `shownNumbers` leaves out what no display shows, leverages and the figures that follow from them:
// a quarter of the time. `noticeable` has them for the cases alone that may move the fit
// noticeably, with Cook's distances above this or leverages of 1. Source: R. D. Cook and S.
// Weisberg, Applied Regression Including Computing and Graphics, 1999, section 15.2 (above 0.5
// worth a look, above 1 always).
constexpr double noticeableDistance = 0.5;
enum class Extent { all, noticeable, shownNumbers };
SecondFit fitSecond(const ModelData& data, Extent extent = Extent::all);

// The shown numbers of data that differ from those of `fit` by hardly more than rounding: one step
// of refinement by its factor, a twentieth of a fit, with bounds of what the step leaves. Nothing
// where the model has no intercept or the difference is too large for the bounds.
// Source: A. Bjoerck, Numerical Methods for Least Squares Problems, 1996, section 2.9.2.
std::optional<SecondFit> fitNearby(const SecondFit& fit, const ModelData& held,
                                   const ModelData& other);

// The mean of Y at new values of the terms (1 first where there is an intercept), its 95 per cent
// limits, those of a single new observation, and the leverage of the point: x'(X'X)^-1 x.
// Source: Draper and Smith, section 3.1 and 5.2. Not numbers where the fit is not determined.
struct Prediction {
  double fit, meanLower, meanUpper, newLower, newUpper, leverage;
};
Prediction predictSecond(const SecondFit& fit, std::span<const double> terms);

// Why there is no valid fit, or nearly none: see Combination. Done only where the condition exceeds
// 1e5 or the residuals all but vanish, since it takes much longer than the fit; empty otherwise.
std::vector<Combination> combinations(const ModelData& data, const SecondFit& fit);

}  // namespace tolmer
