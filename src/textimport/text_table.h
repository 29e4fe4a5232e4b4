// Foreign text cut into rows and fields.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "fieldfile/record_reader.h"
#include "foreign/cut_table.h"

namespace tolmer {

enum class TextOrigin {
  clipboard,  // a stray quote is a letter, blank lines are rows
  file        // a stray quote is an error; blank lines do not count where rows have several fields,
              // nor do blank rows and columns at the end
};

// What may divide fields; blanks count once however many there are.
inline constexpr char noSeparator = '\0';

// Its fields are parts of one text: there may be millions of them.
struct TextTable {
  struct Row {
    std::size_t begin = 0;  // its first field in `fields`
    std::size_t length = 0;
    int line =
        1;  // where it begins in the text, from 1; of a table that came cut, its number there
    int from = -1;  // its place in a table that came cut; -1 where it is not from its rows
  };
  std::string content;
  std::vector<FieldSpan> fields;  // blanks at both ends removed
  std::vector<Row> rows;
  std::size_t width = 0;
  int firstShortRow = -1;       // the first row that has fewer fields than the longest one
  std::size_t shortLength = 0;  // the number of fields that it has
  int shortRows = 0;            // how many have fewer

  int blankLines = 0;        // left out of the rows
  int titleLines = 0;        // likewise: words above the table, one to a row
  std::string firstTitle{};  // of these

  std::size_t columns() const { return width; }
  // Empty where the row ends before it.
  std::string_view field(std::size_t row, std::size_t column) const {
    const Row& at = rows[row];
    return column < at.length ? fields[at.begin + column].in(content) : std::string_view();
  }
};

// The text of foreign bytes: UTF-16 behind its mark, else UTF-8, or Windows-1252 where it is not; a
// byte-order mark dropped.
// Bytes that are no text are refused.
Result<std::string> foreignText(std::string bytes);

Result<TextTable> textTable(std::string text, char separator, TextOrigin origin);

// The same of a table that came cut, as its fields would be written; `lines` are the numbers of its
// rows. The names of a statistics file become its first row, with the number 0.
// Titles above the names are left out unless the caller knows better.
TextTable textTable(const CutTable& cut, bool withoutTitles = true);

// What a cell holds of a field: one line without blanks at its ends.
std::string cellText(std::string_view field);

// What a variable means, in a line: "Sex of respondent (1 = male, 2 = female)", of many values the
// first ones; empty where its file does not say.
std::string meaningOf(const std::string& label, const std::vector<ValueLabel>& valueLabels);

// The separators that give the same number of fields, more than one, in every row, out of tab,
// semicolon, comma and blank, in this order. In a file the first row may have one less: names over
// a table whose first column has none.
std::vector<char> evenSeparators(const std::string& text, TextOrigin origin);

}  // namespace tolmer
