#include "base/json_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "base/rounded_decimal.h"

namespace tolmer {
namespace {

constexpr int singleDigits = 9;
constexpr int doubleDigits = 17;
constexpr std::size_t mostDigits = 20;
constexpr std::size_t longestNumber = 48;  // and what is copied behind it

// "00" to "99".
constexpr auto pairs = [] {
  std::array<char, 200> digits{};
  for (std::size_t i = 0; i < digits.size(); ++i)
    digits[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
  return digits;
}();

// Without zeros behind the last decimal. Copies more than it writes, since a copy of known length
// costs next to nothing: behind the end there is room for it.
char* write(char* at, RoundedDecimal decimal, int significant) {
  std::array<char, 2 * mostDigits> text;
  char* first = text.data() + significant;
  for (; first > text.data() + 1; decimal.digits /= 100)
    std::memcpy(first -= 2, &pairs[2 * (decimal.digits % 100)], 2);
  if (first > text.data()) text[0] = static_cast<char>('0' + decimal.digits);
  std::ptrdiff_t count = significant;
  while (text[static_cast<std::size_t>(count) - 1] == '0') --count;
  if (decimal.exponent < 0) at = std::copy_n("0.000", 1 - decimal.exponent, at);
  const std::ptrdiff_t whole = std::max(decimal.exponent + 1, 0);
  std::memcpy(at, text.data(), mostDigits);
  if (count <= whole) return at + whole;
  if (whole == 0) return at + count;
  at[whole] = '.';
  std::memcpy(at + whole + 1, text.data() + whole, mostDigits);
  return at + count + 1;
}

std::string_view notFinite(double number) {
  if (std::isnan(number)) return "nan";
  return number > 0 ? "inf" : "-inf";
}

constexpr auto escaped = [] {
  std::array<bool, 256> letters{};
  std::fill_n(letters.begin(), 0x20, true);
  letters['"'] = letters['\\'] = true;
  return letters;
}();

bool mustBeEscaped(char c) { return escaped[static_cast<unsigned char>(c)]; }

constexpr std::size_t longestEscape = 6;
constexpr std::size_t longestPart = 256;  // of a text, taken at once

char* escape(char* at, char c) {
  constexpr std::string_view plain = "\"\\nrt";
  const auto which = std::string_view("\"\\\n\r\t").find(c);
  *at++ = '\\';
  if (which != std::string_view::npos) {
    *at++ = plain[which];
    return at;
  }
  constexpr std::string_view hex = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(c);
  for (const char letter : {'u', '0', '0', hex[code >> 4U], hex[code & 15U]}) *at++ = letter;
  return at;
}

// Eight letters at once: whether one of them must be escaped. A byte is below n where taking n from
// it borrows, and n is at most 128; where one does, those above it may look as if they were.
bool anyMustBeEscaped(std::uint64_t letters) {
  constexpr std::uint64_t each = ~std::uint64_t{0} / 255;
  const auto hasBelow = [&](std::uint64_t bytes, unsigned n) {
    return (bytes - each * n) & ~bytes & (each << 7U);
  };
  return (hasBelow(letters, 0x20) | hasBelow(letters ^ each * '"', 1) |
          hasBelow(letters ^ each * '\\', 1)) != 0;
}

char* withEscapes(char* at, std::string_view text) {
  std::uint64_t letters = 0;
  while (text.size() >= sizeof letters) {
    std::memcpy(&letters, text.data(), sizeof letters);
    if (anyMustBeEscaped(letters)) break;
    std::memcpy(at, &letters, sizeof letters);
    at += sizeof letters;
    text.remove_prefix(sizeof letters);
  }
  for (const char c : text) {
    *at = c;
    at = mustBeEscaped(c) ? escape(at, c) : at + 1;
  }
  return at;
}

}  // namespace

void JsonWriter::flush() {
  sink_({block_.data(), used_});
  used_ = 0;
}

inline void JsonWriter::put(std::string_view text) {
  for (std::size_t part = 0; !text.empty(); text.remove_prefix(part)) {
    part = std::min(text.size(), block_.size());
    wrote(std::copy_n(text.data(), part, room(part)));
  }
}

void JsonWriter::open(char bracket, bool lines) {
  char* const at = element(1);
  *at = bracket;
  wrote(at + 1);
  // What stands in an array stays on the array's line.
  levels_.push_back(level_);
  level_ = {lines && level_.lines};
}

void JsonWriter::close(char bracket) {
  const Level level = std::exchange(level_, levels_.back());
  levels_.pop_back();
  char* at = room(longestNewLine());
  if (level.lines && !level.empty) at = newLine(at);
  *at++ = bracket;
  if (levels_.empty()) *at++ = '\n';
  wrote(at);
}

char* JsonWriter::newLine(char* at) const {
  *at++ = '\n';
  return std::fill_n(at, 2 * levels_.size(), ' ');
}

inline char* JsonWriter::element(std::size_t count) {
  char* at = room(longestNewLine() + count);
  if (afterKey_ || levels_.empty()) {
    afterKey_ = false;
    return at;
  }
  const bool isFirst = std::exchange(level_.empty, false);
  if (!isFirst) *at++ = ',';
  if (level_.lines)
    at = newLine(at);
  else if (!isFirst)
    *at++ = ' ';
  return at;
}

void JsonWriter::key(std::string_view name) {
  value(name);
  put(": ");
  afterKey_ = true;
}

void JsonWriter::raw(std::string_view token) {
  wrote(element(0));
  put(token);
}

void JsonWriter::value(std::string_view text) {
  char* at = element(2 + longestPart * longestEscape);
  *at++ = '"';
  for (; text.size() > longestPart; text.remove_prefix(longestPart)) {
    wrote(withEscapes(at, text.substr(0, longestPart)));
    at = room(2 + longestPart * longestEscape);
  }
  at = withEscapes(at, text);
  *at++ = '"';
  wrote(at);
}

void JsonWriter::plain(std::string_view text) {
  char* at = element(2 + text.size());
  *at++ = '"';
  at = std::copy(text.begin(), text.end(), at);
  *at++ = '"';
  wrote(at);
}

void JsonWriter::integer(long long number) {
  char* const at = element(longestNumber);
  wrote(std::to_chars(at, at + longestNumber, number).ptr);
}

void JsonWriter::value(float number) { decimal(number, singleDigits); }

void JsonWriter::value(double number) { decimal(number, doubleDigits); }

void JsonWriter::decimal(double number, int significant) {
  if (!std::isfinite(number)) return value(notFinite(number));
  char* at = element(1 + longestNumber);
  if (std::signbit(number)) *at++ = '-';
  const double magnitude = std::fabs(number);
  if (const auto rounded = roundedDecimal(magnitude, significant))
    at = write(at, *rounded, significant);
  else
    at = std::to_chars(at, at + longestNumber, magnitude, std::chars_format::general, significant)
             .ptr;
  wrote(at);
}

std::string jsonOf(const std::function<void(JsonWriter&)>& write) {
  std::string whole;
  JsonWriter json([&whole](std::string_view piece) { whole += piece; });
  write(json);
  json.finish();
  return whole;
}

}  // namespace tolmer
