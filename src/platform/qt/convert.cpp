#include "platform/qt/convert.h"

#include <QTextDocument>
#include <algorithm>

#include "platform/qt/theme.h"
#include "platform/window.h"

namespace tolmer {

QColor toQt(Colour colour) {
  if (colour.kind == Colour::Kind::buttonFace) return theme::face;
  if (colour.kind == Colour::Kind::window) return theme::window;
  if (colour.kind == Colour::Kind::buttonText || colour.kind == Colour::Kind::windowText)
    return theme::text;
  return {colour.red, colour.green, colour.blue};
}

float scaleOf(const Control& control) {
  const Window* window = control.window();
  return theme::zoom() * (window ? window->magnification() : 1);
}

QFont toQt(const Font& font, float scale) {
  QFont result(font.family == FontFamily::serif ? theme::serifFamily() : theme::interfaceFamily);
  const float size = font.pixels * scale;
  result.setPixelSize(static_cast<int>(std::floor(scale == 1 ? size + 0.5F : size + 0.01F)));
  result.setBold(font.bold);
  // Serif letters are large here; fitting them to the pixels would cost time and spoil their
  // shapes. Of other sizes than the usual ones it would make texts wider than they were measured.
  if (font.family == FontFamily::serif || scale != 1)
    result.setHintingPreference(QFont::PreferNoHinting);
  return result;
}

QString wrappedTip(const std::string& text) {
  constexpr qsizetype longLine = 100;
  if (text.empty()) return {};
  const QString tip = toQt(text);
  const auto lines = tip.split(u'\n');
  const bool isShort =
      std::ranges::all_of(lines, [](const QString& line) { return line.size() <= longLine; });
  return isShort ? QStringLiteral("<p style='white-space:pre'>") + tip.toHtmlEscaped() +
                       QStringLiteral("</p>")
                 : Qt::convertFromPlainText(tip, Qt::WhiteSpaceNormal);
}

}  // namespace tolmer
