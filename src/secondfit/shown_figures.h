// Which number of the second fit a cell of a display shows.
#pragma once

#include <optional>
#include <string_view>

#include "secondfit/second_fit.h"

namespace tolmer {

// What the displays were filled from.
struct FigureSource {
  const ModelData& data;
  const SecondFit& fit;
  bool labelled = false;  // the residual list has a column of labels
};

// The number that belongs into the cell of frmEstCoef, frmANOVA or frmResidList, rows and columns
// from 1 with the heads in row 1. Nothing for texts, for case numbers and where no number is
// computed: the VIF of an only predictor, the F of an intercept alone.
std::optional<Figure> shownFigure(const FigureSource& source, std::string_view display, int row,
                                  int column);

}  // namespace tolmer
