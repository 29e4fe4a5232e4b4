// The quick way through the import, for the text that most programs write: commas between the
// fields, names in the first line, points in the numbers, and nothing that anybody need be asked.
//
// What it reads, TextImport reads alike; all else it leaves to that.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fieldfile/record_reader.h"
#include "textimport/named_table.h"
#include "textimport/text_import.h"

namespace tolmer {

class PlainTable {
 public:
  // Takes text that is plain. Nothing, and the text as it was, where its fields may be divided in
  // another way, rows differ in length, or the first line may be no names.
  static std::optional<PlainTable> take(std::string& text);

  int rows() const { return rows_; }
  int columns() const { return static_cast<int>(names_.size()); }
  // Rows and columns count from 0; the names are no row.
  const std::string& name(int column) const { return names_[static_cast<std::size_t>(column)]; }
  std::string_view cell(int row, int column) const;

  // What TextImport::named makes of it; nothing where that would have to look closer.
  std::optional<NamedTable> named(const WantedColumns& wanted) const;
  // The text as it was taken.
  std::string release() && { return std::move(kept_.empty() ? content_ : kept_); }

 private:
  PlainTable() = default;
  bool cut();
  bool takeNames(const FieldRecord& record);
  bool lastRowIsBlank() const;
  // A column's numbers and gaps; none where it is no variable; nothing where that is not plain.
  std::optional<std::vector<TextNumber>> numbersOf(int column, bool isWanted, bool othersAre) const;

  std::string content_;  // quoted fields are unquoted in place
  std::string kept_;     // the text before that, where it has quotes
  std::vector<std::string> names_;
  std::vector<FieldSpan> cells_;  // row by row
  int rows_ = 0;
};

}  // namespace tolmer
