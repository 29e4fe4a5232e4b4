// Writes JSON as RFC 8259 describes it, in order and without a tree in memory.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolmer {

// Objects are laid out over several lines, arrays stand on one. The caller closes what it opens.
class JsonWriter {
 public:
  using Sink = std::function<void(std::string_view)>;

  // What is written goes to the sink piece by piece, the rest of it with finish().
  explicit JsonWriter(Sink sink) : sink_(std::move(sink)) {}

  void beginObject() { open('{', true); }
  void endObject() { close('}'); }
  void beginArray() { open('[', false); }
  void endArray() { close(']'); }
  void key(std::string_view name);

  void value(std::string_view text);
  void value(const char* text) { value(std::string_view(text)); }
  // A short text without letters to escape.
  void plain(std::string_view text);
  void value(std::same_as<bool> auto flag) { raw(flag ? "true" : "false"); }
  void value(std::signed_integral auto number) { integer(number); }
  // Enough digits to give the value back exactly: 9 for a single, 17 for a double. What is not
  // finite is the text "nan", "inf" or "-inf".
  void value(float number);
  void value(double number);
  void null() { raw("null"); }
  // One that is JSON already.
  void token(std::string_view json) { raw(json); }

  // key and value
  template <class Value>
  void member(std::string_view name, const Value& content) {
    key(name);
    value(content);
  }
  // Several of them: name, content, name, content.
  template <class Value, class... Rest>
  void members(std::string_view name, const Value& content, const Rest&... rest) {
    member(name, content);
    if constexpr (sizeof...(rest) > 0) members(rest...);
  }
  // key and array; `write` writes the element that a part of the range stands for.
  template <class Range, class Write>
  void list(std::string_view name, const Range& range, Write write) {
    key(name);
    beginArray();
    for (const auto& part : range) write(part);
    endArray();
  }
  template <class Range>
  void list(std::string_view name, const Range& range) {
    list(name, range, [this](const auto& part) { this->value(part); });
  }

  void finish() { flush(); }

 private:
  struct Level {
    bool lines = true;  // each element on a line of its own
    bool empty = true;
  };
  void open(char bracket, bool lines);
  void close(char bracket);
  void integer(long long number);
  void decimal(double number, int significant);
  void raw(std::string_view token);

  // Room for `count` letters behind what divides an element from the one before.
  char* element(std::size_t count);
  char* newLine(char* at) const;
  std::size_t longestNewLine() const { return 4 + 2 * levels_.size(); }
  // Room for `count` letters, at most as many as a block has; `end` is behind those written.
  char* room(std::size_t count) {
    if (block_.size() - used_ < count) flush();
    return block_.data() + used_;
  }
  void wrote(const char* end) { used_ = static_cast<std::size_t>(end - block_.data()); }
  void put(std::string_view text);
  void flush();

  Sink sink_;
  std::array<char, 1U << 14U> block_;  // the last letters, which the sink has not had
  std::size_t used_ = 0;
  Level level_;
  std::vector<Level> levels_;  // around it
  bool afterKey_ = false;
};

// What is written by it, whole.
std::string jsonOf(const std::function<void(JsonWriter&)>& write);

}  // namespace tolmer
