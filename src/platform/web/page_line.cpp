#include "platform/web/page_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace tolmer {
namespace {

constexpr std::string_view letters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

constexpr auto values = [] {
  std::array<std::int8_t, 256> table{};
  table.fill(-1);
  for (std::size_t i = 0; i < letters.size(); ++i)
    table[static_cast<unsigned char>(letters[i])] = static_cast<std::int8_t>(i);
  return table;
}();

template <class Number>
Number numberIn(const std::string& text) {
  Number number{};
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

PageMessage::PageMessage(std::string_view text) {
  for (;;) {
    const auto end = text.find('\x1f');
    fields_.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + 1);
  }
}

const std::string& PageMessage::text(std::size_t index) const {
  static const std::string none;
  return index < size() ? fields_[index + 1] : none;
}

int PageMessage::whole(std::size_t index) const { return numberIn<int>(text(index)); }

float PageMessage::number(std::size_t index) const { return numberIn<float>(text(index)); }

std::size_t PageMessage::count(std::size_t index) const {
  return static_cast<std::size_t>(std::max(whole(index), 0));
}

std::string toBase64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (; !bytes.empty(); bytes.remove_prefix(std::min<std::size_t>(bytes.size(), 3))) {
    std::uint32_t three = 0;
    for (std::size_t i = 0; i < 3; ++i)
      three = three << 8U | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
    for (std::size_t i = 0; i < 4; ++i)
      text += i <= bytes.size() ? letters[three >> (18 - 6 * i) & 63U] : '=';
  }
  return text;
}

std::optional<std::string> fromBase64(std::string_view text) {
  if (text.size() % 4 != 0) return std::nullopt;
  for (int i = 0; i < 2 && text.ends_with('='); ++i) text.remove_suffix(1);
  std::string bytes;
  bytes.reserve(text.size() / 4 * 3 + 2);
  std::uint32_t held = 0;
  unsigned bits = 0;
  for (const char letter : text) {
    const int value = values[static_cast<unsigned char>(letter)];
    if (value < 0) return std::nullopt;
    held = held << 6U | static_cast<std::uint32_t>(value);
    bits += 6;
    if (bits < 8) continue;
    bits -= 8;
    bytes += static_cast<char>(held >> bits & 255U);
  }
  return bytes;
}

}  // namespace tolmer
