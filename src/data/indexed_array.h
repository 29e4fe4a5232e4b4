// A vector addressed as the program's arrays are: with an int, from 0 to the upper bound.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace tolmer {

template <class Value>
class IndexedArray {
 public:
  using Reference = typename std::vector<Value>::reference;
  using ConstReference = typename std::vector<Value>::const_reference;

  // Elements 0..last, all of them empty; what they held is lost.
  void redim(int last) { values_.assign(static_cast<std::size_t>(last) + 1, Value{}); }
  // The same, but elements up to the new bound keep what they hold.
  void redimPreserve(int last) { values_.resize(static_cast<std::size_t>(last) + 1); }
  int last() const { return static_cast<int>(values_.size()) - 1; }  // -1 while empty

  Reference operator()(int index) { return values_[static_cast<std::size_t>(index)]; }
  ConstReference operator()(int index) const { return values_[static_cast<std::size_t>(index)]; }

  const std::vector<Value>& values() const { return values_; }
  void setValues(std::vector<Value> values) { values_ = std::move(values); }

 private:
  std::vector<Value> values_;
};

}  // namespace tolmer
