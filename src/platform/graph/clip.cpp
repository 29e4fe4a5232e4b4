#include "platform/graph/clip.h"

#include <cmath>

namespace tolmer {
namespace {

// Cuts off what lies below a level of one coordinate, or above it for side -1. False if nothing is
// left. The cut end gets the level itself, which keeps ends far away from rounding errors.
bool cutAt(double level, double side, double ViewPoint::*along, double ViewPoint::*across,
           ViewPoint& a, ViewPoint& b) {
  const bool aIsOut = (a.*along - level) * side < 0;
  const bool bIsOut = (b.*along - level) * side < 0;
  if (aIsOut && bIsOut) return false;
  if (!aIsOut && !bIsOut) return true;
  const double share = (level - a.*along) / (b.*along - a.*along);
  const double other = a.*across + share * (b.*across - a.*across);
  ViewPoint& outer = aIsOut ? a : b;
  outer.*along = level;
  outer.*across = other;
  return true;
}

}  // namespace

ViewRect lineArea(const Picture& picture) {
  const ViewRect& plot = picture.plot;
  return {plot.left - 1, plot.bottom - 1, plot.width + 2, plot.height + picture.headroom + 2};
}

bool clip(ViewPoint& a, ViewPoint& b, const ViewRect& area) {
  if (!std::isfinite(b.x - a.x) || !std::isfinite(b.y - a.y)) return false;
  return cutAt(area.left, 1, &ViewPoint::x, &ViewPoint::y, a, b) &&
         cutAt(area.right(), -1, &ViewPoint::x, &ViewPoint::y, a, b) &&
         cutAt(area.bottom, 1, &ViewPoint::y, &ViewPoint::x, a, b) &&
         cutAt(area.top(), -1, &ViewPoint::y, &ViewPoint::x, a, b);
}

}  // namespace tolmer
