// A table of a foreign file, cut into fields: what a program of its own read and hands over.
//
// A field keeps apart what a text would mix: exact numbers, texts, dates and the kinds of missing
// values, each with the place it has in its file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tolmer {

enum class CutKind : std::uint8_t {
  empty,
  number,
  percent,   // a number that is shown as 12.5 %: 0.125
  currency,  // a number with a sign of currency
  time,      // a time or duration, in days
  boolean,   // 1 or 0
  date,      // days since 1899-12-30, with the time as a fraction; what spreadsheets count
  text,
  error,    // #DIV/0! and its like, as text
  missing,  // a code for a missing value: its number, or as text (".a")
};
inline constexpr std::size_t cutKinds = 10;

inline constexpr std::uint32_t noText = 0xFFFFFFFF;

struct CutField {
  double number = 0;
  std::uint32_t text = noText;  // its place in CutTable::texts
  CutKind kind = CutKind::empty;

  bool isNumber() const { return kind >= CutKind::number && kind <= CutKind::boolean; }
};

struct ValueLabel {
  std::string value;  // a number in its shortest digits, or a text
  std::string label;
};

struct MissingCode {
  std::string code;
  int count = 0;
};

// Beyond it, a column has more different values than anybody makes categories of.
inline constexpr int mostDifferent = 51;

struct CutColumn {
  int number = 1;      // its place in the file, from 1
  std::string name{};  // name and label are a statistics file's; a spreadsheet's are in its rows
  std::string label{};
  std::array<int, cutKinds> counts{};  // of each kind, in all rows of the file
  std::vector<ValueLabel> valueLabels{};
  std::vector<MissingCode> missingCodes{};
  int different = 0;  // different numbers and texts in all rows of the file, up to mostDifferent

  int count(CutKind kind) const { return counts[static_cast<std::size_t>(kind)]; }
};

// Rows and columns without any content are left out. Of a large table it has the rows that were
// asked for, all else only counted.
struct CutTable {
  bool namesApart = false;  // a statistics file: no row holds the names
  std::string title;
  std::vector<CutColumn> columns;
  std::vector<int> rowNumbers;  // of the rows here, from 1
  int rowsInAll = 0;            // with content, in the file
  int hiddenRows = 0;           // of these
  int mergedAreas = 0;
  int cutTexts = 0;                // fields whose text is longer than is taken
  std::vector<CutField> fields;    // row by row
  std::vector<std::string> texts;  // UTF-8, each once

  std::size_t rows() const { return rowNumbers.size(); }
  const CutField& field(std::size_t row, std::size_t column) const {
    return fields[row * columns.size() + column];
  }
  // As a person would write it: numbers in all their digits, dates as 2024-03-05 or with 14:30:00.
  std::string text(const CutField& field) const;
  // "J6" in a spreadsheet, "case 6, Weight" in a statistics file; the row by its number there.
  std::string place(int rowNumber, std::size_t column) const;
};

struct SheetInfo {
  std::string name;
  bool hidden = false;
  bool hasCells = false;
};

struct CutBook {
  std::string format;                  // "xlsx", "ods", "sav", "dta", "gdt"
  std::vector<SheetInfo> sheets;       // a statistics file has one without a name
  std::size_t sheet = 0;               // the one that the table is from
  std::vector<std::string> remarks{};  // sentences on how the file was read
  CutTable table{};
};

// The places of the sheets with content, hidden ones last.
std::vector<std::size_t> sheetsToRead(const CutBook& book);

// Which part of a file is wanted. What is left out is counted all the same.
struct CutRequest {
  std::string sheet{};      // name, or number from 1; empty: the first with cells, hidden ones last
  int head = 25;            // rows with content at the top that are taken in any case
  int rows = 525;           // so many at most, those of the head with them
  int every = 1;            // below the head every so many-th
  std::vector<int> only{};  // below the head these alone: their numbers, rising; empty for all
  std::vector<int> columns{};  // their numbers in the file; empty for all
};

// "J6" for row 6 and column 10.
std::string spreadsheetPlace(int row, int column);
// The fewest digits that read back to the same bits.
std::string shortestDigits(double number);

}  // namespace tolmer
