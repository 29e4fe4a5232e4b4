#include "formula/rewrite.h"

#include <algorithm>
#include <optional>

#include "formula/formula_tokens.h"

namespace tolmer {
namespace {

using Kind = FormulaToken::Kind;

constexpr std::string_view lostReference = "#REF!";

bool isWholeColumns(const FormulaToken& token) { return token.first.digits().empty(); }

// The new spelling of a token, or nothing where it stays.
using Spelling = std::function<std::optional<std::string>(const FormulaToken&)>;

std::string respelled(std::string_view text, const SheetNames& names, const Spelling& spelling) {
  std::string result;
  std::size_t done = 0;
  if (!text.starts_with('=')) return std::string(text);
  for (const FormulaToken& token : formulaTokens(text, 1, names)) {
    const std::optional<std::string> written = spelling(token);
    if (!written) continue;
    result += text.substr(done, token.begin - done);
    result += *written;
    done = token.end;
  }
  return result += text.substr(done);
}

// Letters and digits that stay keep their spelling; new letters are small where the old were.
std::string spelled(const WrittenAddress& written, CellAddress cell) {
  std::string text = written.fixedColumn ? "$" : "";
  std::string letters(written.letters());
  if (cell.column != written.cell.column) {
    const bool areSmall = letters[0] >= 'a';
    letters = columnLetters(cell.column);
    if (areSmall)
      for (char& letter : letters) letter = static_cast<char>(letter - 'A' + 'a');
  }
  text += letters;
  if (written.digits().empty()) return text;
  text += written.fixedRow ? "$" : "";
  return text +
         (cell.row == written.cell.row ? std::string(written.digits()) : std::to_string(cell.row));
}

// A single cell whose address is also a name doubles; both ends mean the same cell.
std::string spelledCell(const std::string& address, const SheetNames& names) {
  const bool isName = names.lookUp(address).found != SheetNames::Found::none;
  return isName ? address + ":" + address : address;
}

std::string spelledArea(std::string_view text, const FormulaToken& token, CellAddress first,
                        CellAddress last, const SheetNames& names) {
  if (!token.isRange) return spelledCell(spelled(token.first, first), names);
  // The colon with the blanks around it.
  const auto middle =
      static_cast<std::size_t>(token.first.text.data() - text.data()) + token.first.text.size();
  const auto end = static_cast<std::size_t>(token.last.text.data() - text.data());
  return spelled(token.first, first) + std::string(text.substr(middle, end - middle)) +
         spelled(token.last, last);
}

// An edge of a range or a single cell, as a row of the sheet before and after.
struct Rows {
  int first, last;
};

// Changes rows of all areas by after(), which gives nothing for those that are lost.
std::string withRows(std::string_view text, const SheetNames& names,
                     const std::function<std::optional<Rows>(Rows)>& after) {
  return respelled(text, names, [&](const FormulaToken& token) -> std::optional<std::string> {
    if (token.kind != Kind::area || isWholeColumns(token)) return std::nullopt;
    CellAddress first = token.first.cell, last = token.last.cell;
    const bool isReversed = first.row > last.row;
    const auto rows = after({std::min(first.row, last.row), std::max(first.row, last.row)});
    if (!rows) return std::string(lostReference);
    first.row = isReversed ? rows->last : rows->first;
    last.row = isReversed ? rows->first : rows->last;
    return spelledArea(text, token, first, last, names);
  });
}

CellAddress moved(const WrittenAddress& written, int rows, int columns) {
  CellAddress cell = written.cell;
  if (!written.fixedRow && !written.digits().empty()) cell.row += rows;
  if (!written.fixedColumn) cell.column += columns;
  return cell;
}

bool holds(SheetSize size, const FormulaToken& token, CellAddress cell) {
  return isWholeColumns(token) ? size.holds({1, cell.column}) : size.holds(cell);
}

std::string spelledName(const FormulaToken& token, bool isBare, const SheetNames& names) {
  const std::string& heading = names.headings()[token.column];
  const SheetNames::Lookup lookup = names.lookUp(heading);
  if (lookup.found != SheetNames::Found::one) {
    const std::string letters = "$" + columnLetters(token.column);
    return letters + ":" + letters;
  }
  return isBare ? clearName(heading, names) : bracketedName(heading);
}

}  // namespace

std::string movedFormula(std::string_view text, const SheetNames& names, int rows, int columns) {
  return respelled(text, names, [&](const FormulaToken& token) -> std::optional<std::string> {
    if (token.kind != Kind::area) return std::nullopt;
    const CellAddress first = moved(token.first, rows, columns);
    const CellAddress last = moved(token.last, rows, columns);
    if (!holds(names.size(), token, first) || !holds(names.size(), token, last))
      return std::string(lostReference);
    return spelledArea(text, token, first, last, names);
  });
}

std::string withRowsInserted(std::string_view text, const SheetNames& names, int at, int count) {
  return withRows(text, names, [&](Rows rows) -> std::optional<Rows> {
    if (rows.first >= at) rows.first += count;
    if (rows.last >= at) rows.last += count;
    if (rows.first > names.size().rows) return std::nullopt;
    rows.last = std::min(rows.last, names.size().rows);
    return rows;
  });
}

std::string withRowsDeleted(std::string_view text, const SheetNames& names, int at, int count) {
  return withRows(text, names, [&](Rows rows) -> std::optional<Rows> {
    const int end = at + count;
    rows.first = rows.first >= end ? rows.first - count : std::min(rows.first, at);
    rows.last = rows.last >= end ? rows.last - count : std::min(rows.last, at - 1);
    if (rows.first > rows.last) return std::nullopt;
    return rows;
  });
}

std::string withVariableRenamed(std::string_view text, const SheetNames& names, int column,
                                const std::string& newName) {
  const SheetNames after = names.renamed(column, newName);
  return respelled(text, names, [&](const FormulaToken& token) -> std::optional<std::string> {
    if (token.kind == Kind::area && !token.isRange)
      return spelledCell(std::string(token.first.text), after);
    if (token.kind != Kind::name) return std::nullopt;
    const bool isSame =
        token.column != column &&
        after.lookUp(names.headings()[token.column]).found == SheetNames::Found::one;
    if (isSame) return std::nullopt;
    return spelledName(token, text[token.begin] != '[', after);
  });
}

std::string withNamesBracketed(std::string_view text, const SheetNames& names,
                               const std::function<bool(CellAddress cell)>& meansNoCell) {
  return respelled(text, names, [&](const FormulaToken& token) -> std::optional<std::string> {
    if (!token.isNameAndCell || !meansNoCell(token.first.cell)) return std::nullopt;
    return bracketedName(token.first.text);
  });
}

}  // namespace tolmer
