#include "editor/table_from_text.h"

#include <utility>

#include "editor/import_dialog.h"

namespace tolmer {
namespace {

std::nullopt_t refused(Desktop& desktop, const char* title, const Error& error) {
  desktop.messageBox({.title = title, .text = error.message(), .icon = MessageIcon::exclamation});
  return std::nullopt;
}

LandingTable landing(ImportedTable imported) {
  return {{imported.firstRow, imported.firstColumn},
          {.cells = std::move(imported.cells), .headings = std::move(imported.headings)}};
}

}  // namespace

std::optional<LandingTable> tableFromText(Desktop& desktop, const std::string& text,
                                          const ImportTarget& target, const SheetContent& into,
                                          const std::string& source) {
  const auto import = TextImport::read(text, target);
  if (!import)
    return refused(desktop, target.origin == TextOrigin::file ? "Bad File" : "Paste",
                   import.error());
  const auto preview = import->preview({});
  if (!preview) return refused(desktop, "Text Data", preview.error());
  if (!preview->isClear() || !preview->notes.empty()) {
    auto asked = frmTextImport(desktop, *import, into, source).ask();
    return asked ? std::optional(landing(std::move(*asked))) : std::nullopt;
  }
  auto table = import->apply({});
  if (!table) return refused(desktop, "Text Data", table.error());
  return landing(std::move(*table));
}

}  // namespace tolmer
