#include "base/json_writer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

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

// Ten to the power of 0 to 19.
constexpr auto tenfold = [] {
  std::array<std::uint64_t, 20> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

// The number is `digits` with the point behind the first one, times ten to the power of exponent.
struct Decimal {
  std::uint64_t digits;
  int exponent;
};

// A number that is neither small nor large, rounded to so many digits as std::to_chars rounds it,
// but in a tenth of the time: scaled to a whole number of that many digits it has 117 bits at most.
// Nothing for numbers below 1/128, from 2 to the 52nd, or with more digits left of the point.
std::optional<Decimal> middlingDecimal(double number, int significant) {
  constexpr int fraction = 52;
  const auto bits = std::bit_cast<std::uint64_t>(number);
  const int binary = static_cast<int>(bits >> fraction) - 1023;
  if (binary < -7 || binary >= fraction) return std::nullopt;
  constexpr std::uint64_t leading = std::uint64_t{1} << fraction;
  const unsigned __int128 mantissa = leading | (bits & (leading - 1));
  const int shift = fraction - binary;
  const std::uint64_t bound = tenfold[static_cast<std::size_t>(significant)];
  // By the logarithm of 2; the number's own is this one or the next.
  for (int exponent = binary * 1233 >> 12; exponent < significant; ++exponent) {
    const auto product = mantissa * tenfold[static_cast<std::size_t>(significant - 1 - exponent)];
    auto digits = static_cast<std::uint64_t>(product >> shift);
    if (digits >= bound) continue;
    const auto rest = product - (static_cast<unsigned __int128>(digits) << shift);
    const auto half = static_cast<unsigned __int128>(1) << (shift - 1);
    if (rest > half || (rest == half && digits % 2 == 1)) ++digits;
    if (digits < bound) return Decimal{digits, exponent};
  }
  return std::nullopt;
}

// Without zeros behind the last decimal. Copies more than it writes, since a copy of known length
// costs next to nothing: behind the end there is room for it.
char* write(char* at, Decimal decimal, int significant) {
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
  if (const auto middling = middlingDecimal(magnitude, significant))
    at = write(at, *middling, significant);
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
