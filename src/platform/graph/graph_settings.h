// What a graph shows: settings that its window writes before it has it drawn.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tolmer {

// Numbers as the report tells them.
enum class GraphType : int {
  horizontalBars = 3,   // one a point, the first on top, along the scale of y
  lineWithSymbols = 6,  // through points at equal distances, the first at the left
  symbols = 9           // at x and value of each point
};
// With automatic scale the graph makes the tick marks and labels itself, at tidy steps: between
// minimum and maximum where these are set apart, else between the least and the largest point.
enum class ScaleMode : int { automatic = 0, userLimits = 2 };

// The value axis is y, also where its scale lies below the plot; the title of x always stands below
// and that of y at the left.
struct Axis {
  ScaleMode scaleMode = ScaleMode::automatic;
  float minimum = 0;
  float maximum = 0;
  int ticks = 0;                    // steps from minimum to maximum: one less than tick marks
  std::vector<std::string> labels;  // of each tick mark, from the minimum; no mark where empty
  std::string labelFormat;          // the number picture that the labels were made with
  std::string title;

  // Tick marks count from 1.
  void setLabel(int tick, std::string text) {
    if (labels.size() < static_cast<std::size_t>(tick))
      labels.resize(static_cast<std::size_t>(tick));
    labels[tick - 1] = std::move(text);
  }
};

// pointSymbol
inline constexpr int openCircle = 12;
inline constexpr int filledCircle = 13;
// lineStatistics
inline constexpr int leastSquaresLine = 8;

// symbolSize: many points are drawn in small symbols.
constexpr int symbolSizeFor(int points) {
  if (points > 150) return 50;
  if (points > 75) return 75;
  return points > 30 ? 100 : 125;
}

struct GraphPoint {
  float x = 0;
  float value = 0;
  int iCase = 0;  // from 1; 0 where it belongs to none
};

struct GraphSettings {
  GraphType graphType = GraphType::symbols;
  Axis x;
  Axis y;
  std::vector<GraphPoint> points;
  std::vector<std::string> pointLabels;  // names of bars, or of the points of a line
  int pointColour = 0;                   // index of the palette; all points are alike
  int pointSymbol = 0;                   // openCircle, filledCircle, 0 for none
  int symbolSize = 0;                    // percent; 0 for symbolSizeFor the points
  int lineStatistics = 0;                // or leastSquaresLine
  // Bars and lines have a label at every so many points, and a tick mark: bars from the first one,
  // lines at the multiples.
  int labelEvery = 1;
  int tickEvery = 1;
  double headroom = 0;  // free space above the plot area for an overlay, in parts of its height
};

// What is settled when the window is designed.
struct GraphDesign {
  // Sizes of the text classes in percent: graph title, axis titles, tick labels, the rest.
  std::array<int, 4> textPercent{100, 100, 100, 100};
  bool roomForCaption = false;  // one line above the plot area, drawn as an overlay
  std::string textAtRight;      // the widest text drawn at the right of the plot area
  // The value scale of horizontal bars is drawn as an overlay: labels 8 units below the plot area,
  // the last one at its right edge, and a caption 10 units above the lower edge of the view.
  bool scaleAsOverlay = false;
};

}  // namespace tolmer
