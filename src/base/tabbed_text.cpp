#include "base/tabbed_text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>

namespace tolmer {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Digits with marks between them, a per cent sign or an exponent behind them.
bool isUnsignedNumber(std::string_view text) {
  const auto end = text.find_first_not_of("0123456789.,");
  if (text.find_first_of("0123456789") >= end) return false;
  std::string_view rest = end == text.npos ? "" : text.substr(end);
  if (rest.empty() || rest == "%") return true;
  if (rest.front() != 'E' && rest.front() != 'e') return false;
  rest.remove_prefix(1);
  if (rest.starts_with('+') || rest.starts_with('-')) rest.remove_prefix(1);
  return !rest.empty() && rest.find_first_not_of("0123456789") == rest.npos;
}

bool meansSomething(char c) {
  return isDigit(c) || std::isalpha(static_cast<unsigned char>(c)) || c == '(';
}

bool isPlainNumber(std::string_view text) {
  double number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
  return read.ec == std::errc() && read.ptr == text.data() + text.size() && std::isfinite(number);
}

// As many decimals as the number shows: "0.00" for 2.50, "0.0E+00" for 1.5e-20.
std::string numberFormat(std::string_view number) {
  const auto exponent = number.find_first_of("eE");
  const std::string_view mantissa = number.substr(0, exponent);
  const auto point = std::min(mantissa.find('.'), mantissa.size());
  const std::string decimals(mantissa.size() - point, '0');
  return "0" + (decimals.size() > 1 ? '.' + decimals.substr(1) : "") +
         (exponent == number.npos ? "" : "E+00");
}

}  // namespace

bool looksLikeFormula(std::string_view text) {
  if (text.size() < 2) return false;
  const std::string_view rest = text.substr(1);
  if (text.front() == '=' || text.front() == '@') return true;
  if (text.front() != '+' && text.front() != '-') return false;
  return !isUnsignedNumber(rest) && std::any_of(rest.begin(), rest.end(), meansSomething);
}

std::string withTextMark(std::string_view text) {
  return (looksLikeFormula(text) ? "'" : "") + std::string(text);
}

std::string_view withoutTextMark(std::string_view text) {
  const bool marked = text.starts_with('\'') && looksLikeFormula(text.substr(1));
  return marked ? text.substr(1) : text;
}

std::string tabbedCell(std::string_view text) {
  const bool needsQuotes =
      text.starts_with('"') || text.find_first_of("\t\n\r") != std::string_view::npos;
  if (!needsQuotes) return withTextMark(text);
  std::string quoted = "\"";
  for (const char c : withTextMark(text)) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

// LibreOffice takes the number and its looks from here, and that it is in the writing of the United
// States (language 1033).
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

std::string spreadsheetMark(std::string_view text, bool isFigure) {
  if (looksLikeFormula(text)) return " style=\"mso-number-format:'\\@'\" sdnum=\"1033;0;@\"";
  if (!isFigure || !isPlainNumber(text)) return {};
  return " sdval=\"" + std::string(text) + "\" sdnum=\"1033;0;" + numberFormat(text) + '"';
}

}  // namespace tolmer
