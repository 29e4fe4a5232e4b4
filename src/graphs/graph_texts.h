// Texts on top of graphs, and pieces of the sentences by which a graph tells its content.
#pragma once

#include <string>

#include "platform/graph/plot.h"

namespace tolmer {

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
