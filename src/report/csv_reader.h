// A table of comma-separated values with a heading, as RFC 4180 describes it.
//
// Fields may stand in double quotes and then hold commas, line ends and doubled quotes. Lines end
// in CR LF, LF or CR; empty ones are skipped. UTF-8 with or without a byte-order mark, or
// Windows-1252; control characters become question marks. A heading without a name is called after
// its place, "Col 3"; a line end within a name is a blank.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "fieldfile/record_reader.h"

namespace tolmer {

class CsvTable {
 public:
  static Result<CsvTable> open(const std::string& fileName);
  // The whole content of a file; `fileName` is what errors name.
  static Result<CsvTable> parse(std::string fileName, std::string bytes);

  CsvTable(CsvTable&&) = default;
  CsvTable& operator=(CsvTable&&) = default;

  const std::string& fileName() const { return fileName_; }
  int rows() const { return static_cast<int>(lines_.size()); }
  int columns() const { return static_cast<int>(names_.size()); }
  // Rows and columns count from 0; the heading is no row.
  const std::string& name(int column) const { return names_[static_cast<std::size_t>(column)]; }
  std::string_view cell(int row, int column) const;
  // All of them, divided by commas: for a message.
  std::string namesInOrder() const;
  // The column of that name; -1 where there is none.
  int find(std::string_view name) const;

  // An error at a cell: file, line and number of the column, from 1.
  Error errorAt(int row, int column, std::string_view text) const;

 private:
  CsvTable() = default;
  std::string_view text(FieldSpan field) const { return field.in(content_); }
  Result<bool> takeHeading(const FieldRecord& heading);

  std::string fileName_;
  std::string content_;  // quoted fields are unquoted in place
  std::vector<std::string> names_;
  std::vector<FieldSpan> cells_;  // row by row
  std::vector<int> lines_;        // where each row begins
};

// The fields of one line of separated values, blanks around them removed. A field that begins with
// a double quote ends at the next one that is not doubled; any other may hold quotes as they are.
std::vector<std::string> fieldsOfList(std::string_view list, char separator = ',');

}  // namespace tolmer
