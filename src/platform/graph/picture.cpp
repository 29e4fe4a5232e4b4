#include "platform/graph/picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/graph/clip.h"
#include "platform/graph/palette.h"
#include "platform/text_metrics.h"

namespace tolmer {
namespace {

// Heights of ascenders and depths of descenders of Liberation Serif, in parts of the font size.
constexpr double ascent = 0.70;
constexpr double descent = 0.22;

// Share of the full colour in filled boxes: on the tint red lines keep a contrast of 2.7 : 1.
constexpr double fillShare = 0.38;

bool isFinite(const ViewPoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }
bool isFinite(const ViewRect& rect) {
  return isFinite(ViewPoint{rect.left, rect.bottom}) &&
         isFinite(ViewPoint{rect.width, rect.height});
}

struct HasFiniteCoordinates {
  bool operator()(const BoxPrimitive& box) const { return isFinite(box.place); }
  bool operator()(const LinePrimitive& line) const {
    return std::all_of(line.points.begin(), line.points.end(),
                       [](const ViewPoint& point) { return isFinite(point); });
  }
  bool operator()(const SymbolPrimitive& symbol) const { return isFinite(symbol.centre); }
  bool operator()(const TextPrimitive& text) const { return isFinite(text.anchor); }
};

bool isInside(const ViewRect& inner, const ViewSize& outer) {
  return inner.left >= 0 && inner.bottom >= 0 && inner.right() <= outer.width &&
         inner.top() <= outer.height;
}

bool overlap(const ViewRect& a, const ViewRect& b) {
  return a.left < b.right() && b.left < a.right() && a.bottom < b.top() && b.bottom < a.top();
}

bool goesOn(const LinePrimitive& line, const LinePrimitive& next) {
  return line.colour == next.colour && line.width == next.width && line.dashed == next.dashed &&
         !line.isClosed() && line.points.back() == next.points.front();
}

}  // namespace

BoxPrimitive tintedBox(const ViewRect& place, int colour) {
  const Colour full = paletteColour(colour);
  return {place, tint(full, fillShare), full};
}

void Picture::add(Primitive primitive) {
  if (std::visit(HasFiniteCoordinates{}, primitive)) primitives.push_back(std::move(primitive));
}

void Picture::addSegment(LinePrimitive segment) {
  if (!clip(segment.points[0], segment.points[1], lineArea(*this))) return;
  auto* last = primitives.empty() ? nullptr : std::get_if<LinePrimitive>(&primitives.back());
  if (last && goesOn(*last, segment))
    last->points.push_back(segment.points.back());
  else
    add(std::move(segment));
}

void Picture::addText(TextPrimitive text) {
  if (!hasText || text.text.find_first_not_of(' ') == std::string::npos) return;
  const ViewRect bounds = textBounds(text);
  if (!isFinite(bounds) || !isInside(bounds, size)) return;
  if (std::any_of(textPlaces.begin(), textPlaces.end(),
                  [&](const ViewRect& earlier) { return overlap(bounds, earlier); }))
    return;
  textPlaces.push_back(bounds);
  add(std::move(text));
}

ViewRect textBounds(const TextPrimitive& text) {
  const double length = textWidth(graphFont(text.pixels), text.text);
  const double before = text.align == Align::left     ? 0
                        : text.align == Align::centre ? length / 2
                                                      : length;
  const double height = (ascent + descent) * text.pixels;
  if (text.turned)
    return {text.anchor.x - ascent * text.pixels, text.anchor.y - before, height, length};
  return {text.anchor.x - before, text.anchor.y - descent * text.pixels, length, height};
}

Font graphFont(double pixels) { return {FontFamily::serif, static_cast<float>(pixels), false}; }

}  // namespace tolmer
