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

// The number that belongs into a cell, rows and columns from 1 with the heads in row 1. Nothing for
// texts, for case numbers and where no number is computed: the VIF of an only predictor, the F of
// an intercept alone.
using FigureOfCell = std::optional<Figure> (*)(const FigureSource&, int row, int column);

// That of frmEstCoef, frmANOVA or frmResidList; null for any other display.
FigureOfCell shownFigures(std::string_view display);

}  // namespace tolmer
