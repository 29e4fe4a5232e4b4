// One cell of an editor's file, and what it is made of.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "sheet/sheet_content.h"

namespace tolmer {

// Appends the cell. `above` is the cell over it, which a packed formula may refer to.
void appendCell(std::string& out, const DataCell& cell, const DataCell& above, bool packed);

// nullopt for anything that appendCell does not write.
std::optional<DataCell> cellFromText(std::string_view text, const DataCell& above);

// A text with tab, line ends and backslash escaped, and back.
void appendEscaped(std::string& out, std::string_view text);
std::optional<std::string> unescaped(std::string_view text);

// The formula as it stands one row further down: every run of digits behind a letter is one higher.
// Whether that is what the user sees as a copy is not judged here: packing asks for equality.
std::string oneRowDown(std::string_view formula);

}  // namespace tolmer
