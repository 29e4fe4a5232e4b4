#include "platform/qt/convert.h"

#include "platform/qt/theme.h"

namespace tolmer {

QColor toQt(Colour colour) {
  if (colour.kind == Colour::Kind::buttonFace) return theme::face;
  if (colour.kind == Colour::Kind::window) return theme::window;
  if (colour.kind == Colour::Kind::buttonText || colour.kind == Colour::Kind::windowText)
    return theme::text;
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
