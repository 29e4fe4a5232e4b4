#include "sheetfiles/editor_file.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <system_error>

#include "base/data_limits.h"
#include "base/file_io.h"
#include "base/tabbed_text.h"
#include "system/host_path.h"

namespace tolmer {
namespace {

constexpr std::size_t longestReadable = 12;
constexpr std::size_t packedLetters = 11;  // 64 bits, 6 a letter
constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

void appendPacked(std::string& out, double number) {
  auto bits = std::bit_cast<std::uint64_t>(number);
  out += '~';
  for (std::size_t i = 0; i < packedLetters; ++i, bits >>= 6) out += alphabet[bits & 63];
}

void appendNumber(std::string& out, double number, bool packed) {
  std::array<char, 32> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  const auto length = static_cast<std::size_t>(end - digits.data());
  if (!std::isfinite(number) || (packed && length > longestReadable))
    appendPacked(out, number);
  else
    out.append(digits.data(), length);
}

std::optional<double> packedNumber(std::string_view letters) {
  if (letters.size() != packedLetters) return std::nullopt;
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < packedLetters; ++i) {
    const auto value = alphabet.find(letters[i]);
    if (value == alphabet.npos || (i == packedLetters - 1 && value > 15)) return std::nullopt;
    bits |= static_cast<std::uint64_t>(value) << (6 * i);
  }
  return std::bit_cast<double>(bits);
}

template <class Number>
std::optional<Number> numberIn(std::string_view text) {
  Number number{};
  const auto [end, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failed != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<double> numberFromText(std::string_view text) {
  if (text.starts_with('~')) return packedNumber(text.substr(1));
  const auto number = numberIn<double>(text);
  return number && std::isfinite(*number) ? number : std::nullopt;
}

// The result of a formula and its seed, either left out where it is 0.
void appendResult(std::string& out, const DataCell& cell, bool packed) {
  if (cell.number != 0 || std::signbit(cell.number)) appendNumber(out, cell.number, packed);
  if (cell.seed == 0) return;
  out += '#';
  out += std::to_string(cell.seed);
}

bool takeResult(DataCell& cell, std::string_view text) {
  const auto mark = text.find('#');
  const auto digits = text.substr(0, mark);
  const auto number = digits.empty() ? std::optional(0.0) : numberFromText(digits);
  if (!number) return false;
  cell.number = *number;
  if (mark == text.npos) return true;
  const auto seed = numberIn<std::uint32_t>(text.substr(mark + 1));
  cell.seed = seed.value_or(0);
  return seed.has_value();
}

// The formula as it stands one row further down: every run of digits behind a letter is one higher.
// Whether that is what the user sees as a copy is not judged here: packing asks for equality.
std::string oneRowDown(std::string_view formula) {
  std::string moved;
  for (std::size_t i = 0; i < formula.size();) {
    std::size_t end = i;
    while (end < formula.size() && isDigit(formula[end])) ++end;
    const bool isRow = end > i && end - i <= 4 && i > 0 && isLetter(formula[i - 1]);
    const auto row = isRow ? numberIn<int>(formula.substr(i, end - i)) : std::nullopt;
    if (row)
      moved += std::to_string(*row + 1);
    else
      moved += end > i ? formula.substr(i, end - i) : formula.substr(i, 1);
    i = end > i ? end : i + 1;
  }
  return moved;
}

bool followsAbove(const DataCell& cell, const DataCell& above) {
  return above.kind == DataCell::Kind::formula && cell.text == oneRowDown(above.text);
}

std::optional<DataCell> formulaFromText(std::string_view text, const DataCell& above) {
  DataCell cell{.kind = DataCell::Kind::formula};
  const auto source = text.find('=', 1);
  const bool copied = text.front() == '^';
  if (copied ? above.kind != DataCell::Kind::formula : source == text.npos) return std::nullopt;
  if (!takeResult(cell, text.substr(1, copied ? text.npos : source - 1))) return std::nullopt;
  auto written = copied ? oneRowDown(above.text) : unescaped(text.substr(source));
  if (!written) return std::nullopt;
  cell.text = std::move(*written);
  return cell;
}

// Appends the cell. `above` is the cell over it, which a packed formula may refer to.
void appendCell(std::string& out, const DataCell& cell, const DataCell& above, bool packed) {
  if (cell.kind == DataCell::Kind::empty) return;
  if (cell.kind == DataCell::Kind::number) return appendNumber(out, cell.number, packed);
  if (cell.kind == DataCell::Kind::text) {
    out += '"';
    return appendEscaped(out, cell.text);
  }
  const bool copied = packed && followsAbove(cell, above);
  out += copied ? '^' : '=';
  appendResult(out, cell, packed);
  if (!copied) appendEscaped(out, cell.text);
}

// nullopt for anything that appendCell does not write.
std::optional<DataCell> cellFromText(std::string_view text, const DataCell& above) {
  DataCell cell;
  if (text.empty()) return cell;
  if (text.front() == '=' || text.front() == '^') return formulaFromText(text, above);
  if (text.front() == '"') {
    auto plain = unescaped(text.substr(1));
    if (!plain) return std::nullopt;
    cell.kind = DataCell::Kind::text;
    cell.text = std::move(*plain);
    return cell;
  }
  const auto number = numberFromText(text);
  if (!number) return std::nullopt;
  cell.kind = DataCell::Kind::number;
  cell.number = *number;
  return cell;
}

constexpr std::string_view magic = "ZMDATA ";
constexpr int plainVersion = 1;
constexpr int version = 2;  // with a description
constexpr std::string_view checkMark = "crc ";
constexpr std::string_view fromMark = "from\t\"";
constexpr std::string_view sourceMark = "source\t\"";
constexpr std::string_view labelMark = "label ";

// Rows of the trailer, counted from M, the number of observations.
constexpr int decimalsRow = 52;
constexpr int typeCodeRow = 53;
constexpr int titleRow = 54;

Error damaged(std::string_view reason) {
  return {"", "is damaged or cut off: " + std::string(reason)};
}

int usedColumns(const SheetContent& sheet, int row) {
  int columns = sheet.variables() + 1;
  while (columns > 0 && sheet.cells(row, columns - 1).kind == DataCell::Kind::empty) --columns;
  return columns;
}

void appendRow(std::string& out, const SheetContent& sheet, int row, bool packed) {
  const int columns = usedColumns(sheet, row);
  if (columns == 0) return;
  out += std::to_string(row + 1);
  for (int column = 0; column < columns; ++column) {
    out += '\t';
    const DataCell& above = row > 0 ? sheet.cells(row - 1, column) : DataCell{};
    appendCell(out, sheet.cells(row, column), above, packed);
  }
  out += '\n';
}

void appendTrailer(std::string& out, const SheetContent& sheet) {
  const int last = sheet.observations();
  out += std::to_string(last + decimalsRow) + "\t";
  for (int i = 1; i <= sheet.variables(); ++i) out += "\t" + std::to_string(sheet.decimals[i]);
  out += "\n" + std::to_string(last + typeCodeRow) + "\t\"" +
         editorFileTypeCode(sheet.variables()) + "\n" + std::to_string(last + titleRow) + "\t\"";
  appendEscaped(out, sheet.title);
  out += '\n';
}

void appendDescription(std::string& out, const SheetContent& sheet) {
  const auto append = [&out](const std::string& mark, const std::string& text) {
    if (text.empty()) return;
    out += mark;
    appendEscaped(out, text);
    out += '\n';
  };
  append(std::string(sourceMark), sheet.source);
  for (int i = 1; i <= sheet.variables(); ++i)
    append(std::string(labelMark) + std::to_string(i) + "\t\"", sheet.labels[i]);
}

std::string bytesOf(const SheetContent& sheet, std::string_view from, bool packed) {
  std::string out(magic);
  out += std::to_string(isDescribed(sheet) ? version : plainVersion) + " " +
         std::to_string(sheet.observations()) + " " + std::to_string(sheet.variables()) + "\n";
  for (int row = 0; row <= sheet.observations(); ++row) appendRow(out, sheet, row, packed);
  appendTrailer(out, sheet);
  appendDescription(out, sheet);
  if (!from.empty()) {
    out += fromMark;
    appendEscaped(out, from);
    out += '\n';
  }
  return out + std::string(checkMark) + checksumText(out) + "\n";
}

// The text up to the mark, which is taken too; all of it where there is none.
std::string_view takeUpTo(std::string_view& rest, char mark) {
  const auto end = rest.find(mark);
  const auto part = rest.substr(0, end);
  rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
  return part;
}

class Reader {
 public:
  Reader(int observations, int variables)
      : content_{SheetContent(observations, variables), {}},
        observations_(observations),
        variables_(variables) {}

  Result<EditorFileContent> read(std::string_view lines) {
    while (!lines.empty()) {
      const std::string_view line = takeUpTo(lines, '\n');
      if (!takeLine(line))
        return damaged("row \"" + std::string(line.substr(0, line.find('\t'))) + "\"");
    }
    if (typeCode_ != editorFileTypeCode(variables_))
      return Error{"", "holds data of type \"" + typeCode_ + "\", not \"" +
                           editorFileTypeCode(variables_) + "\""};
    return std::move(content_);
  }

 private:
  bool takeLine(std::string_view line) {
    if (line.starts_with(fromMark))
      return takeText(line.substr(fromMark.size() - 1), content_.from);
    if (line.starts_with(sourceMark))
      return takeText(line.substr(sourceMark.size() - 1), content_.sheet.source);
    if (line.starts_with(labelMark)) return takeLabel(line.substr(labelMark.size()));
    const auto row = numberIn<int>(takeUpTo(line, '\t'));
    if (!row || *row <= lastRow_ || line.empty()) return false;
    lastRow_ = *row;
    if (*row <= observations_ + 1) return takeCells(*row - 1, line);
    if (*row == observations_ + decimalsRow) return takeDecimals(line);
    if (*row == observations_ + typeCodeRow) return takeText(line, typeCode_);
    return *row == observations_ + titleRow && takeText(line, content_.sheet.title);
  }

  bool takeText(std::string_view cell, std::string& text) {
    const auto read = cellFromText(cell, {});
    if (!read || read->kind != DataCell::Kind::text) return false;
    text = read->text;
    return true;
  }

  bool takeLabel(std::string_view line) {
    const auto column = numberIn<int>(takeUpTo(line, '\t'));
    return column && *column >= 1 && *column <= variables_ && !line.empty() &&
           takeText(line, content_.sheet.labels[*column]);
  }

  bool takeCells(int row, std::string_view line) {
    Matrix<DataCell>& cells = content_.sheet.cells;
    bool more = true;
    for (int column = 0; more; ++column) {
      more = line.find('\t') != line.npos;
      if (column > variables_) return false;
      const DataCell& above = row > 0 ? cells(row - 1, column) : none_;
      auto cell = cellFromText(takeUpTo(line, '\t'), above);
      if (!cell) return false;
      cells(row, column) = std::move(*cell);
    }
    return true;
  }

  bool takeDecimals(std::string_view line) {
    if (!takeUpTo(line, '\t').empty()) return false;
    for (int i = 1; i <= variables_; ++i) {
      const auto decimals = numberIn<Int16>(takeUpTo(line, '\t'));
      if (!decimals) return false;
      content_.sheet.decimals[i] = *decimals;
    }
    return line.empty();
  }

  EditorFileContent content_;
  const DataCell none_;
  int observations_;
  int variables_;
  int lastRow_ = 0;
  std::string typeCode_;
};

// What stands before the check line, if the check is right.
Result<std::string_view> checkedLines(std::string_view bytes) {
  constexpr std::size_t tail = checkMark.size() + checksumLength + 1;
  if (bytes.size() <= tail || !bytes.ends_with('\n')) return damaged("its last line is missing");
  const auto lines = bytes.substr(0, bytes.size() - tail);
  const auto check = bytes.substr(lines.size());
  if (!lines.ends_with('\n') || !check.starts_with(checkMark))
    return damaged("its last line is missing");
  if (check.substr(checkMark.size(), checksumLength) != checksumText(lines))
    return damaged("the check sum differs");
  return lines;
}

std::optional<Error> headingFault(std::string_view heading, int observations, int variables) {
  if (!heading.starts_with(magic)) return Error{"", "is no file of the data editor"};
  heading.remove_prefix(magic.size());
  const auto written = numberIn<int>(takeUpTo(heading, ' '));
  if (!written || *written < 1) return damaged("its first line");
  if (*written > version) return Error{"", "was written by a newer version of the program"};
  const std::string size = std::to_string(observations) + " " + std::to_string(variables);
  if (heading != size)
    return Error{"", "is of another size: " + std::string(heading.substr(0, 20))};
  return std::nullopt;
}

}  // namespace

std::string editorFileTypeCode(int variables) { return "ZM" + std::to_string(variables); }

std::string editorFileBytes(const SheetContent& sheet, std::string_view from) {
  std::string readable = bytesOf(sheet, from, false);
  return readable.size() <= maxEditorFileBytes ? readable : bytesOf(sheet, from, true);
}

Result<EditorFileContent> editorFileContent(std::string_view bytes, int observations,
                                            int variables) {
  std::string plain;
  for (const char byte : bytes)
    if (byte != '\r') plain += byte;
  std::string_view rest = plain;
  if (const auto fault = headingFault(takeUpTo(rest, '\n'), observations, variables)) return *fault;
  const auto lines = checkedLines(plain);
  if (!lines) return lines.error();
  rest = *lines;
  takeUpTo(rest, '\n');
  return Reader(observations, variables).read(rest);
}

Result<std::string> editorFileToSave(const std::string& fileName, const SheetContent& sheet) {
  std::string bytes = editorFileBytes(sheet);
  if (bytes.size() <= maxEditorFileBytes) return bytes;
  return Error{fileName, "the data need " + std::to_string(bytes.size()) +
                             " bytes, and a file may have no more than " +
                             std::to_string(maxEditorFileBytes)};
}

Result<SheetContent> loadEditorFile(const std::string& fileName, int observations, int variables) {
  std::error_code failed;
  const auto size = std::filesystem::file_size(host::pathOf(fileName), failed);
  if (failed) return Error{fileName, "cannot be opened: " + failed.message()};
  if (size > maxEditorFileBytes)
    return Error{fileName, "has " + std::to_string(size) + " bytes, more than " +
                               std::to_string(maxEditorFileBytes)};
  auto bytes = readWholeFile(fileName);
  if (!bytes) return Error{fileName, bytes.error().text};
  auto content = editorFileContent(*bytes, observations, variables);
  if (!content) return Error{fileName, content.error().message()};
  return std::move(content->sheet);
}

}  // namespace tolmer
