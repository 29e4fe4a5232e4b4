// The words between a keyword and its colon.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "bookcompiler/complaints.h"
#include "bookcompiler/source_lines.h"
#include "notebook/book.h"

namespace tolmer {

// Style words, and at most one value.
struct Modifiers {
  bool bIndent = false;
  bool bold = false;
  bool open = false;
  std::string value;  // a number or a page reference as it was written; empty for none
  Int16 number = 0;   // the value, where it is a whole number

  Int16 emphasis() const { return bold ? EmphasisStyle::bold : EmphasisStyle::plain; }
};

// What a keyword takes.
enum class ModifierValue { none, number, pageReference };

// `styles` names the style words that the keyword takes. Complains of every other word.
Modifiers parseModifiers(const SourceEntry& entry, std::string_view styles, ModifierValue takes,
                         Complaints& complaints);

struct PageReference {
  Int16 iSection = 0;  // 0: the same section
  Int16 iPage = 0;
};

// "3.2"; nullopt for anything else.
std::optional<PageReference> pageReferenceFromText(std::string_view text);

// "plain", "picture", "scenario", "database" or the number of a type.
std::optional<Int16> pageTypeFromText(std::string_view text);

}  // namespace tolmer
