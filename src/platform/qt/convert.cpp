#include "platform/qt/convert.h"

#include "platform/qt/theme.h"

namespace tolmer {

QColor toQt(Colour colour) {
  switch (colour.kind) {
    case Colour::Kind::buttonFace:
      return theme::face;
    case Colour::Kind::window:
      return theme::window;
    case Colour::Kind::buttonText:
    case Colour::Kind::windowText:
      return theme::text;
    case Colour::Kind::rgb:
      break;
  }
  return {colour.red, colour.green, colour.blue};
}

QFont toQt(const Font& font) {
  QFont result(font.family == FontFamily::serif ? theme::serifFamilies
                                                : QStringList{theme::interfaceFamily});
  result.setPixelSize(static_cast<int>(std::lround(font.pixels)));
  result.setBold(font.bold);
  // Serif letters are large here; fitting them to the pixels would cost time and spoil their
  // shapes.
  if (font.family == FontFamily::serif) result.setHintingPreference(QFont::PreferNoHinting);
  return result;
}

}  // namespace tolmer
