#include "formula/sheet_names.h"

#include <algorithm>
#include <utility>

#include "base/trimmed.h"

namespace tolmer {
namespace {

using Byte = unsigned char;

// A two-byte character of UTF-8 as its small letter (The Unicode Standard, UnicodeData.txt: the
// blocks Latin-1 Supplement, Greek and Cyrillic, where small letters lie at a fixed distance).
unsigned smallLetter(unsigned code) {
  if (code >= 0xC0 && code <= 0xDE && code != 0xD7) return code + 0x20;
  if (code >= 0x391 && code <= 0x3A9 && code != 0x3A2) return code + 0x20;
  if (code >= 0x410 && code <= 0x42F) return code + 0x20;
  if (code >= 0x400 && code <= 0x40F) return code + 0x50;
  return code;
}

}  // namespace

std::string columnLetters(int column) {
  std::string letters;
  for (int rest = column + 1; rest > 0; rest = (rest - 1) / 26)
    letters += static_cast<char>('A' + (rest - 1) % 26);
  std::reverse(letters.begin(), letters.end());
  return letters;
}

std::optional<int> columnOfLetters(std::string_view letters) {
  if (letters.empty() || letters.size() > 4) return std::nullopt;
  int column = 0;
  for (const char c : letters) {
    const int place = (c >= 'a' ? c - 'a' : c - 'A') + 1;
    if (place < 1 || place > 26) return std::nullopt;
    column = column * 26 + place;
  }
  return column - 1;
}

std::string foldedName(std::string_view name) {
  const std::string_view text = trimmed(name);
  std::string folded;
  folded.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Byte lead = static_cast<Byte>(text[i]);
    if (lead >= 'A' && lead <= 'Z') {
      folded += static_cast<char>(lead + ('a' - 'A'));
    } else if (lead >= 0xC2 && lead <= 0xDF && i + 1 < text.size()) {
      const unsigned code = (lead & 0x1FU) << 6 | (static_cast<Byte>(text[++i]) & 0x3FU);
      const unsigned letter = smallLetter(code);
      folded += static_cast<char>(0xC0 | letter >> 6);
      folded += static_cast<char>(0x80 | (letter & 0x3F));
    } else {
      folded += text[i];
    }
  }
  return folded;
}

SheetNames::SheetNames(SheetSize size, std::vector<std::string> headings)
    : size_(size), headings_(std::move(headings)) {
  headings_.resize(static_cast<std::size_t>(size_.variables) + 1);
  for (int column = 0; column <= size_.variables; ++column) {
    std::string name = foldedName(headings_[column]);
    if (name.empty()) continue;
    const auto [place, isNew] = columns_.try_emplace(std::move(name), Lookup{Found::one, column});
    if (!isNew) place->second.found = Found::several;
  }
}

SheetNames::Lookup SheetNames::lookUp(std::string_view name) const {
  const auto place = columns_.find(foldedName(name));
  return place == columns_.end() ? Lookup{} : place->second;
}

SheetNames SheetNames::renamed(int column, const std::string& heading) const {
  std::vector<std::string> headings = headings_;
  if (column >= 0 && column <= size_.variables) headings[column] = heading;
  return SheetNames(size_, std::move(headings));
}

}  // namespace tolmer
