// The line between the program and the page that shows it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tolmer {

class PageLine {
 public:
  virtual ~PageLine() = default;
  virtual void post(const std::string& batch) = 0;
  // The next message, waited for so many milliseconds, or without end below zero. It may wait for
  // less and have none.
  virtual std::optional<std::string> next(double milliseconds) = 0;
  // Files go as addresses, which the side that gets one reads once.
  virtual std::string lend(std::string_view bytes) = 0;
  virtual std::optional<std::string> borrow(const std::string& address) = 0;
};

// What the page tells: fields of text divided by U+001F, the first one the kind. A field that is
// missing is empty, and one that is no number is 0: a page that says nonsense harms nobody.
class PageMessage {
 public:
  explicit PageMessage(std::string_view text);

  const std::string& kind() const { return fields_.front(); }
  std::size_t size() const { return fields_.size() - 1; }
  // From 0, behind the kind.
  const std::string& text(std::size_t index) const;
  int whole(std::size_t index) const;
  float number(std::size_t index) const;
  bool flag(std::size_t index) const { return text(index) == "1"; }
  std::size_t count(std::size_t index) const;  // never below zero

 private:
  std::vector<std::string> fields_;
};

}  // namespace tolmer
