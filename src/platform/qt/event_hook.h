#pragma once

#include <QEvent>
#include <QObject>
#include <functional>
#include <utility>

namespace tolmer {

// Lets its owner see a widget's events first; the function returns whether the event is dealt with.
// The widget needs no class of its own for that, and nothing dangles when the owner goes first.
class EventHook : public QObject {
 public:
  explicit EventHook(std::function<bool(QEvent&)> see) : see_(std::move(see)) {}

 protected:
  bool eventFilter(QObject*, QEvent* event) override { return see_(*event); }

 private:
  std::function<bool(QEvent&)> see_;
};

}  // namespace tolmer
