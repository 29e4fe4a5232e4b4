#include "graphs/vif_chart.h"

#include <cmath>
#include <cstddef>

#include "base/text_encoding.h"
#include "graphs/overlay_text.h"
#include "graphs/spoken_text.h"
#include "platform/graph/palette.h"
#include "state/model_variables.h"

namespace tolmer {
namespace {

constexpr float scaleMaximum = 3;       // a VIF of 1000
constexpr double longestBar = 3.5;      // beyond the scale, so that the bar is seen to be cut
constexpr std::size_t nameLength = 10;  // characters of a predictor's name

double log10Of(double value) { return std::log(value) / std::log(10.0); }

}  // namespace

frmVIFPlot::frmVIFPlot(Desktop& desktop, AnalysisState& state, DisplayHost& host)
    : GraphDisplay(desktop, state, host, "frmVIFPlot", "Variance Inflation Factors") {
  gphVIF.settings.graphType = GraphType::horizontalBars;
  Form_Load(gphVIF);
  gphVIF.Click = [this] { host_.axisListsDisabled(); };
}

void frmVIFPlot::drawDisplay() {
  if (!hasFit()) return;
  DrawVIFBarChart();
  OverlayReferenceLines();
  describe(description());
}

void frmVIFPlot::DrawVIFBarChart() {
  gphVIF.resetData(graphData::all);
  gphVIF.setNumPoints(state_.iNumPredictors);
  gphVIF.settings.labelEvery = 1;
  gphVIF.settings.tickEvery = 1;
  gphVIF.settings.x.title = " ";
  Axis& scale = gphVIF.settings.y;
  scale.scaleMode = ScaleMode::userLimits;
  scale.minimum = 0;
  scale.maximum = scaleMaximum;
  gphVIF.settings.pointColour = palette::brightBlue;
  for (int i = 1; i <= state_.iNumPredictors; ++i) {
    const std::string& name = predictorName(i);
    gphVIF.setPointLabel(i, name.substr(0, utf8Prefix(name, nameLength)));
    gphVIF.setPoint(i, 0, static_cast<float>(barLength(i)));
  }
  gphVIF.setDrawMode(Graph::draw);
}

double frmVIFPlot::barLength(int iPredictor) const {
  // A single predictor is collinear with nothing and has no VIF.
  if (state_.iNumPredictors == 1) return 0;
  const double v = log10Of(state_.sVIF[static_cast<std::size_t>(iPredictor)]);
  if (v > longestBar) return longestBar;
  return v > 0 ? v : 0;
}

const std::string& frmVIFPlot::predictorName(int iPredictor) const {
  return variableName(state_, iPredictor + 1);
}

void frmVIFPlot::OverlayReferenceLines() {
  const double m = gphVIF.settings.y.maximum;
  DrawingView& view = gphVIF.GSUseView();
  const double left = gphVIF.SDKInfo(7);
  const double bottom = gphVIF.SDKInfo(8);
  const double width = gphVIF.SDKInfo(5);
  const double top = gphVIF.SDKInfo(6) + bottom;
  view.GSLoadRFont(100);
  for (const int q : {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000}) {
    const double x = log10Of(q) * width / m + left;
    if (q != 1) view.GSLineAbs(x, top, x, bottom, 1, 2, palette::lightGrey);
    view.GSRText(x, bottom - 8.0, overlayText::tickLabel, std::to_string(q));
  }
  const std::string caption = "Variance Inflation Factor (log 10)";
  const double captionLeft = (width - view.GSGetRTextWid(caption)) / 2 + left;
  view.GSRText(captionLeft, 10.0, overlayText::plain, caption);
}

std::string frmVIFPlot::description() const {
  const int K = state_.iNumPredictors;
  if (K == 1)
    return "Bar chart of variance inflation factors without a bar: " + predictorName(1) +
           " is the only predictor.";
  int largest = 1;
  int large = 0;
  std::string each;
  const auto vif = [&](int i) { return state_.sVIF[static_cast<std::size_t>(i)]; };
  for (int i = 1; i <= K; ++i) {
    if (vif(i) > vif(largest)) largest = i;
    if (vif(i) > 10) ++large;
    each += (i == 1 ? "" : ", ") + predictorName(i) + ' ' + spokenNumber(vif(i));
  }
  return "Bar chart of the variance inflation factors of " + std::to_string(K) +
         " predictors on a logarithmic scale from 1 to 1000. The largest is " +
         spokenNumber(vif(largest)) + " for " + predictorName(largest) + "; " +
         std::to_string(large) + " of " + std::to_string(K) + " exceed 10. " + each + ".";
}

}  // namespace tolmer
