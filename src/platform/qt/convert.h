// Between the models' units and the toolkit's.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>
#include <cmath>
#include <string>

#include "platform/control.h"
#include "platform/geometry.h"
#include "platform/look.h"

namespace tolmer {

inline QString toQt(const std::string& utf8) { return QString::fromStdString(utf8); }

// How many times as large as usual a control is shown: the zoom of the desktop, and in a window
// that is magnified so many times that.
float scaleOf(const Control& control);

// The logical pixel at which that distance ends.
inline int toPixel(Twips twips, float scale) {
  return static_cast<int>(std::floor(twips * scale / twipsPerPixel + 0.5F));
}
inline Twips toTwips(int pixel, float scale) { return pixels(static_cast<float>(pixel)) / scale; }

// The edges are rounded and not the sizes, so that neighbours neither overlap nor gape.
inline QRect toPixels(const Rect& place, float scale) {
  const int left = toPixel(place.left, scale);
  const int top = toPixel(place.top, scale);
  return {left, top, toPixel(place.right(), scale) - left, toPixel(place.bottom(), scale) - top};
}
inline QSize toPixels(Size size, float scale) {
  return {toPixel(size.width, scale), toPixel(size.height, scale)};
}
inline Size toTwips(QSize size, float scale) {
  return {toTwips(size.width(), scale), toTwips(size.height(), scale)};
}

QColor toQt(Colour colour);
// Never larger than the scale asks for, so that texts have the room that was measured for them.
QFont toQt(const Font& font, float scale = 1);

// For a tool tip: its lines as they are, long ones wrapped, and nothing in it means a format.
QString wrappedTip(const std::string& text);

}  // namespace tolmer
