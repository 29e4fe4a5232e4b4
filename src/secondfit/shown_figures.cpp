#include "secondfit/shown_figures.h"

#include <utility>

namespace tolmer {
namespace {

Figure exactly(double value) { return {value, 0}; }

std::optional<Figure> coefficientFigure(const FigureSource& source, int row, int column) {
  const SecondFit& fit = source.fit;
  if (row < 2 || row > fit.terms + 1) return {};
  const auto place = static_cast<std::size_t>(row) - 2;
  const TermFigures& term = fit.byTerm[place];
  const bool hasInflation = fit.intercept ? place > 0 && fit.terms > 2 : fit.terms > 1;
  if (column == 2) return term.coefficient;
  if (column == 3) return term.standardError;
  if (column == 4) return term.t;
  if (column == 5) return term.p;
  if (column == 6) return hasInflation ? std::optional(term.inflation) : std::nullopt;
  if (column == 7) return term.lower;
  if (column == 8) return term.upper;
  return {};
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
  const std::pair<int, std::optional<Figure>> cells[] = {
      {22, model.ssr},
      {23, exactly(regressionDf)},
      {24, meanSquare(model.ssr, regressionDf)},
      {25, tested ? std::optional(model.f) : std::nullopt},
      {26, tested ? std::optional(model.fProbability) : std::nullopt},
      {32, model.sse},
      {33, exactly(errorDf)},
      {34, meanSquare(model.sse, errorDf)},
      {42, model.sst},
      {43, exactly(fit.cases - intercept)},
      {62, model.rSquared},
      {65, model.adjusted},
      {72, model.multipleR},
      {75, model.durbinWatson},
      {82, model.standardError},
      {85, exactly(fit.cases)}};
  for (const auto& [cell, figure] : cells)
    if (cell == 10 * row + column) return figure;
  return {};
}

std::optional<Figure> residualFigure(const FigureSource& source, int row, int column) {
  if (row < 2 || row > source.fit.cases + 1) return {};
  const auto place = static_cast<std::size_t>(row) - 2;
  const CaseFigures& one = source.fit.byCase[place];
  const int number = source.labelled && column > 2 ? column - 1 : column;
  if (source.labelled && column == 2) return {};
  if (number == 2) return exactly(source.data.y[place]);
  if (number == 3) return one.fitted;
  if (number == 4) return one.residual;
  return number == 5 ? std::optional(one.standardized) : std::nullopt;
}

}  // namespace

FigureOfCell shownFigures(std::string_view display) {
  if (display == "frmEstCoef") return coefficientFigure;
  if (display == "frmANOVA") return anovaFigure;
  return display == "frmResidList" ? residualFigure : nullptr;
}

}  // namespace tolmer
