#include "platform/zoom.h"

#include <algorithm>

namespace tolmer {

Zoom::Zoom() {
  const auto take = [this](int code, Held shift, void (Zoom::*work)()) {
    takenKeys_.push_back(
        {{code, shift, Held::yes, Held::no}, [this, work] { (this->*work)(); }, {}});
  };
  take(keys::plus, Held::any, &Zoom::zoomIn);
  take(keys::minus, Held::any, &Zoom::zoomOut);
  take('0', Held::no, &Zoom::zoomToUsual);
}

void Zoom::setZoom(int percent) {
  percent = std::clamp(percent, leastZoom, mostZoom);
  if (percent == zoom_) return;
  zoom_ = percent;
  zoomChanged();
}

}  // namespace tolmer
