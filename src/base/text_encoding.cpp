#include "base/text_encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <utility>

namespace tolmer {
namespace {

using Byte = unsigned char;

// Bytes 0x80 to 0x9F; the others are the code points of the same number (Unicode consortium,
// mapping table CP1252.TXT).
constexpr std::array<char16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isContinuation(char c) { return (static_cast<Byte>(c) & 0xC0) == 0x80; }

// What may follow a lead byte: how many bytes, and the range of the first of them, which is where
// overlong forms, surrogates and too large code points show.
struct Lead {
  std::size_t following;
  Byte lowest, highest;
};

constexpr Lead notALead{0, 1, 0};

Lead leadOf(Byte lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return {1, 0x80, 0xBF};
  if (lead == 0xE0) return {2, 0xA0, 0xBF};
  if (lead == 0xED) return {2, 0x80, 0x9F};
  if (lead >= 0xE1 && lead <= 0xEF) return {2, 0x80, 0xBF};
  if (lead == 0xF0) return {3, 0x90, 0xBF};
  if (lead >= 0xF1 && lead <= 0xF3) return {3, 0x80, 0xBF};
  if (lead == 0xF4) return {3, 0x80, 0x8F};
  return notALead;
}

// The length of the character that begins at `start`, 0 where it is not well formed.
std::size_t characterLength(std::string_view bytes, std::size_t start) {
  const Byte first = static_cast<Byte>(bytes[start]);
  if (first < 0x80) return 1;
  const Lead lead = leadOf(first);
  if (lead.following == 0 || bytes.size() - start <= lead.following) return 0;
  const Byte second = static_cast<Byte>(bytes[start + 1]);
  if (second < lead.lowest || second > lead.highest) return 0;
  for (std::size_t i = 2; i <= lead.following; ++i)
    if (!isContinuation(bytes[start + i])) return 0;
  return lead.following + 1;
}

// A control character that is no tab or line end. U+0080 to U+009F are led by 0xC2.
bool acts(std::string_view character) {
  const Byte first = static_cast<Byte>(character[0]);
  if (character.size() == 2) return first == 0xC2 && static_cast<Byte>(character[1]) < 0xA0;
  const bool breaks = first == '\t' || first == '\r' || first == '\n';
  return first == 0x7F || (first < 0x20 && !breaks);
}

// ASCII that shows, tabs and line ends.
bool isPlain(char c) { return (c >= ' ' && c <= '~') || c == '\n' || c == '\r' || c == '\t'; }

// Eight letters that show, seen at once: the top bit of a byte tells of one from 0x80, of one that
// is less than a blank, and of 0x7F.
bool areShown(std::string_view eight) {
  std::uint64_t letters = 0;
  std::memcpy(&letters, eight.data(), sizeof letters);
  constexpr std::uint64_t ones = 0x0101010101010101;
  return ((letters | (letters - ones * ' ') | (letters + ones)) & (ones << 7U)) == 0;
}

}  // namespace

void appendCodePoint(std::string& text, char32_t code) {
  if ((code >= 0xD800 && code < 0xE000) || code > 0x10FFFF) code = 0xFFFD;
  if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += static_cast<char>(0xC0 | (code >> 6));
    text += static_cast<char>(0x80 | (code & 0x3F));
  } else {
    if (code >= 0x10000) text += static_cast<char>(0xF0 | (code >> 18));
    text += static_cast<char>(code >= 0x10000 ? 0x80 | ((code >> 12) & 0x3F) : 0xE0 | (code >> 12));
    text += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
    text += static_cast<char>(0x80 | (code & 0x3F));
  }
}

std::size_t plainLength(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    if (text.size() - at >= 8 && areShown(text.substr(at, 8)))
      at += 8;
    else if (isPlain(text[at]))
      ++at;
    else
      break;
  }
  return at;
}

bool isUtf8(std::string_view bytes) {
  for (std::size_t at = plainLength(bytes); at < bytes.size();) {
    const std::size_t length = characterLength(bytes, at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

std::string utf8FromWindows1252(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const Byte byte = static_cast<Byte>(c);
    const bool mapped = byte >= 0x80 && byte <= 0x9F;
    appendCodePoint(text, mapped ? windows1252[byte - 0x80u] : static_cast<char32_t>(byte));
  }
  return text;
}

std::string utf8FromUtf16(std::string_view bytes, bool lowByteFirst) {
  const auto unit = [&](std::size_t at) {
    const char32_t first = static_cast<Byte>(bytes[at]);
    const char32_t second = static_cast<Byte>(bytes[at + 1]);
    return lowByteFirst ? first | (second << 8) : (first << 8) | second;
  };
  std::string text;
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    char32_t code = unit(at);
    if (code >= 0xD800 && code < 0xE000) {
      const char32_t low = code < 0xDC00 && at + 3 < bytes.size() ? unit(at + 2) : 0;
      const bool isPair = low >= 0xDC00 && low < 0xE000;
      code = isPair ? 0x10000 + ((code - 0xD800) << 10) + (low - 0xDC00) : U'\uFFFD';
      if (isPair) at += 2;
    }
    appendCodePoint(text, code);
  }
  return text;
}

std::string utf8FromFile(std::string bytes) {
  for (const char* const mark : {"\xFF\xFE", "\xFE\xFF"})
    if (bytes.starts_with(mark))
      return utf8FromUtf16(std::string_view(bytes).substr(2), mark[0] == '\xFF');
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
  if (!isUtf8(bytes)) return utf8FromWindows1252(bytes);
  return bytes;
}

std::string withoutControls(std::string text) {
  const std::string_view all = text;
  std::size_t end = plainLength(all);
  for (std::size_t at = end; at < all.size();) {
    const std::size_t length = characterLength(all, at);
    const bool shows = length > 0 && !acts(all.substr(at, length));
    if (!shows) text[end++] = '?';
    for (std::size_t i = 0; shows && i < length; ++i) text[end++] = text[at + i];
    at += std::max<std::size_t>(length, 1);
  }
  text.resize(end);
  return text;
}

std::string onOneLine(std::string text) {
  std::string line;
  for (const char c : withoutControls(std::move(text))) {
    const bool breaks = c == '\r' || c == '\n' || c == '\t';
    if (!breaks)
      line += c;
    else if (!line.ends_with(' '))
      line += ' ';
  }
  return line;
}

std::size_t utf8Prefix(std::string_view text, std::size_t characters) {
  std::size_t at = 0;
  for (; characters > 0 && at < text.size(); --characters) {
    ++at;
    while (at < text.size() && isContinuation(text[at])) ++at;
  }
  return at;
}

}  // namespace tolmer
