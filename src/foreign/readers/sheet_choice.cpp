#include "foreign/readers/sheet_choice.h"

#include <algorithm>
#include <charconv>

namespace tolmer {
namespace {

Error noSuchSheet(const std::vector<SheetInfo>& sheets, const std::string& wish) {
  std::string names;
  for (const SheetInfo& sheet : sheets)
    names += (names.empty() ? "" : ", ") + ("\"" + sheet.name + "\"");
  return {"", "there is no sheet \"" + wish + "\"; the sheets are " + names};
}

std::optional<std::size_t> firstWithCells(const std::vector<SheetInfo>& sheets, bool hidden) {
  const auto found = std::find_if(sheets.begin(), sheets.end(), [hidden](const SheetInfo& sheet) {
    return sheet.hasCells && sheet.hidden == hidden;
  });
  if (found == sheets.end()) return std::nullopt;
  return static_cast<std::size_t>(found - sheets.begin());
}

}  // namespace

Result<std::size_t> chosenSheet(const std::vector<SheetInfo>& sheets, const std::string& wish) {
  if (wish.empty()) {
    auto found = firstWithCells(sheets, false);
    if (!found) found = firstWithCells(sheets, true);
    if (!found) return Error{"", "there are no cells with content in it"};
    return *found;
  }
  const auto named = std::find_if(sheets.begin(), sheets.end(),
                                  [&wish](const SheetInfo& sheet) { return sheet.name == wish; });
  if (named != sheets.end()) return static_cast<std::size_t>(named - sheets.begin());
  std::size_t number = 0;
  const char* end = wish.data() + wish.size();
  const auto read = std::from_chars(wish.data(), end, number);
  if (read.ec == std::errc() && read.ptr == end && number >= 1 && number <= sheets.size())
    return number - 1;
  return noSuchSheet(sheets, wish);
}

}  // namespace tolmer
