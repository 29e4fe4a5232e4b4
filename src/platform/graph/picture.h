// A drawn graph as a list of primitives: what painters, the report and tests read.
//
// All lengths are view units: logical pixels, with the origin at the lower left, y upward.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/graph/graph_colours.h"
#include "platform/look.h"

namespace tolmer {

struct ViewPoint {
  double x = 0;
  double y = 0;
  friend bool operator==(const ViewPoint&, const ViewPoint&) = default;
};

struct ViewSize {
  double width = 0;
  double height = 0;
};

struct ViewRect {
  double left = 0;
  double bottom = 0;
  double width = 0;
  double height = 0;

  double right() const { return left + width; }
  double top() const { return bottom + height; }
  friend bool operator==(const ViewRect&, const ViewRect&) = default;
};

struct BoxPrimitive {
  ViewRect place;  // outline included
  Colour fill;
  Colour outline;  // one unit wide
};

// Bars: a light tint of the palette's colour with an outline in it.
BoxPrimitive tintedBox(const ViewRect& place, int colour);

struct LinePrimitive {
  std::vector<ViewPoint> points;  // at least two; closed where the last is the first
  Colour colour;
  double width = 1;
  bool dashed = false;  // dashOn and dashOff in turn
  static constexpr double dashOn = 5;
  static constexpr double dashOff = 3;

  bool isClosed() const { return points.size() > 2 && points.front() == points.back(); }
};

struct SymbolPrimitive {
  ViewPoint centre;
  double diameter = 0;
  Colour colour;
  bool filled = false;  // else an outline one unit wide around a light ground
  int point = 0;        // of the plot, from 1
};

struct TextPrimitive {
  ViewPoint anchor;  // on the base line
  std::string text;
  double pixels = 0;  // size of the serif font
  Align align = Align::left;
  bool turned = false;  // reads upward
};

using Primitive = std::variant<BoxPrimitive, LinePrimitive, SymbolPrimitive, TextPrimitive>;

struct Picture {
  ViewSize size;
  ViewRect plot;        // the plot area
  double headroom = 0;  // above it, open to lines drawn on top
  bool hasText = true;  // False where the picture is too small to be read
  std::vector<Primitive> primitives;
  std::vector<ViewRect> textPlaces;  // what the texts cover

  // Appends the primitive, unless a coordinate is not finite.
  void add(Primitive primitive);
  // Appends the part of a segment (two points) inside lineArea. A segment that goes on from the
  // line before it, in the same look, becomes part of it: a chain of short segments has smooth
  // joints and dashes that run on.
  void addSegment(LinePrimitive segment);
  // Appends the text, unless it is blank, would leave the picture or lie on an earlier one.
  void addText(TextPrimitive text);
};

// What the letters of a text cover.
ViewRect textBounds(const TextPrimitive& text);

Font graphFont(double pixels);

// The points of a line. Level and upright lines one unit wide lie on the middle of a pixel row or
// column, so that they are sharp at every whole scale factor.
std::vector<ViewPoint> screenLine(const LinePrimitive& line, const ViewSize& view);

// The path of a box's outline, one unit wide. Each edge is rounded for itself, so that gaps between
// neighbouring boxes stay equal. `bottom` is the upper edge here, since y grows downward.
ViewRect screenBox(const BoxPrimitive& box, const ViewSize& view);

// The anchor of a text, its base line on a whole pixel.
ViewPoint screenAnchor(const TextPrimitive& text, const ViewSize& view);

ViewPoint screenPoint(const ViewPoint& point, const ViewSize& view);

}  // namespace tolmer
