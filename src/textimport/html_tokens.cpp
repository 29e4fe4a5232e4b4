#include "textimport/html_tokens.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "base/text_encoding.h"

namespace tolmer {
namespace {

constexpr std::string_view blanks = " \t\r\n\f";

char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool isLetter(char c) { return lowered(c) >= 'a' && lowered(c) <= 'z'; }

bool equalInAnyCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return lowered(x) == lowered(y); });
}

std::string lower(std::string_view text) {
  std::string small(text);
  std::transform(small.begin(), small.end(), small.begin(), lowered);
  return small;
}

void skipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
}

std::string_view takeUntil(std::string_view& text, std::string_view marks) {
  const auto part = text.substr(0, text.find_first_of(marks));
  text.remove_prefix(part.size());
  return part;
}

// Behind the "=" of an attribute.
std::string_view takeValue(std::string_view& rest) {
  skipBlanks(rest);
  if (!rest.starts_with('"') && !rest.starts_with('\'')) return takeUntil(rest, " \t\r\n\f>");
  const char quote = rest.front();
  rest.remove_prefix(1);
  const auto value = takeUntil(rest, std::string_view(&quote, 1));
  rest.remove_prefix(std::min<std::size_t>(1, rest.size()));
  return value;
}

struct Named {
  std::string_view name;
  char32_t code;
};
// Those that stand in tables of numbers; any other stays as it is written.
constexpr std::array<Named, 16> references{{{"amp", '&'},
                                            {"lt", '<'},
                                            {"gt", '>'},
                                            {"quot", '"'},
                                            {"apos", '\''},
                                            {"nbsp", ' '},
                                            {"ensp", ' '},
                                            {"emsp", ' '},
                                            {"thinsp", ' '},
                                            {"minus", 0x2212},
                                            {"ndash", 0x2013},
                                            {"mdash", 0x2014},
                                            {"rsquo", 0x2019},
                                            {"euro", 0x20AC},
                                            {"pound", 0xA3},
                                            {"deg", 0xB0}}};

std::optional<char32_t> codeOf(std::string_view reference) {
  if (!reference.starts_with('#')) {
    const auto found = std::find_if(references.begin(), references.end(),
                                    [&](const Named& known) { return known.name == reference; });
    return found == references.end() ? std::nullopt : std::optional(found->code);
  }
  reference.remove_prefix(1);
  const bool isHex = reference.starts_with('x') || reference.starts_with('X');
  if (isHex) reference.remove_prefix(1);
  unsigned code = 0;
  const auto [end, failed] =
      std::from_chars(reference.data(), reference.data() + reference.size(), code, isHex ? 16 : 10);
  if (failed != std::errc() || end != reference.data() + reference.size()) return std::nullopt;
  return code < 0x20 || code == 0xA0 ? U' ' : static_cast<char32_t>(code);
}

constexpr std::string_view fixedBlank = "\xC2\xA0";

}  // namespace

std::optional<std::string_view> HtmlToken::attribute(std::string_view wanted) const {
  std::string_view rest = attributes;
  while (true) {
    rest.remove_prefix(std::min(rest.find_first_not_of(" \t\r\n\f/"), rest.size()));
    if (rest.empty()) return std::nullopt;
    const auto found = takeUntil(rest, " \t\r\n\f=/");
    skipBlanks(rest);
    std::string_view value;
    if (rest.starts_with('=')) {
      rest.remove_prefix(1);
      value = takeValue(rest);
    }
    if (equalInAnyCase(found, wanted)) return value;
  }
}

bool HtmlToken::isHidden() const {
  if (attributes.empty()) return false;
  if (attribute("hidden")) return true;
  std::string style = lower(attribute("style").value_or(""));
  std::erase_if(style, [](char c) { return blanks.find(c) != blanks.npos; });
  return style.find("display:none") != style.npos || style.find("visibility:hidden") != style.npos;
}

// "<" begins a tag where a letter, "/" and a letter, "!" or "?" follow.
std::optional<HtmlToken> HtmlTokens::tag() {
  std::string_view rest = rest_.substr(1);
  const bool ends = rest.starts_with('/');
  if (ends) rest.remove_prefix(1);
  if (rest.empty() || !isLetter(rest.front())) return std::nullopt;
  HtmlToken token{ends ? HtmlToken::Kind::end : HtmlToken::Kind::start,
                  lower(takeUntil(rest, " \t\r\n\f/>")), rest};
  while (!rest.empty() && rest.front() != '>') {
    const char c = rest.front();
    rest.remove_prefix(1);
    if (c == '=') takeValue(rest);  // which may hold a ">"
  }
  token.attributes = token.attributes.substr(0, token.attributes.size() - rest.size());
  rest.remove_prefix(std::min<std::size_t>(1, rest.size()));
  rest_ = rest;
  return token;
}

std::optional<HtmlToken> HtmlTokens::next() {
  while (!rest_.empty()) {
    if (rest_.starts_with("<!--")) {
      rest_.remove_prefix(std::min(rest_.find("-->", 4), rest_.size() - 3) + 3);
      continue;
    }
    if (rest_.starts_with("<!") || rest_.starts_with("<?")) {
      rest_.remove_prefix(std::min(rest_.find('>'), rest_.size() - 1) + 1);
      continue;
    }
    if (rest_.front() == '<')
      if (auto found = tag()) return found;
    const auto length = std::min(rest_.find('<', 1), rest_.size());
    const HtmlToken text{HtmlToken::Kind::text, {}, rest_.substr(0, length)};
    rest_.remove_prefix(length);
    return text;
  }
  return std::nullopt;
}

bool HtmlTokens::skip(const HtmlToken& element) {
  const std::string_view before = rest_;
  for (int depth = 1; depth > 0;) {
    const auto token = next();
    if (!token) {
      rest_ = before;
      return false;
    }
    if (token->name == element.name) depth += token->kind == HtmlToken::Kind::start ? 1 : -1;
  }
  return true;
}

std::string htmlText(std::string_view written) {
  std::string text;
  while (!written.empty()) {
    if (written.starts_with(fixedBlank)) {
      text += ' ';
      written.remove_prefix(fixedBlank.size());
      continue;
    }
    constexpr std::size_t longest = 10;
    const auto end = written.front() == '&' ? written.substr(0, longest).find(';') : written.npos;
    const auto code = end == written.npos ? std::nullopt : codeOf(written.substr(1, end - 1));
    if (code)
      appendCodePoint(text, *code);
    else
      text += written.front();
    written.remove_prefix(code ? end + 1 : 1);
  }
  return text;
}

}  // namespace tolmer
