// Where the rows or the columns of a grid lie, in logical pixels.
#pragma once

#include <vector>

#include "platform/geometry.h"

namespace tolmer {

// One direction of a grid that is not scrolled. A line of one pixel stands before the first row
// (column) and behind each; one of size 0 is hidden, with its line.
class GridAxis {
 public:
  GridAxis() = default;
  // sizes: element 0 the heading, then 1..n. The first `frozen` of them stay in place.
  GridAxis(const std::vector<Twips>& sizes, bool showsHeading, int frozen);

  // The same so many times as large, and so the whole; lines are of one pixel there too.
  GridAxis scaled(float times) const;

  int count() const { return static_cast<int>(starts_.size()) - 2; }
  // The first pixel of its cells; that of `count() + 1` is where the next one would stand.
  int start(int index) const { return starts_[index]; }
  // Without the line behind it.
  int size(int index) const;
  // With all lines.
  int total() const { return starts_.back(); }
  // Heading and frozen part with their lines; all that follows scrolls.
  int frozenEnd() const { return start(frozen_ + 1); }
  int frozen() const { return frozen_; }

  // The one at that pixel, the line behind it included; the nearest one outside.
  int at(int pixel) const;
  // The last one that begins within `room` pixels if `first` stands at their upper edge; at least
  // `first`.
  int lastWithin(int first, int room) const;
  // How far a viewport of that size has to be scrolled so that the one is seen whole, or its
  // beginning where it is larger than the room; `scrolled` where it is, and where there is none.
  int scrolledTo(int index, int scrolled, int viewport) const;

 private:
  std::vector<int> starts_{1, 1};
  int frozen_ = 0;
};

}  // namespace tolmer
