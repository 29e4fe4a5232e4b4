// What a graph display says, apart from any window: a plot of some size, and the same in words.
#pragma once

#include <string>
#include <vector>

#include "platform/graph/plot.h"

namespace tolmer {

// A bar, also one too short to be drawn.
struct PlottedBar {
  std::string label;       // the name of a predictor, or the lower limit of a class
  std::string upperLimit;  // of a class; empty for a predictor
  double length = 0;       // on the value axis
  std::string figure;      // what the length stands for
  std::vector<int> cases;  // in rising order, from 1; none for a predictor
  ViewRect place;          // of a class, where it is drawn; of no size where it is not
  std::string range{};     // of a class, "-2.5 to 0", "below -3"
};

// What stands on an axis of points, case by case.
struct PlottedAxis {
  std::string title{};
  std::vector<float> values{};  // (0..cases); none where the axis has no values of cases
  std::string picture{};        // of the values; empty for four significant digits
};

struct GraphContent {
  Plot plot;
  std::string description;  // for those who cannot see it
  std::vector<PlottedBar> bars;
  PlottedAxis x{};
  PlottedAxis y{};
  std::string tip{};  // for a pointer that rests on it; mostly empty
};

// Flags of DrawingView::GSRText by use.
namespace overlayText {
inline constexpr int plain = 0x100;  // beside a line, or on a line of its own
inline constexpr int tickLabel = plain | textFlags::hanging | textFlags::centred;
inline constexpr int caption = plain | textFlags::hanging;
}  // namespace overlayText

// Above the plot area, centred by the width of a sample of the text, so that the text does not move
// as the number in it changes.
void drawCaption(Plot& plot, const std::string& text, const std::string& sample);

// Four significant digits.
std::string spokenNumber(float sValue);

// "1 case", "2 cases".
std::string spokenCount(int iCount, const std::string& thing);

}  // namespace tolmer
