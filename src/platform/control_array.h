// Controls of one kind under one name, told apart by an index; they grow on demand and never
// shrink.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/control.h"

namespace tolmer {

template <class Kind>
class ControlArray {
 public:
  // `first` is the index of the first element to be loaded.
  ControlArray(Container& parent, std::string name, int first = 1)
      : parent_(parent), name_(std::move(name)), first_(first) {}

  // Adds the next element, invisible as yet.
  Kind& load() {
    const int index = last() + 1;
    elements_.push_back(
        std::make_unique<Kind>(&parent_, name_ + "(" + std::to_string(index) + ")"));
    elements_.back()->setVisible(false);
    parent_.announceChildren();
    return *elements_.back();
  }
  int first() const { return first_; }
  int last() const { return first_ + static_cast<int>(elements_.size()) - 1; }
  Kind& operator()(int index) { return *elements_.at(index - first_); }
  const Kind& operator()(int index) const { return *elements_.at(index - first_); }

 private:
  Container& parent_;
  std::string name_;
  int first_;
  std::vector<std::unique_ptr<Kind>> elements_;
};

}  // namespace tolmer
