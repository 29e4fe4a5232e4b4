#include "graphs/normal_curve.h"

#include <cmath>

#include "engine/normal_distribution.h"
#include "platform/graph/palette.h"

namespace tolmer {
namespace {

constexpr int curveMode = 5;
constexpr int curveStyle = 2;

}  // namespace

void leaveRoomForCurve(Graph& graph, const NormalCurve& curve) {
  const float sPeak = NormalDensity(curve.sMean, curve.sStdDev, curve.sMean) * curve.sFrequency;
  const float sExcess = sPeak / graph.settings.y.maximum - 1;
  // Not for a standard error of zero, whose peak is infinite.
  graph.settings.headroom = sExcess > 0 && std::isfinite(sExcess) ? sExcess : 0;
}

void overlayNormalCurve(Graph& graph, const NormalCurve& curve) {
  DrawingView& view = graph.GSUseView();
  const double top = graph.SDKInfo(3);
  const double left = graph.SDKInfo(7);
  const double bottom = graph.SDKInfo(8);
  const double width = graph.SDKInfo(5);
  const double height = graph.SDKInfo(6);
  const auto sStep = static_cast<float>((curve.dHigh - curve.dLow) / 99);
  ViewPoint previous;
  for (int i = 1; i <= 101; ++i) {
    const double x = (i - 1) * double{sStep} + curve.dLow;
    const float sDensity = NormalDensity(curve.sMean, curve.sStdDev, x);
    const ViewPoint point{(x - curve.sAxisMin) / curve.sAxisLength * width + left,
                          double{sDensity} * curve.sFrequency / top * height + bottom};
    if (i > 1)
      view.GSLineAbs(previous.x, previous.y, point.x, point.y, curveMode, curveStyle,
                     palette::brightRed);
    previous = point;
  }
}

}  // namespace tolmer
