#include "notebook/sample_only.h"

#include "notebook/book_look.h"

namespace tolmer {

using namespace book_look;

frmSampleOnly::frmSampleOnly(Desktop& desktop, const std::string& pictureFile)
    : Window(desktop, "frmSampleOnly", WindowStyle::dialog, "Sample Only") {
  constexpr Twips textLeft = pixels(76);
  constexpr Twips textWidth = pixels(300);
  setPlace({0, 0, textLeft + textWidth + pixels(20), pixels(148)});
  Image1.setPlace({pixels(20), pixels(20), pixels(40), pixels(40)});
  Image1.setFile(pictureFile);
  for (Label* label : {&Label1, &Label2}) label->setWordWrap(true);
  Label1.setPlace(
      {textLeft, pixels(20), textWidth, heightOf(textFont, Label1.caption(), textWidth)});
  Label2.setPlace({textLeft, Label1.bottom() + pixels(8), textWidth,
                   heightOf(textFont, Label2.caption(), textWidth)});
  cmdOK.setPlace(
      {(innerWidth() - pixels(96)) / 2, innerHeight() - pixels(42), pixels(96), pixels(28)});
  cmdOK.setDefault(true);
  cmdOK.setCancel(true);
  cmdOK.Click = [this] { hide(); };
  centreOnScreen();
}

}  // namespace tolmer
