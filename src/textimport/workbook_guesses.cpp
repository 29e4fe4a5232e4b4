// What is found in a table that came cut from another program's file, beside what any text shows.
#include <algorithm>
#include <array>

#include "textimport/import_guesses.h"

namespace tolmer {

// Hidden sheets are there to be chosen, and chosen by nobody else.
void ImportFindings::askSheet() {
  const auto order = sheetsToRead(*book_);
  if (order.size() < 2) return;
  std::vector<std::string> names;
  int visible = 0;
  for (const std::size_t sheet : order) {
    const auto& [name, hidden, hasCells] = book_->sheets[sheet];
    names.push_back(hidden ? name + " (hidden)" : name);
    if (!hidden) ++visible;
  }
  ask(ImportDoubt::sheet, "Which sheet is it?", std::move(names),
      visible == 1 ? std::optional(0) : std::nullopt);
}

// What the reader says of the file.
void ImportFindings::noteBook() {
  notes_.insert(notes_.end(), book_->remarks.begin(), book_->remarks.end());
  const CutTable& cut = book_->table;
  const auto note = [this](int count, const char* what) {
    if (count > 0) notes_.push_back(what + std::to_string(count) + ".");
  };
  note(cut.hiddenRows, "Rows that are hidden in the file were read like all others: ");
  note(cut.mergedAreas, "Cells that were merged stand in the first of their places: ");
  note(cut.cutTexts, "Texts were cut to their first 1000 bytes: ");
}

ImportFindings::FieldLook ImportFindings::lookAtCutField(int row, int column) const {
  const int from = rowOf(row).from;
  if (from < 0) return lookAtText(field(row, column));
  const CutField& seen =
      book_->table.field(static_cast<std::size_t>(from), static_cast<std::size_t>(column));
  if (seen.kind == CutKind::text) return lookAtText(field(row, column));
  FieldLook look{.missing = seen.kind == CutKind::error || seen.kind == CutKind::missing,
                 .isExact = seen.text == noText && seen.kind != CutKind::empty,
                 .kind = seen.kind};
  if (seen.isNumber()) look.shape.marks = NumberShape::Marks::plain;
  return look;
}

void ImportFindings::findCodes() {
  Sighting codes;
  eachValue([&](int row, int column, const FieldLook& seenField) {
    if (seenField.missing && seenField.isExact) codes.add(row, column);
  });
  if (codes.count)
    ask(ImportDoubt::missingCodes,
        "The file says that these are codes for missing values. First " + seenAt(codes) + ".",
        {leaveCellsEmpty, "Take them as numbers"}, 0);
}

// What a spreadsheet shows in another way than it stores.
void ImportFindings::noteKinds() {
  if (!book_) return;
  std::array<Sighting, cutKinds> seen;
  eachValue([&](int row, int column, const FieldLook& seenField) {
    seen[static_cast<std::size_t>(seenField.kind)].add(row, column);
  });
  const auto note = [&](CutKind kind, const std::string& what) {
    const Sighting& sighting = seen[static_cast<std::size_t>(kind)];
    if (sighting.count > 0) notes_.push_back(what + seenAt(sighting) + ".");
  };
  note(CutKind::percent, "A percentage comes as the number that is stored, 12.5 % as 0.125: ");
  note(CutKind::currency, "Amounts of money come as numbers: ");
  note(CutKind::time, "Times come as parts of a day: ");
  note(CutKind::boolean, "TRUE comes as 1 and FALSE as 0: ");
}

}  // namespace tolmer
