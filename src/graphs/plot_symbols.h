// The symbols of graphs that show every case.
#pragma once

namespace tolmer {

// GraphSettings::pointSymbol.
inline constexpr int openCircle = 12;
inline constexpr int filledCircle = 13;

// GraphSettings::symbolSize: many cases are drawn in small symbols.
constexpr int symbolSizeFor(int iNumCases) {
  if (iNumCases > 150) return 50;
  if (iNumCases > 75) return 75;
  return iNumCases > 30 ? 100 : 125;
}

}  // namespace tolmer
