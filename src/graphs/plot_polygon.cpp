#include "graphs/plot_polygon.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "platform/graph/graph.h"

namespace tolmer {

void PlotPolygon::PlotPolyData(Graph& gphTarget, std::span<const Int16> DataToPlot,
                               Int16 NumClassesToPlot) const {
  const int last = std::min<int>(NumClassesToPlot, static_cast<int>(DataToPlot.size()) - 1);
  if (last < 1) return;
  const auto whole = [&](int index) { return std::nearbyint(gphTarget.SDKInfo(index)); };
  const double step = whole(5) / NumClassesToPlot;
  const double firstX = step / 2 + whole(7);
  const auto yOf = [&](int i) {
    return DataToPlot[static_cast<std::size_t>(i)] / gphTarget.SDKInfo(3) * whole(6) + whole(8);
  };
  DrawingView& view = gphTarget.GSUseView();
  view.GSFixPos(0, 0);
  double previousX = firstX;
  double previousY = yOf(1);
  for (int i = 2; i <= last; ++i) {
    const double x = (i - 1) * step + firstX;
    const double y = yOf(i);
    view.GSLineAbs(previousX, previousY, x, y, iMode, iStyle, iLineColor);
    previousX = x;
    previousY = y;
  }
}

}  // namespace tolmer
