#include "displaywindows/interpretation_window.h"

#include <algorithm>
#include <cmath>

#include "platform/desktop.h"

namespace tolmer {
namespace {

// A text is read from farther than a label; in a large window it is set in larger letters, since
// lines that are too long are hard to follow. Pixels.
float letters(Twips width) {
  constexpr float smallest = 13, largest = 18, aLine = 64;
  return std::clamp(std::floor(width / twipsPerPixel / aLine), smallest, largest);
}

}  // namespace

frmInterpretation::frmInterpretation(Desktop& desktop, AnalysisState& state, DisplayHost& host,
                                     const Display& display)
    : DisplayWindow(desktop, state, host, display) {
  cmdFocus.setAccessibleName(caption());
  cmdFocus.setAccessibleDescription("Page keys scroll the text, Tab leads into it.");
  fraInterpretation.setAccessibleName(caption());
  txtInterpretation.setAccessibleName("What the fit means");
  txtInterpretation.setMultiLine(true);
  txtInterpretation.setReadOnly(true);
  for (Control* control :
       {static_cast<Control*>(&fraInterpretation), static_cast<Control*>(&txtInterpretation)})
    control->MouseUp = [this](MouseButton button) {
      if (button == MouseButton::left) UpdateControls();
      Form_MouseUp(button);
    };
  declareKeys();
  Activate = [this] { cmdFocus.setFocus(); };
  Resize = [this] { Form_Resize(); };
}

void frmInterpretation::Form_Resize() {
  if (state_.bStartingUp) return;
  PositionControls();
  UpdateDisplay();
}

// Frame and text box keep their sizes from going below zero in a window of a few pixels.
void frmInterpretation::PositionControls() {
  const auto length = [](Twips twips) { return std::max(twips, 0.0F); };
  fraInterpretation.setPlace({10, -50, length(innerWidth() - 40), innerHeight()});
  txtInterpretation.setPlace({100, 150, length(fraInterpretation.width() - 170),
                              length(fraInterpretation.height() - 200)});
  txtInterpretation.setFont({.pixels = letters(innerWidth())});
}

void frmInterpretation::drawDisplay() {
  PositionControls();
  sections_ = std::get<Sections>(content());
  txtInterpretation.setText(wholeText(sections_));
}

void frmInterpretation::declareKeys() {
  const auto isAtFirst = [this] { return cmdFocus.hasFocus(); };
  for (const int code : {keys::up, keys::down, keys::pageUp, keys::pageDown, keys::home, keys::end})
    takeKey(
        {code}, [this, code] { txtInterpretation.scroll(code); }, isAtFirst);
}

void frmInterpretation::CopyGraph() { desktop().setClipboard({.text = wholeText(sections_)}); }

}  // namespace tolmer
