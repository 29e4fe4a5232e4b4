// Texts that graph displays draw on top of their graphs.
#pragma once

#include <string>

#include "platform/graph/graph.h"

namespace tolmer {

// Flags of DrawingView::GSRText by use.
namespace overlayText {
inline constexpr int plain = 0x100;  // beside a line, or on a line of its own
inline constexpr int tickLabel = plain | textFlags::hanging | textFlags::centred;
inline constexpr int caption = plain | textFlags::hanging;
}  // namespace overlayText

// Above the plot area, centred by the width of a sample of the text, so that the text does not move
// as the number in it changes.
void drawCaption(Graph& graph, const std::string& text, const std::string& sample);

}  // namespace tolmer
