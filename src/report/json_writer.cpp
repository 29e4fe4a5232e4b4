#include "report/json_writer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>

namespace tolmer {
namespace {

template <class Number>
std::string_view digits(std::array<char, 32>& buffer, Number number, int significant) {
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                     std::chars_format::general, significant);
  return {buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data())};
}

template <class Number>
std::string_view notFinite(Number number) {
  if (std::isnan(number)) return "nan";
  return number > 0 ? "inf" : "-inf";
}

bool mustBeEscaped(char c) { return c == '"' || c == '\\' || static_cast<unsigned char>(c) < 0x20; }

}  // namespace

void JsonWriter::open(char bracket, bool lines) {
  beforeElement();
  text_ += bracket;
  // What stands in an array stays on the array's line.
  levels_.push_back({lines && (levels_.empty() || levels_.back().lines)});
}

void JsonWriter::close(char bracket) {
  const Level level = levels_.back();
  levels_.pop_back();
  if (level.lines && !level.empty) newLine();
  text_ += bracket;
  if (levels_.empty()) text_ += '\n';
}

void JsonWriter::newLine() {
  text_ += '\n';
  text_.append(2 * levels_.size(), ' ');
}

void JsonWriter::beforeElement() {
  if (afterKey_) {
    afterKey_ = false;
    return;
  }
  if (levels_.empty()) return;
  Level& level = levels_.back();
  if (!level.empty) text_ += level.lines ? "," : ", ";
  if (level.lines) newLine();
  level.empty = false;
}

void JsonWriter::key(std::string_view name) {
  beforeElement();
  quote(name);
  text_ += ": ";
  afterKey_ = true;
}

void JsonWriter::raw(std::string_view token) {
  beforeElement();
  text_ += token;
}

void JsonWriter::value(std::string_view text) {
  beforeElement();
  quote(text);
}

void JsonWriter::integer(long long number) {
  std::array<char, 32> buffer;
  const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  raw({buffer.data(), static_cast<std::size_t>(written.ptr - buffer.data())});
}

void JsonWriter::value(float number) {
  std::array<char, 32> buffer;
  if (std::isfinite(number))
    raw(digits(buffer, number, 9));
  else
    value(notFinite(number));
}

void JsonWriter::value(double number) {
  if (!std::isfinite(number)) return value(notFinite(number));
  const auto bits = std::bit_cast<std::uint64_t>(number);
  auto found = std::find_if(doubles_.begin(), doubles_.end(),
                            [bits](const Written& written) { return written.bits == bits; });
  if (found == doubles_.end()) {
    found = doubles_.begin() + static_cast<std::ptrdiff_t>(nextDouble_++ % doubles_.size());
    found->bits = bits;
    found->length = digits(found->text, number, 17).size();
  }
  raw({found->text.data(), found->length});
}

void JsonWriter::quote(std::string_view text) {
  if (std::none_of(text.begin(), text.end(), [](char c) { return mustBeEscaped(c); })) {
    const std::size_t begin = text_.size();
    text_.resize(begin + text.size() + 2, '"');
    text.copy(&text_[begin + 1], text.size());
    return;
  }
  text_ += '"';
  while (!text.empty()) {
    const auto plain =
        std::find_if(text.begin(), text.end(), [](char c) { return mustBeEscaped(c); }) -
        text.begin();
    text_ += text.substr(0, static_cast<std::size_t>(plain));
    text.remove_prefix(static_cast<std::size_t>(plain));
    if (text.empty()) break;
    escape(text.front());
    text.remove_prefix(1);
  }
  text_ += '"';
}

void JsonWriter::escape(char c) {
  constexpr std::string_view hex = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(c);
  text_ += '\\';
  if (c == '"' || c == '\\') {
    text_ += c;
  } else if (c == '\n') {
    text_ += 'n';
  } else if (c == '\r') {
    text_ += 'r';
  } else if (c == '\t') {
    text_ += 't';
  } else {
    text_ += "u00";
    text_ += hex[code >> 4U];
    text_ += hex[code & 15U];
  }
}

}  // namespace tolmer
