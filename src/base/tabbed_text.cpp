#include "base/tabbed_text.h"

#include <algorithm>
#include <cctype>

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

}  // namespace tolmer
