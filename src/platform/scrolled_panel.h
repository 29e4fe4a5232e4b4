#pragma once

#include "platform/fields.h"
#include "platform/panels.h"

namespace tolmer {

// A panel that is higher than the panel it is seen through, and the bar that moves it: upright, to
// the right of the view, and only there where something is out of sight.
class ScrolledPanel {
 public:
  // The content stands on the view, the bar beside the view in its container.
  ScrolledPanel(Panel& view, Panel& content, ScrollBar& bar);

  // After a change of the places or sizes of view or content.
  void fit(Twips barThickness);
  // Moves the content so far that the control on it is seen, its beginning first.
  void bringIntoView(const Control& control);
  void toTop() { bar_.setValue(0); }
  bool scrolls() const { return bar_.visible(); }
  // Down by that share of the view; up where it is below zero.
  void moveBy(float ofView);

 private:
  Panel& view_;
  Panel& content_;
  ScrollBar& bar_;
};

}  // namespace tolmer
