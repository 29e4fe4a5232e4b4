// A graph as a value: settings in, a picture out, and drawing on top of it.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/graph/axis_ticks.h"
#include "platform/graph/graph_settings.h"
#include "platform/graph/layout.h"
#include "platform/graph/picture.h"

namespace tolmer {

// The calls as they were made.
struct BoxCall {
  double x, y, width, height;
  int pattern, colour;
};
struct LineCall {
  double x1, y1, x2, y2;
  int mode, style, colour;
};
struct TextCall {
  double x, y;
  int flags;
  std::string text;
  double pixels;  // size of the letters
};
using OverlayCall = std::variant<BoxCall, LineCall, TextCall>;

namespace textFlags {
inline constexpr int centred = 0x002;  // x is the middle of the text, else its left end
inline constexpr int hanging = 0x010;  // y is the top of the text, else the middle of its capitals
}  // namespace textFlags

// Drawing on top of a graph that has drawn itself, in view units. Boxes are clipped to the plot
// area, lines to it and its headroom; a text that would leave the view or lie on an earlier one is
// left out. Consecutive lines of equal look that meet become one.
//
// The drawing calls bear the names of the library that graph windows were written for. What its
// attributes meant was closed; they mean here:
// - pattern: every pattern is a light tint with an outline in the full colour;
// - mode, style: mode 1 is a line one unit wide, dashed in style 2; other modes are solid and two
//   wide.
class DrawingView {
 public:
  // A new drawing on a graph of that size.
  void begin(ViewSize size, double textPixels);

  // Lower left corner and size.
  void GSBox2D(double x, double y, double width, double height, int pattern, int colour);
  void GSLineAbs(double x1, double y1, double x2, double y2, int mode, int style, int colour);
  // Sets the pen position, which no call of this surface uses.
  void GSFixPos(double, double) {}
  // Size of the texts that follow, in percent of the usual one.
  void GSLoadRFont(int percent);
  void GSRText(double x, double y, int flags, const std::string& text);
  double GSGetRTextWid(const std::string& text) const;

  // Extent of the view in view units, and of its window in pixels: always the same here.
  double GSGetVXExt() const { return size_.width; }
  double GSGetVYExt() const { return size_.height; }
  double GSGetWXExt() const { return size_.width; }
  double GSGetWYExt() const { return size_.height; }

  const std::vector<OverlayCall>& overlay() const { return overlay_; }

 private:
  ViewSize size_;
  std::vector<OverlayCall> overlay_;
  double usualPixels_ = 0;
  double pixels_ = 0;
};

// Changes of the settings are seen when DrawMode is set to 2, which draws everything anew and drops
// what had been drawn on top: first the settings, then DrawMode 2, then the drawing on the view.
// The primitives are made when the picture is asked for, of settings that have not changed since.
class Plot {
 public:
  // Of a graph of no size, on which there is nothing.
  Plot() = default;
  explicit Plot(ViewSize size, GraphDesign design = {}) : design_(std::move(design)), size_(size) {}

  GraphSettings settings;

  void setNumPoints(int count);
  int numPoints() const { return static_cast<int>(settings.points.size()); }
  // Points count from 1, and so do cases; a point that belongs to none has case 0.
  void setPoint(int point, float x, float value, int iCase = 0);
  void setPointLabel(int point, std::string text);

  enum DrawMode { draw = 2 };
  void setDrawMode(DrawMode mode);

  // The plot area as it was drawn last: 1 and 2 lower and upper bound of the scale of x, 3 and 4
  // upper and lower bound of the scale of y; in view units 5 width, 6 height, 7 left, 8 bottom.
  double SDKInfo(int index) const;

  DrawingView& GSUseView() { return view_; }

  Picture picture() const;  // empty before the first drawing
  const std::vector<OverlayCall>& overlay() const { return view_.overlay(); }

 private:
  GraphDesign design_;
  ViewSize size_;
  bool isDrawn_ = false;
  ViewRect area_;  // as it was drawn last, with its scales
  Scale x_;
  Scale y_;
  DrawingView view_;
};

}  // namespace tolmer
