#include "notebook/picture_size.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdio>
#include <optional>
#include <string_view>
#include <utility>

#include "system/opened_file.h"

namespace tolmer {
namespace {

constexpr std::string_view pngStart = "\x89PNG\r\n\x1A\n";
constexpr std::size_t pngHeaderBytes = 24;  // signature, length, "IHDR", width, height
constexpr std::size_t mostBytes = 4096;     // comments may stand before the tag of a drawing
constexpr std::string_view blanks = " \t\r\n";

std::string firstBytes(const std::string& hostFile) {
  const host::OpenedFile file = host::openToRead(hostFile);
  if (file.kind != host::FileKind::regular) return {};
  std::string bytes(mostBytes, '\0');
  bytes.resize(std::fread(bytes.data(), 1, mostBytes, file.stream.get()));
  return bytes;
}

float bigEndian(std::string_view bytes) {
  float value = 0;
  for (const char byte : bytes)
    value = value * 256 + static_cast<float>(static_cast<unsigned char>(byte));
  return value;
}

std::optional<Size> pngSize(std::string_view bytes) {
  if (!bytes.starts_with(pngStart) || bytes.size() < pngHeaderBytes) return std::nullopt;
  return Size{bigEndian(bytes.substr(16, 4)), bigEndian(bytes.substr(20, 4))};
}

// The value of an attribute within a tag.
std::optional<std::string_view> attribute(std::string_view tag, std::string_view name) {
  for (auto at = tag.find(name); at != tag.npos; at = tag.find(name, at + 1)) {
    const std::string_view rest = tag.substr(at + name.size());
    const bool isWhole = at > 0 && blanks.find(tag[at - 1]) != blanks.npos;
    if (!isWhole || rest.size() < 2 || rest[0] != '=' || (rest[1] != '"' && rest[1] != '\''))
      continue;
    const auto end = rest.find(rest[1], 2);
    if (end != rest.npos) return rest.substr(2, end - 2);
  }
  return std::nullopt;
}

// Takes a number, and the blanks or comma before it, from the front of a text.
std::optional<float> takeNumber(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n,"), text.size()));
  float value = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (fault != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return value;
}

// nullopt for shares of the page, which say nothing about the drawing.
std::optional<float> length(std::optional<std::string_view> text) {
  static constexpr std::array<std::pair<std::string_view, float>, 7> units = {{{"", 1},
                                                                               {"px", 1},
                                                                               {"pt", 96 / 72.0F},
                                                                               {"pc", 16},
                                                                               {"in", 96},
                                                                               {"cm", 96 / 2.54F},
                                                                               {"mm", 96 / 25.4F}}};
  const auto number = text ? takeNumber(*text) : std::nullopt;
  if (!number) return std::nullopt;
  for (const auto& [name, size] : units)
    if (*text == name) return *number * size;
  return std::nullopt;
}

std::optional<Size> svgSize(std::string_view bytes) {
  const auto begin = bytes.find("<svg");
  if (begin == bytes.npos) return std::nullopt;
  const std::string_view tag = bytes.substr(begin, bytes.find('>', begin) - begin);
  const auto width = length(attribute(tag, "width"));
  const auto height = length(attribute(tag, "height"));
  if (width && height) return Size{*width, *height};
  std::string_view box = attribute(tag, "viewBox").value_or("");
  std::array<std::optional<float>, 4> numbers;
  for (auto& number : numbers) number = takeNumber(box);
  if (!numbers[3]) return std::nullopt;
  return Size{*numbers[2], *numbers[3]};
}

// In pixels.
std::optional<Size> ownSize(const std::string& hostFile) {
  const std::string bytes = firstBytes(hostFile);
  const auto size = pngSize(bytes);
  return size ? size : svgSize(bytes);
}

}  // namespace

bool isPicture(const std::string& hostFile) { return ownSize(hostFile).has_value(); }

Size pictureSize(const std::string& hostFile) {
  const Size size = ownSize(hostFile).value_or(Size{320, 200});
  return {pixels(std::max(size.width, 1.0F)), pixels(std::max(size.height, 1.0F))};
}

}  // namespace tolmer
