#include "graphs/vif_chart.h"

#include <cstddef>
#include <utility>

#include "base/portable_math.h"
#include "base/text_encoding.h"
#include "engine/statistical_limits.h"
#include "engine/variance_inflation.h"

namespace tolmer {
namespace {

constexpr float scaleMaximum = 3;       // a VIF of 1000
constexpr double longestBar = 3.5;      // beyond the scale, so that the bar is seen to be cut
constexpr std::size_t nameLength = 10;  // characters of a predictor's name

double log10Of(double value) { return portable::log(value) / portable::log(10.0); }

float inflation(const AnalysisState& state, int iPredictor) { return state.sVIF[iPredictor]; }

const std::string& predictorName(const AnalysisState& state, int iPredictor) {
  return variableName(state, iPredictor + 1);
}

// On the scale of logarithms to base 10.
double barLength(const AnalysisState& state, int iPredictor) {
  // A single predictor is collinear with nothing and has no VIF.
  if (state.iNumPredictors == 1) return 0;
  const double v = log10Of(inflation(state, iPredictor));
  if (v > longestBar) return longestBar;
  return v > 0 ? v : 0;
}

std::vector<PlottedBar> barsOf(const AnalysisState& state) {
  std::vector<PlottedBar> bars;
  for (int i = 1; i <= state.iNumPredictors; ++i) {
    const std::string& name = predictorName(state, i);
    bars.push_back({name.substr(0, utf8Prefix(name, nameLength)),
                    {},
                    barLength(state, i),
                    state.iNumPredictors == 1 ? "" : inflationText(inflation(state, i)),
                    {},
                    {}});
  }
  return bars;
}

// What the names beside the bars are cut from, a line each.
std::string cutNames(const AnalysisState& state) {
  std::string names;
  for (int i = 1; i <= state.iNumPredictors; ++i)
    if (const std::string& name = predictorName(state, i);
        utf8Prefix(name, nameLength) < name.size())
      names += (names.empty() ? "" : "\n") + name;
  return names;
}

void DrawVIFBarChart(Plot& plot, const std::vector<PlottedBar>& bars) {
  plot.settings.graphType = GraphType::horizontalBars;
  plot.setNumPoints(static_cast<int>(bars.size()));
  plot.settings.x.title = " ";
  Axis& scale = plot.settings.y;
  scale.scaleMode = ScaleMode::userLimits;
  scale.minimum = 0;
  scale.maximum = scaleMaximum;
  plot.settings.pointColour = palette::brightBlue;
  int i = 0;
  for (const PlottedBar& bar : bars) {
    plot.setPointLabel(++i, bar.label);
    plot.setPoint(i, 0, static_cast<float>(bar.length));
  }
  plot.setDrawMode(Plot::draw);
}

void OverlayReferenceLines(Plot& plot) {
  const double m = plot.settings.y.maximum;
  DrawingView& view = plot.GSUseView();
  const double left = plot.SDKInfo(7);
  const double bottom = plot.SDKInfo(8);
  const double width = plot.SDKInfo(5);
  const double top = plot.SDKInfo(6) + bottom;
  view.GSLoadRFont(100);
  for (const int q : {1, 2, 5, 10, 20, 50, 100, 200, 500, 1000}) {
    const double x = log10Of(q) * width / m + left;
    if (q != 1) view.GSLineAbs(x, top, x, bottom, 1, 2, palette::lightGrey);
    view.GSRText(x, bottom - 8.0, overlayText::tickLabel, std::to_string(q));
  }
  const std::string caption = "Variance Inflation Factor (log 10)";
  const double captionLeft = (width - view.GSGetRTextWid(caption)) / 2 + left;
  view.GSRText(captionLeft, 10.0, overlayText::plain, caption);
  // Above 10 a VIF is marked in the table of coefficients.
  const double xHigh = log10Of(highVIF) * width / m + left;
  view.GSLineAbs(xHigh, top, xHigh, bottom, 1, 2, palette::brightRed);
}

void OverlayReason(Plot& plot, const std::string& tOnly) {
  const double middle = plot.SDKInfo(7) + plot.SDKInfo(5) / 2;
  const double height = plot.SDKInfo(8) + plot.SDKInfo(6) / 2;
  plot.GSUseView().GSRText(middle, height, overlayText::plain | textFlags::centred,
                           tOnly + " is the only predictor: it overlaps with no other.");
}

std::string spokenChart(const AnalysisState& state) {
  const int K = state.iNumPredictors;
  if (K == 1)
    return "Bar chart of variance inflation factors without a bar: " + predictorName(state, 1) +
           " is the only predictor.";
  int largest = 1;
  int large = 0;
  std::string each;
  for (int i = 1; i <= K; ++i) {
    if (inflation(state, i) > inflation(state, largest)) largest = i;
    if (inflation(state, i) > highVIF) ++large;
    each +=
        (i == 1 ? "" : ", ") + predictorName(state, i) + ' ' + spokenNumber(inflation(state, i));
  }
  return "Bar chart of the variance inflation factors of " + std::to_string(K) +
         " predictors on a logarithmic scale from 1 to 1000. The largest is " +
         spokenNumber(inflation(state, largest)) + " for " + predictorName(state, largest) + "; " +
         std::to_string(large) + " of " + std::to_string(K) + " exceed 10. " + each + ".";
}

}  // namespace

GraphContent vifChart(const AnalysisState& state, ViewSize size, MessagePort&) {
  std::vector<PlottedBar> bars = barsOf(state);
  Plot plot(size, {{200, 100, 100, 100}, false, {}, true});
  DrawVIFBarChart(plot, bars);
  OverlayReferenceLines(plot);
  if (bars.size() == 1) OverlayReason(plot, predictorName(state, 1));
  return {std::move(plot), spokenChart(state), std::move(bars), {}, {}, cutNames(state)};
}

}  // namespace tolmer
