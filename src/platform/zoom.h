// How large everything is shown: the steps, and the keys for them.
#pragma once

#include <vector>

#include "platform/input.h"

namespace tolmer {

class Zoom {
 public:
  Zoom();
  virtual ~Zoom() = default;
  Zoom(const Zoom&) = delete;
  Zoom& operator=(const Zoom&) = delete;

  // In per cent of the usual size; the models' lengths stay what they are, and the screen has room
  // for more of them or for fewer.
  static constexpr int usualZoom = 100, leastZoom = 75, mostZoom = 250, zoomStep = 25;
  int zoom() const { return zoom_; }
  // What is out of bounds is brought to them.
  void setZoom(int percent);
  void zoomIn() { setZoom((zoom_ / zoomStep + 1) * zoomStep); }
  void zoomOut() { setZoom((zoom_ - 1) / zoomStep * zoomStep); }
  void zoomToUsual() { setZoom(usualZoom); }
  // Those that mean the same in every window: Ctrl with Plus, Minus and 0.
  const std::vector<TakenKey>& takenKeys() const { return takenKeys_; }

 protected:
  // A front end shows everything anew.
  virtual void zoomChanged() {}

 private:
  std::vector<TakenKey> takenKeys_;
  int zoom_ = usualZoom;
};

}  // namespace tolmer
