#include "bookcompiler/entry_modifiers.h"

#include <array>
#include <utility>

#include "fieldfile/number_text.h"

namespace tolmer {
namespace {

// The member that a style word sets; null for any other word.
bool* styleOf(std::string_view word, std::string_view styles, Modifiers& modifiers) {
  if (styles.find(word) == std::string_view::npos) return nullptr;
  if (word == "indent") return &modifiers.bIndent;
  if (word == "bold") return &modifiers.bold;
  if (word == "open") return &modifiers.open;
  return nullptr;
}

bool isValue(std::string_view word, ModifierValue takes) {
  if (takes == ModifierValue::number) return integerFromText(word).has_value();
  return takes == ModifierValue::pageReference && pageReferenceFromText(word).has_value();
}

}  // namespace

Modifiers parseModifiers(const SourceEntry& entry, std::string_view styles, ModifierValue takes,
                         Complaints& complaints) {
  Modifiers modifiers;
  for (const std::string& word : entry.modifiers) {
    if (bool* style = styleOf(word, styles, modifiers))
      *style = true;
    else if (isValue(word, takes) && modifiers.value.empty())
      modifiers.value = word;
    else
      complaints.error(entry.line,
                       "\"" + word + "\" has no meaning behind \"" + entry.keyword + "\"");
  }
  modifiers.number = integerFromText(modifiers.value).value_or(Int16{0});
  return modifiers;
}

std::optional<PageReference> pageReferenceFromText(std::string_view text) {
  const auto dot = text.find('.');
  if (dot == std::string_view::npos) return std::nullopt;
  const auto section = integerFromText(text.substr(0, dot));
  const auto page = integerFromText(text.substr(dot + 1));
  if (!section || !page) return std::nullopt;
  return PageReference{*section, *page};
}

std::optional<Int16> pageTypeFromText(std::string_view text) {
  static constexpr std::array<std::pair<std::string_view, Int16>, 4> names = {
      {{"plain", PageType::plain},
       {"picture", PageType::picture},
       {"scenario", PageType::scenario},
       {"database", PageType::database}}};
  for (const auto& [name, type] : names)
    if (text == name) return type;
  return integerFromText(text);
}

}  // namespace tolmer
