#include "support/literal_pipeline.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/decimals_choice.h"
#include "engine/distributions.h"

namespace tolmer::literal {
namespace {

double square(double x) { return x * x; }

void crossProducts(const AnalysisState& s, int k, Matrix<double>& dCross) {
  for (int i = 1; i <= k + 1; ++i)
    for (int j = i; j <= k + 1; ++j) {
      double sum = 0;
      for (int c = 1; c <= s.iNumCases; ++c)
        sum += double{s.sData(c, s.iTermCol[i])} * double{s.sData(c, s.iTermCol[j])};
      dCross(i, j) = sum;
    }
}

bool choleskyFactor(Matrix<double>& dCross, int k, MessagePort& messages) {
  for (int i = 1; i <= k + 1; ++i) {
    double sum = 0;
    for (int m = 1; m <= i - 1; ++m) sum += square(dCross(m, i));
    if (dCross(i, i) <= sum) {
      messages.messageBox({.title = "",
                           .text = "Singular variance-covariance matrix. Check X matrix for "
                                   "duplicate variables.",
                           .icon = MessageIcon::critical});
      return false;
    }
    dCross(i, i) = std::sqrt(dCross(i, i) - sum);
    for (int j = i + 1; j <= k + 1; ++j) {
      sum = 0;
      for (int m = 1; m <= i - 1; ++m) sum += dCross(m, i) * dCross(m, j);
      dCross(i, j) = (dCross(i, j) - sum) / dCross(i, i);
    }
  }
  return true;
}

void invertTriangular(const Matrix<double>& dCross, int k, Matrix<float>& sVarCov) {
  for (int i = k; i >= 1; --i) {
    sVarCov(i, i) = static_cast<float>(1.0 / dCross(i, i));
    for (int j = i - 1; j >= 1; --j) {
      double sum = 0;
      for (int m = j + 1; m <= i; ++m) sum += double{sVarCov(m, i)} * dCross(j, m);
      sVarCov(j, i) = static_cast<float>(-sum / dCross(j, j));
    }
  }
}

void coefficients(const Matrix<double>& dCross, int k, Fit& fit) {
  for (int i = 1; i <= k; ++i) {
    fit.sCoef[i] = 0;
    for (int j = i; j <= k; ++j)
      fit.sCoef[i] =
          static_cast<float>(double{fit.sCoef[i]} + double{fit.sVarCov(i, j)} * dCross(j, k + 1));
  }
}

void fitStatistics(AnalysisState& s, int k, bool bIntercept, MessagePort& messages) {
  Fit& fit = s.Fit;
  const int n = s.iNumCases;
  double sumY = 0, SSE = 0, SSR = 0, SST = 0;
  for (int i = 1; i <= n; ++i) {
    double fitted = 0;
    for (int j = 1; j <= k; ++j) fitted += double{fit.sCoef[j]} * double{s.sData(i, s.iTermCol[j])};
    fit.sFitted[i] = static_cast<float>(fitted);
    sumY += s.sData(i, s.iTermCol[k + 1]);
    fit.sResid[i] = s.sData(i, s.iTermCol[k + 1]) - fit.sFitted[i];
    SSE += square(fit.sResid[i]);
  }
  const double meanY = sumY / n;
  for (int i = 1; i <= n; ++i) {
    SSR += square(fit.sFitted[i] - meanY);
    SST += square(s.sData(i, s.iTermCol[k + 1]) - meanY);
  }
  fit.sStdErr = static_cast<float>(std::sqrt(SSE / (n - k)));
  fit.sSSE = static_cast<float>(SSE);
  fit.sSSR = static_cast<float>(SSR);
  fit.sSST = static_cast<float>(SST);
  fit.sRSquared = static_cast<float>(SSR / SST);
  fit.sR = static_cast<float>(std::sqrt(double{fit.sRSquared}));
  const int f = bIntercept ? 1 : 0;
  fit.sF = k > f ? static_cast<float>((SSR / (k - f)) / (SSE / (n - k))) : 999.999F;
  fit.sFProb = k > f ? static_cast<float>(FDist(k - f, n - k, fit.sF, messages))
                     : std::numeric_limits<float>::quiet_NaN();
}

void varCovStats(AnalysisState& s, int k, MessagePort& messages) {
  Fit& fit = s.Fit;
  for (int i = 1; i <= k; ++i)
    for (int j = 1; j <= k; ++j) {
      if (i > j) {
        fit.sVarCov(j, i) = fit.sVarCov(i, j);
        continue;
      }
      double sum = 0;
      for (int m = 1; m <= k; ++m)
        sum += double{fit.sVarCov(std::min(i, m), std::max(i, m))} *
               double{fit.sVarCov(std::min(j, m), std::max(j, m))};
      fit.sVarCov(i, j) = static_cast<float>(sum);
    }
  const float variance = fit.sStdErr * fit.sStdErr;
  for (int i = 1; i <= k; ++i)
    for (int j = 1; j <= k; ++j)
      if (i == j || fit.sVarCov(i, j) != 0) fit.sVarCov(i, j) *= variance;
  for (int i = 1; i <= k; ++i) {
    fit.sCoefSE[i] = static_cast<float>(std::sqrt(double{fit.sVarCov(i, i)}));
    if (fit.sCoefSE[i] == 0) {
      messages.messageBox({.title = "",
                           .text = "Zero standard error in VarCovStats.",
                           .icon = MessageIcon::critical});
      continue;
    }
    fit.sCoefT[i] = fit.sCoef[i] / fit.sCoefSE[i];
    double p = TDist(s.iNumCases - k, fit.sCoefT[i], messages);
    if (p > 0.5) p = 1 - p;
    fit.sCoefP[i] = static_cast<float>(2 * p);
  }
}

void multipleRegression(AnalysisState& s, int k, bool bIntercept, MessagePort& messages) {
  s.Fit.bSingular = false;
  if (s.iNumCases <= k) {
    s.Fit.bSingular = true;
    messages.messageBox(
        {.title = "", .text = "Too few cases for this model.", .icon = MessageIcon::exclamation});
    return;
  }
  Matrix<double> dCross(k + 1, k + 1);
  crossProducts(s, k, dCross);
  if (!choleskyFactor(dCross, k, messages)) {
    s.Fit.bSingular = true;
    return;
  }
  invertTriangular(dCross, k, s.Fit.sVarCov);
  coefficients(dCross, k, s.Fit);
  fitStatistics(s, k, bIntercept, messages);
  varCovStats(s, k, messages);
}

void summaryStats(AnalysisState& s, MessagePort& messages) {
  for (int i = 1; i <= s.iNumPredictors + 1; ++i) {
    const int column = s.iModelCol[i];
    std::vector<float> scratch(1);
    double sum = 0, squares = 0, minimum = s.sData(1, column), maximum = minimum;
    for (int c = 1; c <= s.iNumCases; ++c) {
      const double value = s.sData(c, column);
      sum += value;
      minimum = std::min(minimum, value);
      maximum = std::max(maximum, value);
      scratch.push_back(s.sData(c, column));
    }
    if (minimum == maximum)
      messages.messageBox({.title = "Error in Summary Stats",
                           .text = "Zero range for " + s.tVarName[column] + ". Check data.",
                           .icon = MessageIcon::exclamation});
    s.dDescStat(1, i) = sum / s.iNumCases;
    for (int c = 1; c <= s.iNumCases; ++c)
      squares += square(s.sData(c, column) - s.dDescStat(1, i));
    s.dDescStat(2, i) = std::sqrt(squares / s.iNumCases);
    s.dDescStat(3, i) = minimum;
    s.dDescStat(4, i) = maximum;
    s.tVarFormat[i] = FindFormatString(scratch, s.iNumCases, 4, 8, false, true, true, true);
  }
}

void classifyVariables(AnalysisState& s) {
  for (int i = 1; i <= s.iNumPredictors + 1; ++i) {
    bool fractions = false;
    for (int c = 1; c <= s.iNumCases; ++c) {
      const float value = s.sData(c, s.iModelCol[i]);
      if (value != std::floor(value)) fractions = true;
    }
    s.iVarType[i] = fractions ? 2 : s.dDescStat(4, i) - s.dDescStat(3, i) == 1 ? 3 : 1;
  }
}

void correlationMatrix(AnalysisState& s) {
  for (int i = 1; i <= s.iNumPredictors + 1; ++i)
    for (int j = 1; j <= i; ++j) {
      double sum = 0;
      for (int c = 1; c <= s.iNumCases; ++c)
        sum += (s.sData(c, s.iModelCol[i]) - s.dDescStat(1, i)) *
               (s.sData(c, s.iModelCol[j]) - s.dDescStat(1, j));
      const double spread = s.dDescStat(2, i) * s.dDescStat(2, j);
      const double r =
          spread == 0 ? std::numeric_limits<double>::quiet_NaN() : sum / s.iNumCases / spread;
      s.sCorr(i, j) = static_cast<float>(r);
      s.sCorr(j, i) = s.sCorr(i, j);
    }
}

void computeVIFs(AnalysisState& s, MessagePort& messages) {
  const int K = s.iNumPredictors;
  if (K < 2) return;
  RedimFitArrays(s, K);
  s.iTermCol[1] = s.iModelCol[K + 2];
  for (int i = 2; i <= K + 1; ++i) {
    s.iTermCol[K + 1] = s.iModelCol[i];
    int term = 2;
    for (int j = 2; j <= K + 1; ++j)
      if (s.iModelCol[j] != s.iModelCol[i]) s.iTermCol[term++] = s.iModelCol[j];
    multipleRegression(s, K, true, messages);
    s.sVIF[i - 1] =
        !s.Fit.bSingular && s.Fit.sRSquared < 1 ? 1.0F / (1.0F - s.Fit.sRSquared) : 999.999F;
  }
}

void durbinWatson(AnalysisState& s) {
  double sum = 0;
  for (int i = 2; i <= s.iNumCases; ++i)
    sum += square(double{s.Fit.sResid[i]} - double{s.Fit.sResid[i - 1]});
  s.Fit.sDurbinWatson = static_cast<float>(sum) / s.Fit.sSSE;
}

void sortResiduals(AnalysisState& s) {
  s.sSortedResid = s.Fit.sResid;
  for (int gap = s.iNumCases / 2; gap > 0; gap /= 2)
    for (int i = 1; i <= s.iNumCases - gap; ++i) {
      int j = i;
      while (j >= 1) {
        if (s.sSortedResid[j] > s.sSortedResid[j + gap]) {
          std::swap(s.sSortedResid[j], s.sSortedResid[j + gap]);
          std::swap(s.tSortedResidLabel[j], s.tSortedResidLabel[j + gap]);
        }
        j = j - gap;
      }
    }
}

void setResidClasses(AnalysisState& s) {
  const int n = s.iNumCases;
  const int classes = std::max(4, static_cast<int>(std::floor(std::log(n) / std::log(2) + 1.5)));
  s.iNumResidClasses = static_cast<Int16>(classes);
  const float width = (s.sSortedResid[n] - s.sSortedResid[1]) / static_cast<float>(classes);
  for (int j = 1; j <= classes; ++j)
    s.sResidClassLimit[j] = s.sSortedResid[1] + static_cast<float>(j - 1) * width;
  s.sResidClassLimit[classes + 1] =
      static_cast<float>(s.sSortedResid[1] + classes * double{width} * 1.0001);
}

void freqTallyDec(AnalysisState& s, MessagePort& messages) {
  s.iResidClassCount.fill(0);
  s.iResidOutside = 0;
  for (int i = 1; i <= s.iNumCases; ++i) {
    const float r = s.sSortedResid[i];
    int found = 0;
    if (s.sResidClassLimit[1] <= r)
      for (int j = s.iNumResidClasses; j >= 1; --j)
        if (r < s.sResidClassLimit[j + 1]) found = j;
    ++(found > 0 ? s.iResidClassCount[found] : s.iResidOutside);
  }
  if (s.iResidOutside == 0) return;
  std::string text = "Warning:";
  text += s.iResidOutside == 1 ? " One residual lies "
                               : " " + std::to_string(s.iResidOutside) + " residuals lie ";
  messages.messageBox({.title = "",
                       .text = text + "outside the histogram classes in FreqTallyDec.",
                       .icon = MessageIcon::exclamation});
}

void tallyStdResids(AnalysisState& s) {
  s.iStdResidClassCount.fill(0);
  s.iStdResidOutside = 0;
  if (s.Fit.sStdErr == 0) return;
  for (int i = 1; i <= s.iNumCases; ++i) {
    const float z = s.sSortedResid[i] / s.Fit.sStdErr;
    if (std::isnan(z)) continue;
    int place = 8;
    for (int unit = 3; unit >= -3; --unit)
      if (z < static_cast<float>(unit)) place = unit + 4;
    ++s.iStdResidClassCount[place];
  }
  s.iStdResidOutside = static_cast<Int16>(s.iStdResidClassCount[1] + s.iStdResidClassCount[8]);
}

}  // namespace

void ComputeStatistics(AnalysisState& state, MessagePort& messages) {
  summaryStats(state, messages);
  classifyVariables(state);
  correlationMatrix(state);
  computeVIFs(state, messages);
}

void FitRegression(AnalysisState& state, MessagePort& messages) {
  const int K = state.iNumPredictors;
  const int k = state.bUseIntercept ? K + 1 : K;
  state.iNumTerms = static_cast<Int16>(k);
  RedimFitArrays(state, k);
  for (int i = 1; i <= k; ++i)
    state.iTermCol[i] = !state.bUseIntercept ? state.iModelCol[i + 1]
                        : i == 1             ? Int16{0}
                                             : state.iModelCol[i];
  state.iTermCol[k + 1] = state.iModelCol[1];
  multipleRegression(state, k, state.bUseIntercept, messages);
  durbinWatson(state);
  sortResiduals(state);
  setResidClasses(state);
  freqTallyDec(state, messages);
  tallyStdResids(state);
  ++state.iCompletedFits;
}

}  // namespace tolmer::literal
