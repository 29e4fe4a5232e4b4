#include "shell/hider.h"

#include <string>

#include "platform/desktop.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

constexpr std::string_view familyName = "Z e l m a r   ";

// The family's name over and over, enough to fill that many pixels of width and height.
std::string filling(const Font& font, Size screen) {
  const double width = screen.width / twipsPerPixel;
  const double height = screen.height / twipsPerPixel;
  const int perLine = static_cast<int>(width / textWidth(font, familyName));
  const int lines = static_cast<int>(height / lineHeight(font));
  std::string text;
  for (int line = 0; line < lines; ++line) {
    if (line > 0) text += '\n';
    for (int i = 0; i < perLine; ++i) text += familyName;
  }
  return text;
}

}  // namespace

frmHider::frmHider(Desktop& desktop) : Window(desktop, "frmHider", WindowStyle::bare) {
  pnlHider.setFont({FontFamily::serif, 24, false});
  pnlHider.setBackColour(Colour::rgb(38, 62, 92));
  pnlHider.setForeColour(Colour::rgb(52, 78, 110));
}

void frmHider::cover() {
  const UpdateLock lock(*this);
  const Size screen = desktop().screenSize();
  setPlace({0, 0, screen.width, screen.height});
  pnlHider.setPlace({0, 0, screen.width, screen.height});
  pnlHider.setCaption(filling(pnlHider.font(), screen));
  show();
}

}  // namespace tolmer
