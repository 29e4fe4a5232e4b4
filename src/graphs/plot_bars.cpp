#include "graphs/plot_bars.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "engine/number_format.h"

namespace tolmer {

std::vector<ViewRect> PlotBar::PlotBarData(const Matrix<float>& Data) {
  std::vector<ViewRect> places(static_cast<std::size_t>(std::max(Data.lastRow(), 0)));
  if (!isUsable(Data)) return places;
  DrawingView& view = plot_->GSUseView();
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
      if (Data(i + 1, 1) < Data(i, 1)) {
        reportUnsorted(Data, i);
        break;
      }
      right = horizontal(Data(i + 1, 1), place) - place.halfGap;
    }
    view.GSBox2D(left, place.bottom, right - left, height, Pattern, colourOf(Data, i));
    places[i - 1] = {left, place.bottom, right - left, height};
  }
  return places;
}

bool PlotBar::isUsable(const Matrix<float>& Data) const {
  if (Data.lastColumn() < (UseSameColor ? 2 : 3)) {
    report("Error in PlotBar.PlotBarData - Not enough columns in array.");
    return false;
  }
  if (!plot_) {
    report("Error in PlotBar.PlotBarData - Graph not set.");
    return false;
  }
  return true;
}

PlotBar::Place PlotBar::findPlace(const DrawingView& view) const {
  Place place{plot_->SDKInfo(7), plot_->SDKInfo(8), plot_->SDKInfo(5), plot_->SDKInfo(6), 0};
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

void PlotHistogram::DefineDataWindowY(double sWindowLower, double sWindowUpper,
                                      double sMinWithinWindow, double sMaxWithinWindow) {
  window_ = DataWindow{sWindowLower, sWindowUpper, sMinWithinWindow, sMaxWithinWindow};
}

PlotHistogram::PlotPlace PlotHistogram::readPlace(const Plot& plot) {
  return {plot.SDKInfo(7), plot.SDKInfo(8), plot.SDKInfo(5),
          plot.SDKInfo(6), plot.SDKInfo(4), plot.SDKInfo(3)};
}

void PlotHistogram::InitBarPlot() {
  place_ = readPlace(*plot_);
  classWidth_ = place_.width / iMaxClasses_;
  // The gap is a product of singles.
  const float sGap = sGapFraction_ * static_cast<float>(classWidth_);
  gapWidth_ = sGap;
  barWidth_ = classWidth_ - 2 * sGap;
}

void PlotHistogram::PlotBar(Int16 iClassToPlot, float sClassValue) {
  const double height = viewHeight(valueAboveBase(sClassValue));
  if (!(height > 1.0)) return;
  double base = place_.bottom;
  if (window_ && window_->sWindowLower != place_.scaleBottom)
    base += viewHeight(window_->sWindowLower - place_.scaleBottom);
  plot_->GSUseView().GSBox2D(classWidth_ * iClassToPlot + place_.left + gapWidth_, base, barWidth_,
                             height, iPattern_, iBarColor_);
}

double PlotHistogram::valueAboveBase(float sClassValue) const {
  if (!window_) return sClassValue - place_.scaleBottom;
  const double fraction = (sClassValue - window_->sMinWithinWindow) /
                          (window_->sMaxWithinWindow - window_->sMinWithinWindow);
  const auto w = static_cast<float>((window_->sWindowUpper - window_->sWindowLower) * fraction +
                                    window_->sWindowLower);
  return w - window_->sWindowLower;
}

double PlotHistogram::viewHeight(double value) const {
  return value / (place_.scaleTop - place_.scaleBottom) * place_.height;
}

void PlotHistogram::PlotHistData(Plot& gphGraphToPlot, std::span<const float> DataToPlot,
                                 Int16 NumClassesToPlot) {
  const PlotPlace place = readPlace(gphGraphToPlot);
  DrawingView& view = gphGraphToPlot.GSUseView();
  const double classWidth = place.width / NumClassesToPlot;
  const double gap = sGapFraction_ * classWidth;
  const double barWidth = classWidth - 2 * gap;
  const int last = std::min<int>(NumClassesToPlot, static_cast<int>(DataToPlot.size()) - 1);
  for (int i = 1; i <= last; ++i) {
    const double height = DataToPlot[i] / place.scaleTop * place.height;
    if (height > 1.0)
      view.GSBox2D((i - 1) * classWidth + place.left + gap, place.bottom, barWidth, height,
                   iPattern_, iBarColor_);
  }
}

void PlotPolygon::PlotPolyData(Plot& gphTarget, std::span<const Int16> DataToPlot,
                               Int16 NumClassesToPlot) const {
  const int last = std::min<int>(NumClassesToPlot, static_cast<int>(DataToPlot.size()) - 1);
  if (last < 1) return;
  const auto whole = [&](int index) { return std::nearbyint(gphTarget.SDKInfo(index)); };
  const double step = whole(5) / NumClassesToPlot;
  const double firstX = step / 2 + whole(7);
  const auto yOf = [&](int i) {
    return DataToPlot[i] / gphTarget.SDKInfo(3) * whole(6) + whole(8);
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
