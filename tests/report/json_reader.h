// Just enough of a JSON reader to look into a report.
#pragma once

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolmer::test {

// Numbers stay as they are written, so that their digits can be compared too.
struct Json {
  enum class Kind { word, text, array, object } kind = Kind::word;
  std::string text;                // of a number, true, false, null or a string
  std::vector<Json> items;         // of an array or object
  std::vector<std::string> names;  // of an object's items

  const Json& operator[](std::string_view key) const {
    for (std::size_t i = 0; i < names.size(); ++i)
      if (names[i] == key) return items[i];
    throw std::out_of_range("no key " + std::string(key));
  }
  const Json& operator[](std::size_t index) const { return items.at(index); }
  bool has(std::string_view key) const {
    return std::find(names.begin(), names.end(), key) != names.end();
  }
  template <class Number>
  Number number() const {
    Number value{};
    const char* end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    if (kind != Kind::word || read.ec != std::errc() || read.ptr != end)
      throw std::invalid_argument("no number: " + text);
    return value;
  }
};

class JsonReader {
 public:
  explicit JsonReader(std::string_view text) : text_(text) {}

  Json readAll() {
    Json value = read();
    skipBlanks();
    if (at_ != text_.size()) fail("something follows the value");
    return value;
  }

 private:
  [[noreturn]] void fail(const std::string& what) const {
    throw std::invalid_argument(what + " at byte " + std::to_string(at_));
  }
  void skipBlanks() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\n')) ++at_;
  }
  bool take(char c) {
    skipBlanks();
    if (at_ == text_.size() || text_[at_] != c) return false;
    ++at_;
    return true;
  }
  void expect(char c) {
    if (!take(c)) fail(std::string("no ") + c);
  }

  Json read() {
    skipBlanks();
    if (take('{')) return readObject();
    if (take('[')) return readArray();
    if (take('"')) return {Json::Kind::text, readString(), {}, {}};
    const auto end = std::min(text_.find_first_of(",]} \n", at_), text_.size());
    if (end == at_) fail("no value");
    Json word{Json::Kind::word, std::string(text_.substr(at_, end - at_)), {}, {}};
    at_ = end;
    return word;
  }
  Json readObject() {
    Json object{Json::Kind::object, {}, {}, {}};
    if (take('}')) return object;
    do {
      expect('"');
      object.names.push_back(readString());
      expect(':');
      object.items.push_back(read());
    } while (take(','));
    expect('}');
    return object;
  }
  Json readArray() {
    Json array{Json::Kind::array, {}, {}, {}};
    if (take(']')) return array;
    do array.items.push_back(read());
    while (take(','));
    expect(']');
    return array;
  }
  std::string readString() {
    std::string value;
    for (; at_ < text_.size() && text_[at_] != '"'; ++at_) {
      const bool isEscaped = text_[at_] == '\\';
      if (isEscaped) ++at_;
      value += isEscaped ? unescaped(text_.at(at_)) : text_[at_];
    }
    expect('"');
    return value;
  }

  // Control characters other than these do not occur in the tests.
  static char unescaped(char c) {
    if (c == 'u') throw std::invalid_argument("a control character");
    return c == 'n' ? '\n' : c == 'r' ? '\r' : c == 't' ? '\t' : c;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace tolmer::test
