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

  JsonWriter() = default;
  // What is written goes on piece by piece, so that a large report takes no memory.
  explicit JsonWriter(Sink sink) : sink_(std::move(sink)) { whole_.reserve(pieceLength); }

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

  // All of it; without a sink alone.
  const std::string& text() {
    flush();
    return whole_;
  }
  // To the sink, what it has not had.
  void finish();

 private:
  struct Level {
    bool lines;  // each element on a line of its own
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

  static constexpr std::size_t pieceLength = 1U << 16U;

  Sink sink_;
  std::string whole_;  // or what the sink has not had
  // The last letters, not yet in the whole: appending to a string costs more than a short piece.
  std::array<char, 4096> block_;
  std::size_t used_ = 0;
  std::vector<Level> levels_;
  bool afterKey_ = false;
};

}  // namespace tolmer
