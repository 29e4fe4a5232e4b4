// What every reader returns in place of a result when a file or an argument is at fault.
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace tolmer {

struct Error {
  std::string where;  // "file", "file:line", "file:line:column" or empty
  std::string text;   // one sentence for the person who can mend it, without a final line end

  std::string message() const { return where.empty() ? text : where + ": " + text; }
};

// A value, or the error that stands in its place.
template <class Value>
class Result {
 public:
  Result(Value value) : content_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Result(Error error) : content_(std::move(error)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return content_.index() == 0; }
  Value& operator*() & { return std::get<0>(content_); }
  const Value& operator*() const& { return std::get<0>(content_); }
  Value&& operator*() && { return std::get<0>(std::move(content_)); }
  Value* operator->() { return &std::get<0>(content_); }
  const Value* operator->() const { return &std::get<0>(content_); }
  const Error& error() const { return std::get<1>(content_); }

 private:
  std::variant<Value, Error> content_;
};

}  // namespace tolmer
