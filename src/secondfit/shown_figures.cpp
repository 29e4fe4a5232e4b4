#include "secondfit/shown_figures.h"

namespace tolmer {
namespace {

Figure exactly(double value) { return {value, 0}; }

std::optional<Figure> coefficientFigure(const FigureSource& source, int row, int column) {
  const SecondFit& fit = source.fit;
  if (row < 2 || row > fit.terms + 1) return {};
  const auto place = static_cast<std::size_t>(row) - 2;
  const TermFigures& term = fit.byTerm[place];
  const bool hasInflation = fit.intercept ? place > 0 && fit.terms > 2 : fit.terms > 1;
  switch (column) {
    case 2:
      return term.coefficient;
    case 3:
      return term.standardError;
    case 4:
      return term.t;
    case 5:
      return term.p;
    case 6:
      return hasInflation ? std::optional(term.inflation) : std::nullopt;
    case 7:
      return term.lower;
    case 8:
      return term.upper;
    default:
      return {};
  }
}

std::optional<Figure> meanSquare(const Figure& sum, int df) {
  if (df < 1) return {};
  return Figure{sum.value / df, sum.error / df};
}

std::optional<Figure> anovaFigure(const FigureSource& source, int row, int column) {
  const SecondFit& fit = source.fit;
  const ModelFigures& model = fit.model;
  const int intercept = fit.intercept ? 1 : 0;
  const int regressionDf = fit.terms - intercept;
  const int errorDf = fit.cases - fit.terms;
  const bool tested = regressionDf > 0;
  switch (10 * row + column) {
    case 22:
      return model.ssr;
    case 23:
      return exactly(regressionDf);
    case 24:
      return meanSquare(model.ssr, regressionDf);
    case 25:
      return tested ? std::optional(model.f) : std::nullopt;
    case 26:
      return tested ? std::optional(model.fProbability) : std::nullopt;
    case 32:
      return model.sse;
    case 33:
      return exactly(errorDf);
    case 34:
      return meanSquare(model.sse, errorDf);
    case 42:
      return model.sst;
    case 43:
      return exactly(fit.cases - intercept);
    case 62:
      return model.rSquared;
    case 65:
      return model.adjusted;
    case 72:
      return model.multipleR;
    case 75:
      return model.durbinWatson;
    case 82:
      return model.standardError;
    case 85:
      return exactly(fit.cases);
    default:
      return {};
  }
}

std::optional<Figure> residualFigure(const FigureSource& source, int row, int column) {
  if (row < 2 || row > source.fit.cases + 1) return {};
  const auto place = static_cast<std::size_t>(row) - 2;
  const CaseFigures& one = source.fit.byCase[place];
  constexpr int label = 1;  // in place of a number
  switch (!source.labelled ? column : column == 2 ? label : column - 1) {
    case 2:
      return exactly(source.data.y[place]);
    case 3:
      return one.fitted;
    case 4:
      return one.residual;
    case 5:
      return one.standardized;
    default:
      return {};
  }
}

}  // namespace

FigureOfCell shownFigures(std::string_view display) {
  if (display == "frmEstCoef") return coefficientFigure;
  if (display == "frmANOVA") return anovaFigure;
  return display == "frmResidList" ? residualFigure : nullptr;
}

}  // namespace tolmer
