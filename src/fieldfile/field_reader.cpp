#include "fieldfile/field_reader.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "base/file_io.h"
#include "base/paths.h"
#include "base/text_encoding.h"

namespace tolmer {
namespace {

constexpr std::string_view blanks = " \t";
constexpr std::string_view lineEnds = "\r\n";

bool isOneOf(char one, std::string_view signs) {
  for (const char sign : signs)
    if (one == sign) return true;
  return false;
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  const auto last = text.find_last_not_of(blanks);
  return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

bool equalsInAnyCase(std::string_view text, std::string_view upperCase) {
  return std::equal(
      text.begin(), text.end(), upperCase.begin(), upperCase.end(),
      [](char a, char b) { return a == b || (a >= 'a' && a <= 'z' && a - 'a' + 'A' == b); });
}

// Enough of a wrong field to know it again.
std::string quotation(std::string_view text) {
  constexpr std::size_t longest = 30;
  const std::size_t cut = utf8Prefix(text, longest);
  return "\"" + std::string(text.substr(0, cut)) + (cut < text.size() ? "...\"" : "\"");
}

// Where one of the signs stands next, or the text's end. Most fields are short: searching the signs
// by the library's functions would take several times as long.
std::size_t nextOf(std::string_view signs, std::string_view text, std::size_t at) {
  while (at < text.size() && !isOneOf(text[at], signs)) ++at;
  return at;
}

// CR LF is one. Few texts hold any, so that two searches for one sign are the fastest.
int lineEndsIn(std::string_view text) {
  int count = 0;
  for (auto i = text.find('\n'); i != text.npos; i = text.find('\n', i + 1)) ++count;
  for (auto i = text.find('\r'); i != text.npos; i = text.find('\r', i + 1))
    if (!text.substr(i + 1).starts_with('\n')) ++count;
  return count;
}

// from_chars knows no leading "+"; a second sign behind it is no number.
std::optional<std::string_view> withoutPlus(std::string_view text) {
  if (!text.starts_with('+')) return text;
  text.remove_prefix(1);
  if (text.starts_with('-') || text.starts_with('+')) return std::nullopt;
  return text;
}

bool hasOnlyNumberCharacters(std::string_view text) {
  return text.find_first_not_of("+-.0123456789eE") == std::string_view::npos;
}

// Whether a number that no double can hold is too small rather than too large.
bool isTooSmall(std::string_view text) {
  const auto exponent = text.find_first_of("eE");
  if (exponent != std::string_view::npos) return text.substr(exponent + 1).starts_with('-');
  return text.find_first_of("123456789") > text.find('.');
}

template <class Number>
std::from_chars_result convert(std::string_view text, Number& number) {
  return std::from_chars(text.data(), text.data() + text.size(), number);
}

// The number of up to fifteen digits with an optional minus sign and point, as most texts are. Both
// the digits and the power of ten are exact as doubles, so the quotient is the text's number
// rounded once. Nothing for any other text.
std::optional<double> plainDecimal(std::string_view text) {
  static constexpr std::array<double, 16> tenfold = {1,   1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                     1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
  const bool negative = text.starts_with('-');
  if (negative) text.remove_prefix(1);
  std::int64_t digits = 0;
  std::size_t places = 0;
  bool point = false;
  if (text.size() > tenfold.size()) return std::nullopt;
  for (const char c : text) {
    const auto digit = static_cast<unsigned char>(c - '0');
    if (digit > 9 && (c != '.' || point)) return std::nullopt;
    if (digit > 9) {
      point = true;
    } else {
      digits = 10 * digits + digit;
      if (point) ++places;
    }
  }
  const std::size_t count = text.size() - (point ? 1 : 0);
  if (count == 0 || count == tenfold.size()) return std::nullopt;
  const double number = static_cast<double>(digits) / tenfold[places];
  return negative ? -number : number;
}

// Whether a double that is a text's number rounded once may not be rounded on to single: it lies
// halfway between two, and the text's number beside it.
bool isHalfway(double number) {
  constexpr std::uint64_t belowSingle = (std::uint64_t{1} << 29) - 1;  // bits that a single lacks
  return (std::bit_cast<std::uint64_t>(number) & belowSingle) == (belowSingle + 1) / 2;
}

}  // namespace

Result<FieldReader> FieldReader::open(const std::string& fileName) {
  auto bytes = readWholeFile(hostPath(fileName));
  if (!bytes) return Error{fileName, bytes.error().text};
  return FieldReader(fileName, std::move(*bytes));
}

FieldReader::FieldReader(std::string fileName, std::string bytes, FieldMarks marks)
    : fileName_(std::move(fileName)),
      text_(utf8FromFile(std::move(bytes))),
      marks_(marks),
      blanks_(marks.separator == '\t' ? " " : blanks),
      fieldEnds_(marks.separator + std::string(lineEnds)),
      numberEnds_(fieldEnds_ + blanks_) {}

Error FieldReader::errorAt(FieldPlace place, std::string_view text) const {
  return {fileName_ + ":" + std::to_string(place.line),
          "field " + std::to_string(place.field) + ": " + std::string(text)};
}

Error FieldReader::errorFound(std::string_view expected, std::string_view found) const {
  return errorHere(std::string(expected) + " was expected, not " + quotation(found));
}

void FieldReader::skipBlanks() {
  while (!atEnd() && isOneOf(text_[at_], blanks_)) ++at_;
}

void FieldReader::skipLineEnd() {
  if (atEnd() || !isOneOf(text_[at_], lineEnds)) return;
  at_ += std::string_view(text_).substr(at_).starts_with("\r\n") ? 2 : 1;
  ++place_.line;
}

// Goes on behind a field that ends at `end`: the blanks behind it and one delimiter belong to it.
void FieldReader::finishField(std::size_t end) {
  at_ = end;
  skipBlanks();
  if (!atEnd() && text_[at_] == marks_.separator)
    ++at_;
  else
    skipLineEnd();
  ++place_.field;
}

std::size_t FieldReader::bareEnd() const { return nextOf(fieldEnds_, text_, at_); }

Result<std::string> FieldReader::readText() {
  skipBlanks();
  if (atEnd()) return errorHere("a text was expected, but the file ends here");
  if (text_[at_] == '"') return readQuoted();
  const std::size_t end = bareEnd();
  std::string text(withoutTrailingBlanks(std::string_view(text_).substr(at_, end - at_)));
  finishField(end);
  return text;
}

Result<std::string> FieldReader::readQuoted() {
  const std::size_t start = at_ + 1;
  const std::size_t end = text_.find('"', start);
  if (end == std::string::npos) return errorHere("the closing quote of a text is missing");
  std::size_t next = end + 1;
  while (next < text_.size() && isOneOf(text_[next], blanks_)) ++next;
  const bool isDivided = marks_.separator == ' ' && next > end + 1;
  if (next < text_.size() && !isDivided && !isOneOf(text_[next], fieldEnds_))
    return errorHere("a text goes on behind its closing quote");
  std::string text = text_.substr(start, end - start);
  place_.line += lineEndsIn(text);
  finishField(end + 1);
  return text;
}

// The text of the number that comes next, empty for an empty field. The field is not taken yet.
Result<std::string_view> FieldReader::numberAhead(std::string_view expected) {
  skipBlanks();
  if (atEnd()) return errorHere(std::string(expected) + " was expected, but the file ends here");
  return std::string_view(text_).substr(at_, nextOf(numberEnds_, text_, at_) - at_);
}

Result<std::int16_t> FieldReader::readInteger() {
  constexpr std::string_view expected = "a whole number from -32768 to 32767";
  const auto digits = numberAhead(expected);
  if (!digits) return digits.error();
  const auto number = digits->empty() ? std::int16_t{0} : integerFromText(*digits);
  if (!number) return errorFound(expected, *digits);
  finishField(at_ + digits->size());
  return *number;
}

Result<TextNumber> FieldReader::readNumber() {
  constexpr std::string_view expected = "a number";
  const auto digits = numberAhead(expected);
  if (!digits) return digits.error();
  const auto number = digits->empty() ? TextNumber() : numberOf(*digits);
  if (!number) return errorFound(expected, *digits);
  finishField(at_ + digits->size());
  return *number;
}

Result<float> FieldReader::readSingle() {
  const auto number = readNumber();
  if (!number) return number.error();
  return number->held;
}

// With a decimal comma a point divides nothing that could be read.
std::optional<TextNumber> FieldReader::numberOf(std::string_view digits) const {
  if (marks_.decimal == '.') return textNumberOf(digits);
  std::string plain(digits);
  if (plain.find('.') != plain.npos) return std::nullopt;
  std::replace(plain.begin(), plain.end(), marks_.decimal, '.');
  return textNumberOf(plain);
}

bool FieldReader::nextIsEmpty() {
  const auto ahead = numberAhead("");
  return ahead && ahead->empty();
}

Result<bool> FieldReader::readBoolean() {
  constexpr std::string_view expected = "#TRUE# or #FALSE#";
  const auto word = numberAhead(expected);
  if (!word) return word.error();
  const bool isTrue = equalsInAnyCase(*word, "#TRUE#");
  const bool isWord = isTrue || equalsInAnyCase(*word, "#FALSE#");
  const auto number = isWord || word->empty() ? 0.0f : singleFromText(*word);
  if (!number) return errorFound(expected, *word);
  finishField(at_ + word->size());
  return isTrue || *number != 0;
}

Result<std::string> FieldReader::readLine() {
  if (atEnd()) return errorHere("a line was expected, but the file ends here");
  const std::size_t end = std::min(text_.find_first_of(lineEnds, at_), text_.size());
  std::string line = text_.substr(at_, end - at_);
  at_ = end;
  skipLineEnd();
  ++place_.field;
  return line;
}

bool FieldReader::onlyBlanksLeft() const {
  return text_.find_first_not_of(" \t\r\n", at_) == std::string::npos;
}

std::optional<std::int16_t> integerFromText(std::string_view text) {
  const auto digits = withoutPlus(text);
  if (!digits) return std::nullopt;
  std::int16_t number = 0;
  const auto [end, failed] = convert(*digits, number);
  if (failed != std::errc() || end != digits->data() + digits->size()) return std::nullopt;
  return number;
}

std::optional<TextNumber> textNumberOf(std::string_view text) {
  if (const auto plain = plainDecimal(text); plain && !isHalfway(*plain))
    return TextNumber{*plain, static_cast<float>(*plain)};
  const auto digits = withoutPlus(text);
  if (!digits || !hasOnlyNumberCharacters(*digits)) return std::nullopt;
  TextNumber number;
  const auto [end, failed] = convert(*digits, number.held);
  if (failed == std::errc::invalid_argument || end != digits->data() + digits->size())
    return std::nullopt;
  const bool wideHolds = convert(*digits, number.written).ec == std::errc();
  if (failed == std::errc())
    return std::isfinite(number.held) ? std::optional(number) : std::nullopt;
  const bool tooSmall = wideHolds ? std::fabs(number.written) < 1 : isTooSmall(*digits);
  if (!tooSmall) return std::nullopt;
  const float zero = digits->starts_with('-') ? -0.0F : 0.0F;
  return wideHolds ? TextNumber{number.written, 0} : TextNumber{zero, zero};
}

TextNumber textNumberOf(double number, std::string_view text) {
  const bool isTiny = std::fabs(number) < std::numeric_limits<float>::min() && number != 0;
  const auto read = isTiny || isHalfway(number) ? textNumberOf(text) : std::nullopt;
  return read && read->written == number ? *read : TextNumber{number, static_cast<float>(number)};
}

std::optional<float> singleFromText(std::string_view text) {
  const auto number = textNumberOf(text);
  return number ? std::optional(number->held) : std::nullopt;
}

}  // namespace tolmer
