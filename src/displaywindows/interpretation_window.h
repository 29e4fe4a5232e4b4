// The window of the display that says what a fit means.
#pragma once

#include "displaywindows/display_window.h"
#include "platform/buttons.h"
#include "platform/fields.h"
#include "platform/panels.h"

namespace tolmer {

class frmInterpretation : public DisplayWindow {
 public:
  frmInterpretation(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                    const Display& display);

  void PositionControls() override;
  // The text, as text.
  void CopyGraph() override;

  // Has the focus at first, without a size, so that no caret blinks in the text. The keys that
  // scroll work from here, too.
  Button cmdFocus{this, "cmdFocus"};
  Frame fraInterpretation{this, "fraInterpretation"};
  TextBox txtInterpretation{&fraInterpretation, "txtInterpretation"};

 protected:
  void drawDisplay() override;

 private:
  void Form_Resize();
  void declareKeys();

  Sections sections_;
};

}  // namespace tolmer
