#include "sheetfiles/editor_file.h"

#include <array>
#include <charconv>
#include <filesystem>
#include <system_error>

#include "base/checksum.h"
#include "base/file_io.h"
#include "sheetfiles/editor_file_cell.h"

namespace tolmer {
namespace {

constexpr std::string_view magic = "ZMDATA ";
constexpr int version = 1;
constexpr std::string_view checkMark = "crc ";
constexpr std::string_view fromMark = "from\t\"";

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
  for (int i = 1; i <= sheet.variables(); ++i)
    out += "\t" + std::to_string(sheet.decimals[static_cast<std::size_t>(i)]);
  out += "\n" + std::to_string(last + typeCodeRow) + "\t\"" +
         editorFileTypeCode(sheet.variables()) + "\n" + std::to_string(last + titleRow) + "\t\"";
  appendEscaped(out, sheet.title);
  out += '\n';
}

std::string bytesOf(const SheetContent& sheet, std::string_view from, bool packed) {
  std::string out(magic);
  out += std::to_string(version) + " " + std::to_string(sheet.observations()) + " " +
         std::to_string(sheet.variables()) + "\n";
  for (int row = 0; row <= sheet.observations(); ++row) appendRow(out, sheet, row, packed);
  appendTrailer(out, sheet);
  if (!from.empty()) {
    out += fromMark;
    appendEscaped(out, from);
    out += '\n';
  }
  return out + std::string(checkMark) + checksumText(out) + "\n";
}

template <class Number>
std::optional<Number> numberIn(std::string_view text) {
  Number number{};
  const auto [end, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failed != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
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
      content_.sheet.decimals[static_cast<std::size_t>(i)] = *decimals;
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
  const auto size = std::filesystem::file_size(fileName, failed);
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
