#include "graphs/plot_histogram.h"

#include <algorithm>
#include <cstddef>

#include "platform/graph/graph.h"

namespace tolmer {

void PlotHistogram::DefineDataWindowY(double sWindowLower, double sWindowUpper,
                                      double sMinWithinWindow, double sMaxWithinWindow) {
  window_ = DataWindow{sWindowLower, sWindowUpper, sMinWithinWindow, sMaxWithinWindow};
}

PlotHistogram::PlotPlace PlotHistogram::readPlace(const Graph& graph) {
  return {graph.SDKInfo(7), graph.SDKInfo(8), graph.SDKInfo(5),
          graph.SDKInfo(6), graph.SDKInfo(4), graph.SDKInfo(3)};
}

void PlotHistogram::InitBarPlot() {
  place_ = readPlace(*graph_);
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
  graph_->GSUseView().GSBox2D(classWidth_ * iClassToPlot + place_.left + gapWidth_, base, barWidth_,
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

void PlotHistogram::PlotHistData(Graph& gphGraphToPlot, std::span<const float> DataToPlot,
                                 Int16 NumClassesToPlot) {
  const PlotPlace place = readPlace(gphGraphToPlot);
  DrawingView& view = gphGraphToPlot.GSUseView();
  const double classWidth = place.width / NumClassesToPlot;
  const double gap = sGapFraction_ * classWidth;
  const double barWidth = classWidth - 2 * gap;
  const int last = std::min<int>(NumClassesToPlot, static_cast<int>(DataToPlot.size()) - 1);
  for (int i = 1; i <= last; ++i) {
    const double height = DataToPlot[static_cast<std::size_t>(i)] / place.scaleTop * place.height;
    if (height > 1.0)
      view.GSBox2D((i - 1) * classWidth + place.left + gap, place.bottom, barWidth, height,
                   iPattern_, iBarColor_);
  }
}

}  // namespace tolmer
