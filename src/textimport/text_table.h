// Foreign text cut into rows and fields.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "foreign/cut_table.h"

namespace tolmer {

enum class TextOrigin {
  clipboard,  // a stray quote is a letter, blank lines are rows
  file        // a stray quote is an error; blank lines do not count where rows have several fields,
              // nor do blank rows and columns at the end
};

// What may divide fields; blanks count once however many there are.
inline constexpr char noSeparator = '\0';

struct TextTable {
  std::vector<std::vector<std::string>> rows;  // all of one length, blanks at both ends removed
  std::vector<int> lines;                      // where each row begins in the text, from 1
  int firstShortRow = -1;       // the first row that had fewer fields than the longest one
  std::size_t shortLength = 0;  // the number of fields that it had
  int shortRows = 0;            // how many had fewer

  int blankLines = 0;        // left out of the rows
  int titleLines = 0;        // likewise: words above the table, one to a row
  std::string firstTitle{};  // of these

  std::size_t columns() const { return rows.empty() ? 0 : rows.front().size(); }
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
