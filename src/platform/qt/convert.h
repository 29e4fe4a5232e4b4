// Between the models' units and the toolkit's.
#pragma once

#include <QColor>
#include <QFont>
#include <QRect>
#include <QString>
#include <cmath>
#include <string>

#include "platform/geometry.h"
#include "platform/look.h"

namespace tolmer {

inline QString toQt(const std::string& utf8) { return QString::fromStdString(utf8); }

// The logical pixel at which that distance ends.
inline int toPixel(Twips twips) {
  return static_cast<int>(std::floor(twips / twipsPerPixel + 0.5F));
}
inline Twips toTwips(int pixel) { return pixels(static_cast<float>(pixel)); }

// The edges are rounded and not the sizes, so that neighbours neither overlap nor gape.
inline QRect toPixels(const Rect& place) {
  const int left = toPixel(place.left);
  const int top = toPixel(place.top);
  return {left, top, toPixel(place.right()) - left, toPixel(place.bottom()) - top};
}
inline QSize toPixels(Size size) { return {toPixel(size.width), toPixel(size.height)}; }

QColor toQt(Colour colour);
QFont toQt(const Font& font);

}  // namespace tolmer
