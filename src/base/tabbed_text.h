// Tables as text, cells divided by tabs and rows by line ends, as spreadsheets read and write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tolmer {

// Would a spreadsheet carry this text out instead of showing it? It begins with "=" or "@", or with
// a sign and is no number: "=1+1", "-A1", "+SUM(A1)". Numbers ("-1,234.5", "+2E-05") and signs
// alone
// ("---") are none.
bool looksLikeFormula(std::string_view text);

// On its way to other programs such a text gets an apostrophe before it, by which spreadsheets know
// that it is text; on its way back it loses that one again. Any other text stays as it is.
std::string withTextMark(std::string_view text);
std::string_view withoutTextMark(std::string_view text);

// The cell as it stands in such a text: with its text mark, and in quotation marks, those inside
// doubled, where it holds a tab or a line end, or begins with a quotation mark.
std::string tabbedCell(std::string_view text);

// A text on one line between tabs of a file of this program's own: tab, line ends and backslash
// with a backslash before them, and back. Nothing where a backslash stands before anything else.
void appendEscaped(std::string& out, std::string_view text);
std::optional<std::string> unescaped(std::string_view text);

// Attributes of a cell in a copied HTML table, each behind a blank: what would be carried out is
// marked as text, for the one and the other spreadsheet, and a figure as the number it is. A cell's
// text alone is read in the writing of the reader's country, where 1.234 may be more than a
// thousand.
std::string spreadsheetMark(std::string_view text, bool isFigure);

}  // namespace tolmer
