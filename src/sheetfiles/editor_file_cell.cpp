#include "sheetfiles/editor_file_cell.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <system_error>

namespace tolmer {
namespace {

constexpr std::size_t longestReadable = 12;
constexpr std::size_t packedLetters = 11;  // 64 bits, 6 a letter
constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

void appendPacked(std::string& out, double number) {
  auto bits = std::bit_cast<std::uint64_t>(number);
  out += '~';
  for (std::size_t i = 0; i < packedLetters; ++i, bits >>= 6) out += alphabet[bits & 63];
}

void appendNumber(std::string& out, double number, bool packed) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  const auto length = static_cast<std::size_t>(end - digits.data());
  if (!std::isfinite(number) || (packed && length > longestReadable))
    appendPacked(out, number);
  else
    out.append(digits.data(), length);
}

std::optional<double> packedNumber(std::string_view letters) {
  if (letters.size() != packedLetters) return std::nullopt;
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < packedLetters; ++i) {
    const auto value = alphabet.find(letters[i]);
    if (value == alphabet.npos || (i == packedLetters - 1 && value > 15)) return std::nullopt;
    bits |= static_cast<std::uint64_t>(value) << (6 * i);
  }
  return std::bit_cast<double>(bits);
}

template <class Number>
std::optional<Number> wholeNumber(std::string_view text) {
  Number number{};
  const auto [end, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failed != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<double> numberFromText(std::string_view text) {
  if (text.starts_with('~')) return packedNumber(text.substr(1));
  const auto number = wholeNumber<double>(text);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

// The result of a formula and its seed, either left out where it is 0.
void appendResult(std::string& out, const DataCell& cell, bool packed) {
  if (cell.number != 0 || std::signbit(cell.number)) appendNumber(out, cell.number, packed);
  if (cell.seed == 0) return;
  out += '#';
  out += std::to_string(cell.seed);
}

bool takeResult(DataCell& cell, std::string_view text) {
  const auto mark = text.find('#');
  const auto digits = text.substr(0, mark);
  const auto number = digits.empty() ? std::optional(0.0) : numberFromText(digits);
  if (!number) return false;
  cell.number = *number;
  if (mark == text.npos) return true;
  const auto seed = wholeNumber<std::uint32_t>(text.substr(mark + 1));
  cell.seed = seed.value_or(0);
  return seed.has_value();
}

bool followsAbove(const DataCell& cell, const DataCell& above) {
  return above.kind == DataCell::Kind::formula && cell.text == oneRowDown(above.text);
}

std::optional<DataCell> formulaFromText(std::string_view text, const DataCell& above) {
  DataCell cell{.kind = DataCell::Kind::formula};
  const auto source = text.find('=', 1);
  const bool copied = text.front() == '^';
  if (copied ? above.kind != DataCell::Kind::formula : source == text.npos) return std::nullopt;
  if (!takeResult(cell, text.substr(1, copied ? text.npos : source - 1))) return std::nullopt;
  auto written = copied ? oneRowDown(above.text) : unescaped(text.substr(source));
  if (!written) return std::nullopt;
  cell.text = std::move(*written);
  return cell;
}

}  // namespace

void appendEscaped(std::string& out, std::string_view text) {
  for (const char c : text) {
    const auto special = std::string_view("\t\n\r\\").find(c);
    if (special != std::string_view::npos) out += '\\';
    out += special == std::string_view::npos ? c : std::string_view("tnr\\")[special];
  }
}

std::optional<std::string> unescaped(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      plain += text[i];
      continue;
    }
    if (++i == text.size()) return std::nullopt;
    const auto special = std::string_view("tnr\\").find(text[i]);
    if (special == std::string_view::npos) return std::nullopt;
    plain += std::string_view("\t\n\r\\")[special];
  }
  return plain;
}

std::string oneRowDown(std::string_view formula) {
  std::string moved;
  for (std::size_t i = 0; i < formula.size();) {
    std::size_t end = i;
    while (end < formula.size() && isDigit(formula[end])) ++end;
    const bool isRow = end > i && end - i <= 4 && i > 0 && isLetter(formula[i - 1]);
    const auto row = isRow ? wholeNumber<int>(formula.substr(i, end - i)) : std::nullopt;
    if (row)
      moved += std::to_string(*row + 1);
    else
      moved += end > i ? formula.substr(i, end - i) : formula.substr(i, 1);
    i = end > i ? end : i + 1;
  }
  return moved;
}

void appendCell(std::string& out, const DataCell& cell, const DataCell& above, bool packed) {
  switch (cell.kind) {
    case DataCell::Kind::empty:
      return;
    case DataCell::Kind::number:
      return appendNumber(out, cell.number, packed);
    case DataCell::Kind::text:
      out += '"';
      return appendEscaped(out, cell.text);
    case DataCell::Kind::formula:
      break;
  }
  const bool copied = packed && followsAbove(cell, above);
  out += copied ? '^' : '=';
  appendResult(out, cell, packed);
  if (!copied) appendEscaped(out, cell.text);
}

std::optional<DataCell> cellFromText(std::string_view text, const DataCell& above) {
  DataCell cell;
  if (text.empty()) return cell;
  if (text.front() == '=' || text.front() == '^') return formulaFromText(text, above);
  if (text.front() == '"') {
    auto plain = unescaped(text.substr(1));
    if (!plain) return std::nullopt;
    cell.kind = DataCell::Kind::text;
    cell.text = std::move(*plain);
    return cell;
  }
  const auto number = numberFromText(text);
  if (!number) return std::nullopt;
  cell.kind = DataCell::Kind::number;
  cell.number = *number;
  return cell;
}

}  // namespace tolmer
