// Writes JSON as RFC 8259 describes it, in order and without a tree in memory.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolmer {

// Objects are laid out over several lines, arrays stand on one. The caller closes what it opens.
class JsonWriter {
 public:
  // What a report of the largest data set needs; memory is taken where it is written.
  JsonWriter() { text_.reserve(1U << 20U); }

  void beginObject() { open('{', true); }
  void endObject() { close('}'); }
  void beginArray() { open('[', false); }
  void endArray() { close(']'); }
  void key(std::string_view name);

  void value(std::string_view text);
  void value(const char* text) { value(std::string_view(text)); }
  void value(std::same_as<bool> auto flag) { raw(flag ? "true" : "false"); }
  void value(std::signed_integral auto number) { integer(number); }
  // Enough digits to give the value back exactly: 9 for a single, 17 for a double. What is not
  // finite is the text "nan", "inf" or "-inf".
  void value(float number);
  void value(double number);
  void null() { raw("null"); }

  // key and value
  template <class Value>
  void member(std::string_view name, const Value& content) {
    key(name);
    value(content);
  }

  const std::string& text() const& { return text_; }
  std::string text() && { return std::move(text_); }

 private:
  struct Level {
    bool lines;  // each element on a line of its own
    bool empty = true;
  };
  // A double as it was written.
  struct Written {
    std::uint64_t bits = 0;
    std::array<char, 32> text{'0'};
    std::size_t length = 1;
  };
  void open(char bracket, bool lines);
  void close(char bracket);
  void beforeElement();
  void newLine();
  void integer(long long number);
  void raw(std::string_view token);
  void quote(std::string_view text);
  void escape(char c);

  std::string text_;
  std::vector<Level> levels_;
  bool afterKey_ = false;
  // The last ones, in turn: each line of a curve begins where the one before ended, and seventeen
  // digits are dear.
  std::array<Written, 4> doubles_;
  std::size_t nextDouble_ = 0;
};

}  // namespace tolmer
