// A student's way from foreign text to a table for the sheet.
#pragma once

#include <optional>
#include <string>

#include "editor/sheet_paste.h"
#include "editor/text_import.h"
#include "platform/desktop.h"

namespace tolmer {

// A table and the cell where its upper left one lands.
struct LandingTable {
  CellAddress first;
  PasteTable table;
};

// Reads the text, asks what is doubtful in it and shows what was taken for granted, or says why it
// is refused. nullopt where it was refused or called off. `into` is the sheet as it stands before,
// `source` says where the text is from.
std::optional<LandingTable> tableFromText(Desktop& desktop, const std::string& text,
                                          const ImportTarget& target, const SheetContent& into,
                                          const std::string& source);

}  // namespace tolmer
