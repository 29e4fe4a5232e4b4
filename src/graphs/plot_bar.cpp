#include "graphs/plot_bar.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "engine/number_picture.h"
#include "platform/graph/graph.h"

namespace tolmer {

void PlotBar::PlotBarData(const Matrix<float>& Data) {
  if (!isUsable(Data)) return;
  DrawingView& view = graph_->GSUseView();
  const Place place = findPlace(view);
  const float sRangeY = MaxY - MinY;
  const int last = std::min<int>(NumBarsToPlot, Data.lastRow());
  for (int i = 1; i <= last; ++i) {
    const float value = Data(i, 2);
    if (!(value > MinY)) continue;
    const double height = (double{value} - MinY) / sRangeY * place.height;
    if (!(height > 1.0)) continue;
    const double left = horizontal(Data(i, 1), place) + place.halfGap;
    double right = place.left + place.width - place.halfGap;
    if (i < last) {
      if (Data(i + 1, 1) < Data(i, 1)) return reportUnsorted(Data, i);
      right = horizontal(Data(i + 1, 1), place) - place.halfGap;
    }
    view.GSBox2D(left, place.bottom, right - left, height, Pattern, colourOf(Data, i));
  }
}

bool PlotBar::isUsable(const Matrix<float>& Data) const {
  if (Data.lastColumn() < (UseSameColor ? 2 : 3)) {
    report("Error in PlotBar.PlotBarData - Not enough columns in array.");
    return false;
  }
  if (!graph_) {
    report("Error in PlotBar.PlotBarData - Graph not set.");
    return false;
  }
  return true;
}

PlotBar::Place PlotBar::findPlace(const DrawingView& view) const {
  Place place{graph_->SDKInfo(7), graph_->SDKInfo(8), graph_->SDKInfo(5), graph_->SDKInfo(6), 0};
  const double pixelSize = view.GSGetVXExt() / view.GSGetWXExt();
  place.halfGap = std::max(GapFraction * place.width / 2, MinGap * pixelSize / 2);
  return place;
}

double PlotBar::horizontal(float x, const Place& place) const {
  const float sRangeX = MaxX - MinX;
  return (double{x} - MinX) / sRangeX * place.width + place.left;
}

Int16 PlotBar::colourOf(const Matrix<float>& Data, int bar) const {
  if (UseSameColor) return BarColor;
  const float colour = Data(bar, 3);
  return colour >= 0 && colour <= 15 ? static_cast<Int16>(std::lround(colour)) : Int16{0};
}

void PlotBar::report(const std::string& text) const {
  messages_.messageBox({"Error!!", text, MessageIcon::none, MessageButtons::ok});
}

void PlotBar::reportUnsorted(const Matrix<float>& Data, int bar) const {
  const auto point = [&](int row) {
    return std::to_string(row) + " (" + generalText(Data(row, 1)) + ")";
  };
  report("Error in PlotBar.PlotBarData - data unsorted. See points " + point(bar) + " and " +
         point(bar + 1) + ".");
}

}  // namespace tolmer
