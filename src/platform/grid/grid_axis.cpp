#include "platform/grid/grid_axis.h"

#include <algorithm>
#include <cmath>

namespace tolmer {
namespace {

int wholePixels(Twips size) {
  return std::max(static_cast<int>(std::lround(size / twipsPerPixel)), 0);
}

}  // namespace

GridAxis::GridAxis(const std::vector<Twips>& sizes, bool showsHeading, int frozen)
    : frozen_(std::clamp(frozen, 0, static_cast<int>(sizes.size()) - 1)) {
  starts_.assign(1, 1);
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const int size = i > 0 || showsHeading ? wholePixels(sizes[i]) : 0;
    starts_.push_back(starts_.back() + (size > 0 ? size + 1 : 0));
  }
}

GridAxis GridAxis::scaled(float times) const {
  GridAxis axis(*this);
  for (int& start : axis.starts_)
    start = static_cast<int>(std::floor(static_cast<float>(start - 1) * times)) + 1;
  return axis;
}

int GridAxis::size(int index) const { return std::max(start(index + 1) - start(index) - 1, 0); }

int GridAxis::at(int pixel) const {
  const auto next = std::upper_bound(starts_.begin(), starts_.end(), pixel);
  const int index = static_cast<int>(next - starts_.begin()) - 1;
  const int first = size(0) > 0 ? 0 : std::min(1, count());
  return std::clamp(index, first, count());
}

int GridAxis::lastWithin(int first, int room) const {
  int last = first;
  while (last < count() && start(last + 2) - start(first) <= room) ++last;
  return last;
}

int GridAxis::scrolledTo(int index, int scrolled, int viewport) const {
  if (index <= frozen() || index > count()) return scrolled;
  const int begin = start(index) - frozenEnd();
  const int least = begin + size(index) + 1 - (viewport - frozenEnd());
  if (least <= scrolled) return std::min(scrolled, begin);
  // Scrolled on, what follows the frozen part is whole: the end of a number looks like a number.
  const int first = at(frozenEnd() + least - 1) + 1;
  return std::min(start(first) - frozenEnd(), begin);
}

}  // namespace tolmer
