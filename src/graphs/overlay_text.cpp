#include "graphs/overlay_text.h"

namespace tolmer {

void drawCaption(Graph& graph, const std::string& text, const std::string& sample) {
  DrawingView& view = graph.GSUseView();
  view.GSLoadRFont(100);
  const double left = (graph.SDKInfo(5) - view.GSGetRTextWid(sample)) / 2 + graph.SDKInfo(7);
  view.GSRText(left, view.GSGetVYExt() - 10.0, overlayText::caption, text);
}

}  // namespace tolmer
